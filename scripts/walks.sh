#!/usr/bin/env bash
# Walks through the windows by chance: 500 actions for each of SEEDS (200, a night's 100,000), half of
# them by every device. A walk that fails is shortened and printed as a test.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

setup_tests
cmake --preset debug >/dev/null
cmake --build --preset debug --target test_forms
cd build/debug/tests
QT_QPA_PLATFORM=offscreen TABELLINO_SOAK_SEMI=${1:-200} ./test_forms --gtest_filter='*Soak*' --gtest_brief=1
