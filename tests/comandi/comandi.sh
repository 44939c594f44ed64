#!/usr/bin/env bash
# comandi.sh prova|avvio SOURCE: the two commands of the sources, in a tree without a history and
# over stand-ins for the tools that they call. Exits 77 when what it needs is missing.
set -euo pipefail
cosa=$1 sorgenti=$2

fallisci() { echo "FAILED: $*" >&2; exit 1; }
serve() {
  for comando in "$@"; do
    command -v "$comando" >/dev/null || { echo "SKIPPED: $comando not installed"; exit 77; }
  done
}

lavoro=$(mktemp -d)
trap 'rm -rf "$lavoro"' EXIT
albero=$lavoro/albero
export TMPDIR=$lavoro/tmp PATH=$lavoro/bin:$PATH
mkdir -p "$TMPDIR" "$lavoro/bin" "$albero/scripts" "$albero"/{src,suite,packaging,tests,bench}
cp "$sorgenti/run" "$sorgenti/test" "$albero/"
cp "$sorgenti"/scripts/*.sh "$albero/scripts/"
cp "$sorgenti/src/CMakeLists.txt" "$albero/src/"
cp "$sorgenti/.clang-format" "$albero/"

# A stand-in NAME whose body is read from standard input.
al_posto_di() { { echo '#!/bin/bash'; cat; } >"$lavoro/bin/$1"; chmod +x "$lavoro/bin/$1"; }
al_posto_di cmake <<<'exit ${CMAKE_ESITO:-0}'
al_posto_di dpkg-query <<<'echo install ok installed'

# What a command said, its end, and that it left nothing in the temporary folder.
esegui() {
  esito=0
  "$albero/$1" >"$lavoro/uscita" 2>"$lavoro/errori" || esito=$?
  ultima=$(tail -n 1 "$lavoro/uscita")
  [ -z "$(ls -A "$TMPDIR")" ] || fallisci "$1 leaves $(ls -A "$TMPDIR")"
}
# attesa "LAST LINE" yes|no: of the command `test`, with the success it must tell.
attesa() {
  esegui test
  [ "$ultima" = "$1" ] || fallisci "\"$ultima\" in place of \"$1\": $(cat "$lavoro/errori")"
  [ "$2" = "$([ "$esito" -eq 0 ] && echo yes || echo no)" ] || fallisci "$1 with exit status $esito"
}

prova() {
  serve clang-format
  printf 'int uno() {\n    return 1;\n}\n' >"$albero/src/uno.cpp"
  al_posto_di ctest <<'FINE'
echo '1/2 Test #1: Uno ..............   Passed    0.01 sec'
echo '2/2 Test #2: Due ..............   Passed    0.01 sec'
echo '100% tests passed, 0 tests failed out of 2'
FINE
  attesa "2 passed, 0 failed" yes
  al_posto_di ctest <<'FINE'
echo '1/2 Test #1: Uno ..............   Passed    0.01 sec'
echo '2/2 Test #2: Due ..............***Failed    0.01 sec'
echo '50% tests passed, 1 tests failed out of 2'
exit 8
FINE
  attesa "1 passed, 1 failed" no
  # Two groups, of which one has a test that fails, a test alone, and one that is no test of theirs.
  al_posto_di ctest <<'FINE'
mkdir -p build/asan/Testing/Temporary
cat >build/asan/Testing/Temporary/LastTest.log <<'DETTO'
[==========] Running 25 tests from 9 test suites.
[==========] 25 tests from 9 test suites ran. (123 ms total)
[  PASSED  ] 24 tests.
[  SKIPPED ] 1 test, listed below:
[  SKIPPED ] Uno.Due
[==========] 20 tests from 9 test suites ran. (123 ms total)
[  PASSED  ] 18 tests.
[  FAILED  ] 2 tests, listed below:
[  FAILED  ] Due.Uno
[  FAILED  ] Due.Due
[==========] 1 test from 1 test suite ran. (1 ms total)
[  PASSED  ] 1 test.
DETTO
echo '75% tests passed, 1 tests failed out of 4'
exit 8
FINE
  attesa "45 passed, 2 failed" no
  al_posto_di ctest <<'FINE'
echo '1/9 Test #1: Uno ..............   Passed    0.01 sec'
echo '2/9 Test #2: Due ..............***Skipped   0.01 sec'
kill -KILL $$
FINE
  attesa "2 passed, 1 failed" no
  al_posto_di ctest <<'FINE'
echo '1/9 Test #1: Uno ..............   Passed    0.01 sec'
echo '2/9 Test #2: Due ..............***Exception: SegFault  0.01 sec'
echo '3/9 Test #3: Tre ..............***Timeout   9.01 sec'
kill -KILL $$
FINE
  attesa "1 passed, 2 failed" no
  al_posto_di ctest <<<'echo "No tests were found!!!"'
  attesa "0 passed, 1 failed" no
  export CMAKE_ESITO=1
  attesa "0 passed, 1 failed" no
  export CMAKE_ESITO=0
  printf 'int  uno( ) { return 1; }\n' >"$albero/src/uno.cpp"
  attesa "0 passed, 1 failed" no
  grep -q 'uno.cpp.*clang-format' "$lavoro/uscita" || fallisci "a file out of form passes"
}

avvio() {
  serve Xvfb openbox xauth mcookie xkbcomp
  local programma=$albero/build/release/suite/cruciverba/tabellino
  mkdir -p "$(dirname "$programma")"
  # A client with the authority, and one of somebody else.
  cat >"$programma" <<'FINE'
#!/bin/bash
xkbcomp -w0 "$DISPLAY" - >/dev/null 2>&1 && echo "enters"
XAUTHORITY=/dev/null HOME=/nonexistent xkbcomp -w0 "$DISPLAY" - >/dev/null 2>&1 || echo "bars others"
stat -c 'mode %a' "$XAUTHORITY" "$(dirname "$XAUTHORITY")"
exit 3
FINE
  chmod +x "$programma"
  unset DISPLAY WAYLAND_DISPLAY XAUTHORITY
  al_posto_di x11vnc <<<'echo PORT=5917'
  esegui run
  for detto in "VNC address:  localhost:5917" "enters" "bars others" "mode 600" "mode 700"; do
    grep -q "$detto" "$lavoro/uscita" || fallisci "no \"$detto\" in: $(cat "$lavoro"/uscita "$lavoro"/errori)"
  done
  [ "$esito" -eq 3 ] || fallisci "the program's end 3 became $esito"
  al_posto_di x11vnc <<'FINE'
for parola in "$@"; do [ "${prima:-}" != -o ] || echo "no port is free" >"$parola"; prima=$parola; done
exit 1
FINE
  esegui run
  [ "$esito" -ne 0 ] || fallisci "a VNC server that fails is no failure"
  grep -q "VNC server did not start" "$lavoro/errori" || fallisci "nothing said of the VNC server"
  grep -q "no port is free" "$lavoro/errori" || fallisci "the VNC server's reason is lost"
  ! grep -q "VNC address" "$lavoro/uscita" || fallisci "an address that nobody serves"
}

case $cosa in
prova) prova ;;
avvio) avvio ;;
*) fallisci "comandi.sh prova|avvio SOURCE" ;;
esac
