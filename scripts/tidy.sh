#!/usr/bin/env bash
# Runs clang-tidy over the program's own sources, or those that are named, without the precompiled headers, which
# are another compiler's and would hide an include that is missing; those of another system are left out.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release -B build/tidy -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON \
  -DCMAKE_GLOBAL_AUTOGEN_TARGET=ON -DCMAKE_GLOBAL_AUTORCC_TARGET=ON >/dev/null
cmake --build build/tidy --target autogen autorcc >/dev/null
if [ $# -gt 0 ]; then printf '%s\0' "$@"; else find src suite -path src/platform/win32 -prune -o -name '*.cpp' -print0; fi |
  xargs -0 -P "$(nproc)" -n 4 clang-tidy --quiet -p build/tidy
