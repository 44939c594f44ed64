# Packages that Debian 12 lacks out of the box; sourced by run and test.

install_missing() {
  local missing=()
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local root=()
  [ "$(id -u)" -eq 0 ] || root=(sudo)
  echo "Installing: ${missing[*]}"
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

setup_build() {
  install_missing build-essential cmake ninja-build qt6-base-dev qt6-svg-dev qt6-translations-l10n \
    libgl-dev fonts-liberation libbenchmark-dev libsqlite3-dev mdbtools-dev zlib1g-dev pkg-config \
    libxcb1-dev
}

setup_tests() {
  setup_build
  install_missing libgtest-dev clang-format poppler-utils xvfb openbox desktop-file-utils \
    appstream file
}

setup_virtual_display() {
  install_missing xvfb openbox x11vnc
}
