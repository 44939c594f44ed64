#!/usr/bin/env bash
# materiali.sh PACKAGE... -- PROGRAM...: the Debian packages whose libraries these programs load, and
# those that are named, each with its version and the licence of most of its files.
set -euo pipefail

packages=()
while [ "$1" != -- ]; do
  packages+=("$1")
  shift
done
shift
command -v dpkg-query >/dev/null || {
  echo "This copy was not built on Debian: its libraries belong to no package that it could name."
  exit 0
}
# Where /lib leads to /usr/lib, a package may know a file by either name.
mapfile -t files < <(for program in "$@"; do
  needed=$(objdump -p "$program" | awk '$1 == "NEEDED" {print $2}')
  ldd "$program" | awk '$2 == "=>" && $3 ~ "^/" {print $1, $3}' | while read -r name path; do
    grep -qxF "$name" <<<"$needed" && printf '%s\n' "$path" "/usr$path" "${path#/usr}" || true
  done
done | sort -u)
mapfile -t -O ${#packages[@]} packages < <(dpkg-query -S "${files[@]}" 2>/dev/null | cut -d: -f1 | sort -u)

printf '%-28s %-28s %s\n' Package Version Licence
printf '%s\n' "${packages[@]}" | sort -u | while read -r package; do
  version=$(dpkg-query -W -f '${Version}' "$package" 2>/dev/null || true)
  # Of a copyright file in the machine's form, the licence of the paragraph for all files.
  licence=$(awk '/^Files:/ {all = $2 == "*"} all && /^License:/ {sub(/^License: */, ""); print; exit}' \
    "/usr/share/doc/$package/copyright" 2>/dev/null || true)
  printf '%-28s %-28s %s\n' "$package" "${version:--}" "${licence:-see its copyright file}"
done
echo
echo "Each package tells the rest in /usr/share/doc/PACKAGE/copyright."
