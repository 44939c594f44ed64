#!/usr/bin/env bash
# Takes the guide's pictures anew: scripts/schermate.sh [BUILD], by default build/release.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
[ -d "$build" ] || cmake --preset release >/dev/null
cmake --build "$build" --target schermate suite >/dev/null
QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1.5 "$build/bin/schermate" suite/guida/pagine/figure \
  "$build/suite" "$build/suite-build/esempi/cruciverba"
ls -l suite/guida/pagine/figure
