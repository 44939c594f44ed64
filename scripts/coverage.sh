#!/usr/bin/env bash
# Tells which lines and branches the tests reach, by room:
# scripts/coverage.sh [--list] [--write] [--without-windows].
# --list names what no test reaches, --write renews the table in docs/reliability.md; without windows
# the logic is counted alone, by its own tests.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

setup_tests
install_missing python3
cmake --preset coverage >/dev/null
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
run() {
  for tests in "$@"; do
    QT_QPA_PLATFORM=offscreen ./$tests --gtest_brief=1 || echo "$tests fails: what it reached counts" >&2
  done
}
cd build/coverage/tests
run test_core test_guasti &
[[ " $* " == *" --without-windows "* ]] || run test_forms
wait
cd ../../..
exec scripts/coverage.py "$@"
