# What the gates share; sourced by them from the root of the sources.
. scripts/setup.sh

skip() {
  echo "SKIPPED: $*"
  exit 77
}
fail() {
  echo "FAILED: $*" >&2
  exit 1
}
# need COMMAND PACKAGE...: the command, from these packages where they can be had.
need() {
  local command=$1
  shift
  command -v "$command" >/dev/null || (install_missing "$@") >/dev/null 2>&1 || true
  command -v "$command" >/dev/null || skip "$command cannot be had"
}
