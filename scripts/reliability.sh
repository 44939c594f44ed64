#!/usr/bin/env bash
# Renews docs/reliability.md from what the fault tests count.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

setup_tests
cmake --preset asan >/dev/null
cmake --build --preset asan --target test_guasti
build/asan/tests/test_guasti --scrivi
