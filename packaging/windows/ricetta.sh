# How the parts that Tabellino for Windows stands on are made from Debian's sources; sourced by
# build and test. Each part is kept in build/windows and made again only when its recipe changes.

OPERA=$PWD/build/windows
# The native build: a finished one serves as well.
OSPITE=${OSPITE:-$OPERA/ospite}
QT_OSPITE=(-DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake)

# A static Qt without what the program never uses. The cross compiler's headers lack the tablet and
# Direct2D 1.1; of Direct2D as such only the plugin is left out, for its feature brings DirectWrite.
OPZIONI_QT=(-DBUILD_SHARED_LIBS=OFF -DCMAKE_BUILD_TYPE=Release "${QT_OSPITE[@]}"
  -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF -DFEATURE_testlib=ON)
for assente in sql network dbus opengl vulkan icu xml tabletevent direct2d1_1 \
  system_zlib system_png system_jpeg system_freetype system_harfbuzz system_pcre2; do
  OPZIONI_QT+=("-DFEATURE_$assente=OFF")
done
OPZIONI_QT+=(-DINPUT_opengl=no)

setup_windows() {
  setup_build
  install_missing g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix libz-mingw-w64-dev nsis zip icoutils \
    dpkg-dev tcl xz-utils fonts-liberation
}

# sorgente PACKAGE: the folder with Debian's source of it, patched as Debian has it. The lists of
# sources are the machine's own, asked for sources instead, and kept apart from the machine's.
sorgente() {
  local pacchetto=$1 cartella=$OPERA/sorgenti/$1 apt=$OPERA/apt file
  if [ ! -e "$cartella/fatta" ]; then
    if [ ! -e "$apt/lette" ]; then
      mkdir -p "$apt/parti" "$apt/liste/partial"
      for file in /etc/apt/sources.list /etc/apt/sources.list.d/*; do
        [ -e "$file" ] || continue
        sed -E 's/^(Types:).*/\1 deb-src/; s/^deb(-src)? /deb-src /' "$file" >"$apt/parti/${file##*/}"
      done
      "${APT[@]}" update >&2 || return
      touch "$apt/lette"
    fi
    rm -rf "$cartella"
    mkdir -p "$cartella"
    (cd "$cartella" && "${APT[@]}" source --only-source "$pacchetto" >&2) || return
    touch "$cartella/fatta"
  fi
  find "$cartella" -mindepth 1 -maxdepth 1 -type d
}
APT=(apt-get -qq -o "Dir::Etc::sourcelist=/dev/null" -o "Dir::Etc::sourceparts=$OPERA/apt/parti"
  -o "Dir::State::lists=$OPERA/apt/liste" -o "APT::Sandbox::User=root")

# fatto FOLDER RECIPE...: whether the folder was made by this very recipe.
fatto() {
  local cartella=$1
  shift
  [ "$(cat "$cartella/ricetta" 2>/dev/null)" = "$(printf '%s\n' "$@")" ]
}

# segna FOLDER RECIPE...: notes by what recipe the folder was made.
segna() {
  local cartella=$1
  shift
  printf '%s\n' "$@" >"$cartella/ricetta"
}

# The prefix is no place of this machine: it stands in every program.
fai_qt() {
  local da ricetta
  da=$(sorgente qt6-base)
  ricetta=("${da##*/}" "$(cat packaging/windows/toolchain.cmake)" "${OPZIONI_QT[@]}")
  fatto "$OPERA/qt" "${ricetta[@]}" && return 0
  rm -rf "$OPERA/qt" "$OPERA/qt-opera"
  cmake -S "$da" -B "$OPERA/qt-opera" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/windows/toolchain.cmake" \
    -DCMAKE_INSTALL_PREFIX=/qt "-DCMAKE_CXX_FLAGS=-ffile-prefix-map=$OPERA=." \
    "-DCMAKE_C_FLAGS=-ffile-prefix-map=$OPERA=." "${OPZIONI_QT[@]}" >"$OPERA/qt.log"
  cmake --build "$OPERA/qt-opera" | tail -1
  DESTDIR=$OPERA/qt cmake --install "$OPERA/qt-opera" >>"$OPERA/qt.log"
  segna "$OPERA/qt" "${ricetta[@]}"
  rm -rf "$OPERA/qt-opera"
}

# SQLite in one file, as its own makefile joins it.
fai_sqlite() {
  local da ricetta
  da=$(sorgente sqlite3)
  ricetta=("${da##*/}")
  fatto "$OPERA/sqlite" "${ricetta[@]}" && return 0
  rm -rf "$OPERA/sqlite" "$OPERA/sqlite-opera"
  mkdir -p "$OPERA/sqlite" "$OPERA/sqlite-opera"
  (cd "$OPERA/sqlite-opera" && "$da/configure" --disable-tcl >/dev/null && make sqlite3.c >/dev/null)
  cp "$OPERA/sqlite-opera/"sqlite3.[ch] "$OPERA/sqlite"
  rm -rf "$OPERA/sqlite-opera"
  segna "$OPERA/sqlite" "${ricetta[@]}"
}

# The native build: what of the suite its own commands make, and the pictures drawn.
fai_ospite() {
  cmake -S . -B "$OSPITE" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTABELLINO_TESTS=OFF >/dev/null
  cmake --build "$OSPITE" | tail -1
}

# incrocia FOLDER TARGETS OPTION...: these targets, built there for the target system.
incrocia() {
  local cartella=$1
  local -a mete
  read -ra mete <<<"$2"
  shift 2
  cmake -S . -B "$cartella" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/windows/toolchain.cmake" \
    -DTABELLINO_OSPITE="$OSPITE" -DTABELLINO_SQLITE="$OPERA/sqlite" \
    "-DCMAKE_CXX_FLAGS=-ffile-prefix-map=$PWD=." "$@" >/dev/null
  cmake --build "$cartella" --target "${mete[@]}" | tail -1
}

# fai_programma TARGETS OPTION...: the program itself, or its tests, which share all that both have.
fai_programma() {
  incrocia "$OPERA/x64" "$1" -DCMAKE_PREFIX_PATH="$OPERA/qt/qt" "${QT_OSPITE[@]}" "${@:2}"
}

# fai_nucleo: the tests of the logic, in a build that needs no Qt.
fai_nucleo() {
  incrocia "$OPERA/nucleo" test_core -DTABELLINO_TESTS=ON -DTABELLINO_FINESTRE=OFF
}
