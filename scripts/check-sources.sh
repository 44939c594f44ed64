#!/usr/bin/env bash
# Rules that the compiler does not see: no Qt below the forms, sources formatted.
set -euo pipefail
cd "$(dirname "$0")/.."

status=0
core=$(sed -n '/add_library(tabellino_core/,/^)/p' src/CMakeLists.txt | grep -o '[a-z_0-9/]*\.cpp')
for source in $core; do
  for file in "src/$source" "src/${source%.cpp}.h"; do
    [ -e "$file" ] && grep -nHE '#include [<"]Q' "$file" && { echo "Qt header in the core: $file"; status=1; }
  done
done
sources=$(git ls-files '*.cpp' '*.h')
if ! clang-format --dry-run --Werror $sources 2>/tmp/clang-format.$$; then
  head -n 20 /tmp/clang-format.$$
  status=1
fi
rm -f /tmp/clang-format.$$
exit $status
