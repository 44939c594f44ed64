#!/usr/bin/env bash
# Runs clang-tidy over the program's own sources, with the build of the preset `release`.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
git ls-files 'src/*.cpp' 'suite/*.cpp' | xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/release
