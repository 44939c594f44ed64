#!/usr/bin/env bash
# Two programs and an importer on one folder, killed all the time, for SECONDS (60).
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

setup_tests
cmake --preset debug >/dev/null
cmake --build --preset debug --target test_guasti
GUASTI_SECONDI=${1:-60} build/debug/tests/test_guasti --gtest_filter='Insieme.*'
