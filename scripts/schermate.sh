#!/usr/bin/env bash
# Takes the guide's pictures anew: scripts/schermate.sh [BUILD], by default build/release.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
[ -d "$build" ] || cmake --preset release >/dev/null
cmake --build "$build" --target schermate suite >/dev/null
# On a screen that has room for the windows at 100 %, or they would open smaller.
schermo=$(mktemp)
trap 'rm -f "$schermo"' EXIT
cat >"$schermo" <<'FINE'
{"screens": [{"name": "grande", "x": 0, "y": 0, "width": 2400, "height": 1800,
  "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}
FINE
QT_QPA_PLATFORM=offscreen:configfile=$schermo QT_SCALE_FACTOR=1.5 "$build/bin/schermate" suite/guida/pagine/figure \
  "$build/suite" "$build/suite-build/esempi/cruciverba"
ls -l suite/guida/pagine/figure
