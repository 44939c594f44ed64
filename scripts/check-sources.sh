#!/usr/bin/env bash
# Rules that the compiler does not see: no Qt below the forms, tests named, sources formatted.
set -euo pipefail
cd "$(dirname "$0")/.."

status=0
core=$(sed -n '/add_library(tabellino_core/,/^)/p' src/CMakeLists.txt | grep -o '[a-z_0-9/]*\.cpp')
for source in $core; do
  for file in "src/$source" "src/${source%.cpp}.h"; do
    [ -e "$file" ] && grep -nHE '#include [<"]Q' "$file" && { echo "Qt header in the core: $file"; status=1; }
  done
done
# Only one folder a system, and the reader of Jet files, knows the system and its screen.
sistema='#include <(arpa|net|netinet|sys|linux|xcb|X11)/|#include <(aio|dirent|dlfcn|fcntl|fts|ftw|glob|grp|langinfo|netdb|poll|pthread|pwd|sched|signal|spawn|syslog|termios|unistd|wordexp|windows|winioctl|io|direct|shlobj|shellapi|sql|sqlext|odbcinst)\.h>|::(sigaction|localtime_r|realpath)\('
grep -rnE "$sistema" src suite --include='*.cpp' --include='*.h' |
  grep -vE '^src/platform/(posix|win32|leggi_mdb)/' && { echo "system header outside platform/posix and platform/win32"; status=1; }
# What a test may replace is read below the rooms; who takes the guide's pictures answers boxes as a test does.
grep -rnE '\b(ambiente|scrivania)\(\)' src suite --include='*.cpp' --include='*.h' |
  grep -vE '^(src/platform/|suite/guida/schermate\.cpp)' && { echo "the environment named outside platform"; status=1; }
# Tests have names of one style.
nome='[A-Z][A-Za-z0-9]*'
grep -rPzo "\bTEST(_F|_P)?\((?!\s*$nome,\s*$nome\))[^)]*\)" tests --include='*.cpp' --include='*.h' |
  tr '\0' '\n' | grep . && { echo "a test's name is not TEST(Subject, WhatHolds)"; status=1; }
# By folder: an unpacked archive of the sources has no list of its files.
faults=$(find src suite packaging tests bench \( -name '*.cpp' -o -name '*.h' \) -print0 |
  xargs -0 -n 16 -P "$(nproc)" clang-format --dry-run --Werror 2>&1) || {
  head -n 20 <<<"$faults"
  status=1
}
exit $status
