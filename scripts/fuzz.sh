#!/usr/bin/env bash
# Runs every fuzzer for so many seconds (60 when none are given), from a seed that may follow, and tells
# what it did; fails on a finding, whose input stays in build/fuzz/trovati. What it learnt stays in
# build/fuzz/semi, merged: of inputs that reach the same, the smallest.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

seconds=${1:-60}
seed=${2:-0}
setup_build
install_missing clang libclang-rt-14-dev libgtest-dev
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
mkdir -p build/fuzz/trovati

status=0
printf '%-16s %12s %10s %10s %8s  %s\n' reader executions edges features inputs result
for program in build/fuzz/fuzz/fuzz_*; do
  reader=${program##*/fuzz_}
  seeds=tests/fuzz/semi/$reader
  max_length=65536
  # Files of a database are as long as they are.
  if [ "$reader" = jet ]; then seeds=tests/fixtures/jet; max_length=262144; fi
  if [ "$reader" = schedine ]; then seeds=tests/fuzz/semi/sviluppo_campi; fi
  corpus=build/fuzz/semi/$reader
  log=build/fuzz/$reader.log
  mkdir -p "$corpus"
  result=ok
  "$program" -max_total_time="$seconds" -seed="$seed" -max_len=$max_length -timeout=20 -rss_limit_mb=2048 \
    -dict="tests/fuzz/dizionari/$reader.dict" -artifact_prefix=build/fuzz/trovati/"$reader"- \
    -print_final_stats=1 "$corpus" "$seeds" 2>"$log" || { result="FOUND, see $log"; status=1; }
  last=$(grep -E '^#[0-9]+.* cov: ' "$log" | tail -n 1)
  merged=$(mktemp -d build/fuzz/semi/.XXXXXX)
  if "$program" -merge=1 -max_len=$max_length -timeout=20 -rss_limit_mb=2048 "$merged" "$corpus" \
    2>>"$log"; then
    rm -rf "$corpus"
    mv "$merged" "$corpus"
  else
    rm -rf "$merged"
  fi
  printf '%-16s %12s %10s %10s %8s  %s\n' "$reader" \
    "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")" \
    "$(sed -n 's/.* cov: \([0-9]*\).*/\1/p' <<<"$last")" \
    "$(sed -n 's/.* ft: \([0-9]*\).*/\1/p' <<<"$last")" "$(find "$corpus" -type f | wc -l)" "$result"
done
exit $status
