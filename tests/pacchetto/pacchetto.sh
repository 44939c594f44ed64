#!/usr/bin/env bash
# pacchetto.sh voce|metadati|manuale|pacchetto SOURCE BUILD: what is installed, checked as a desktop and
# Debian would. Exits 77 when the tools for it are missing.
set -euo pipefail
cosa=$1 sorgenti=$2 build=$3

serve() {
  local mancano=()
  for comando in "$@"; do command -v "$comando" >/dev/null || mancano+=("$comando"); done
  [ ${#mancano[@]} -eq 0 ] && return 0
  echo "SKIPPED: ${mancano[*]} not installed (scripts/setup.sh installs what the tests need)"
  exit 77
}
fallisci() { echo "FAILED: $*" >&2; exit 1; }

# The options in a text.
opzioni() { tr -c 'a-z-' '\n' | grep -xE -e '--[a-z]*|-[a-z]' | sort -u | tr '\n' ' '; }

# What the sources accept, what a command tells of itself and what its page tells are the same.
manuale() {
  local comando eseguibile fonti pagina accettate dette scritte parola file
  for comando in archivio ridotti sistema; do
    case $comando in
    archivio) eseguibile=$build/suite/cruciverba/archivio fonti=("$sorgenti"/suite/archivio/{comando,main}.cpp) ;;
    ridotti) eseguibile=$build/suite/cruciverba/ridotti fonti=("$sorgenti"/suite/{comune,ridotti}/*.cpp) ;;
    sistema) eseguibile=$build/suite/cruciverba/sistema fonti=("$sorgenti"/suite/{comune,sistema}/*.cpp) ;;
    esac
    pagina=$(sed 's/\\-/-/g' "$sorgenti/packaging/man/$comando.1")
    accettate=$(grep -hoE '"(--[a-z]*|-[a-z])"' "${fonti[@]}" | opzioni)
    dette=$("$eseguibile" --aiuto | opzioni)
    [ -n "$dette" ] || fallisci "$comando --aiuto tells no option"
    [ "$accettate" = "$dette" ] ||
      fallisci "$comando accepts $accettate and tells of $dette"
    scritte=$(opzioni <<<"$pagina")
    [ "$scritte" = "$dette" ] || fallisci "$comando tells of $dette and $comando.1 of $scritte"
    for parola in $("$eseguibile" --aiuto | grep -oE "^(Uso:)? +$comando [a-z]+" | awk '{print $NF}'); do
      [ "$parola" = apre ] || grep -q "^\.B $comando $parola" <<<"$pagina" ||
        fallisci "$comando.1 lacks $parola"
    done
    grep -q "^\.BR $comando (1)" "$sorgenti/packaging/man/tabellino.1" ||
      fallisci "tabellino.1 does not lead to $comando.1"
  done
  for parola in gioco ingresso ordine pannello ruota posta \
    $(sed -n 's/.*{"\([a-z]*\)", &Modulo::.*/\1/p' "$sorgenti/suite/stampa/campi_modulo.h"); do
    grep -qE "^\.BR? (.* )?$parola( |$)" "$sorgenti/packaging/man/stampa.1" ||
      fallisci "stampa.1 lacks $parola"
  done
  grep -q '^\.BR stampa (1)' "$sorgenti/packaging/man/tabellino.1" ||
    fallisci "tabellino.1 does not lead to stampa.1"
  for file in .sen .col .sel .lot cst rip.dat col.dat mstat.dat /act 'temp\*' -prospetto.pdf \
    -sviluppo.pdf .rid drawit.mdb drawit.sqlite skn.dat 'skin1_\*.skn' guida.html dotazione open trans sch; do
    sed 's/\\-/-/g' "$sorgenti/packaging/man/tabellino.1" | grep -q "^\.I.*$file" ||
      fallisci "tabellino.1 lacks $file"
  done
  # Told in one place, the version stands on every page.
  versione=$(sed -n 's/^CMAKE_PROJECT_VERSION:.*=//p' "$build/CMakeCache.txt")
  for pagina in "$build"/packaging/*.1; do
    head -n 1 "$pagina" | grep -qF "\"Tabellino $versione\"" || fallisci "$pagina is not of $versione"
  done
  head -n 9 "$sorgenti/CHANGELOG.md" | grep -q "^## $versione" || fallisci "CHANGELOG.md does not begin with $versione"
}

case $cosa in
voce)
  serve desktop-file-validate
  desktop-file-validate "$sorgenti/packaging/tabellino.desktop"
  exit ;;
metadati)
  serve appstreamcli
  appstreamcli validate --no-net "$build/packaging/local.tabellino.tabellino.metainfo.xml"
  exit ;;
manuale)
  manuale
  exit ;;
esac

serve cpack cmake dpkg dpkg-deb dpkg-shlibdeps file
lavoro=$(mktemp -d)
programma=
trap '[ -z "$programma" ] || kill -KILL "$programma" 2>/dev/null || true; rm -rf "$lavoro"' EXIT
# Installed or packed by a user whose mask hides all, it is still for everybody.
(umask 077 && cpack -G DEB --config "$build/CPackConfig.cmake" -B "$lavoro/cpack") >"$lavoro/log" 2>&1 ||
  { cat "$lavoro/log"; fallisci "cpack"; }
(umask 077 && DESTDIR=$lavoro/installato cmake --install "$build") >"$lavoro/log" 2>&1 ||
  { cat "$lavoro/log"; fallisci "cmake --install"; }
# Packed again under the same mask, which the packer writes down, it is the same bytes.
(umask 077 && cpack -G DEB --config "$build/CPackConfig.cmake" -B "$lavoro/ancora") >"$lavoro/log" 2>&1 ||
  { cat "$lavoro/log"; fallisci "cpack once more"; }
cmp "$lavoro"/cpack/*.deb "$lavoro"/ancora/*.deb || fallisci "packed twice, it differs"
chiusi() { find "$@" \( -type f ! -perm -444 -o -type d ! -perm -555 -o -type f -perm /100 ! -perm /001 \) -print; }
[ -z "$(chiusi "$lavoro/installato")" ] || fallisci "closed to others: $(chiusi "$lavoro/installato")"
deb=$(echo "$lavoro"/cpack/*.deb)
[ -f "$deb" ] || fallisci "no package"
# A root folder of its own with an empty list of packages; its owners are played where nobody is root.
radice=$lavoro/x
mkdir -p "$radice/var/lib/dpkg/info" "$radice/var/lib/dpkg/updates" "$radice/var/lib/dpkg/triggers"
: >"$radice/var/lib/dpkg/status"
: >"$radice/var/lib/dpkg/available"
# dpkg looks for tools there, which only root's own path names.
PATH=$PATH:/usr/sbin:/sbin
in_radice=(dpkg --root="$radice" --log=/dev/null --force-depends --force-not-root
  --force-script-chrootless)
if [ "$(id -u)" -ne 0 ]; then
  serve fakeroot
  in_radice=(fakeroot "${in_radice[@]}")
fi
"${in_radice[@]}" --install "$deb" >"$lavoro/log" 2>&1 || { cat "$lavoro/log"; fallisci "dpkg --install"; }
[ "$(dpkg-query --admindir="$radice/var/lib/dpkg" -W -f '${db:Status-Status}' tabellino)" = installed ] ||
  fallisci "dpkg does not know the package"
# Files below the root, without the list of packages.
rimasti() { find "$radice" -path "$radice/var/lib/dpkg" -prune -o "$@" -print; }

# Layout.
usr=$radice/usr
comandi=$(find "$usr/bin" -type f -printf '%f\n' | sort | tr '\n' ' ')
[ "$comandi" = "archivio ridotti sistema stampa tabellino " ] || fallisci "commands: $comandi"
for eseguibile in bin/tabellino bin/ridotti bin/archivio bin/sistema bin/stampa libexec/tabellino/leggi_mdb; do
  [ -x "$usr/$eseguibile" ] || fallisci "$eseguibile is not there"
done
# What is installed looks for its reader of Jet files there, and reads through it.
jet=$lavoro/jet
mkdir -p "$jet/archivio" "$jet/cruciverba"
cp "$sorgenti/tests/fixtures/jet/drawit.mdb" "$jet/archivio/"
cp "$usr"/share/tabellino/cruciverba/primipassi.* "$jet/cruciverba/"
"$usr/bin/sistema" spoglio --programma "$jet/cruciverba" --concorso ultimo \
  "$jet/cruciverba/primipassi.sen" >"$lavoro/log" 2>&1 ||
  { cat "$lavoro/log"; fallisci "the reader of Jet files is not found, or reads nothing"; }
for nome in applications/tabellino.desktop metainfo/local.tabellino.tabellino.metainfo.xml \
  icons/hicolor/scalable/apps/tabellino.svg man/man1/tabellino.1.gz man/man1/ridotti.1.gz man/man1/archivio.1.gz \
  man/man1/sistema.1.gz man/man1/stampa.1.gz \
  doc/tabellino/copyright doc/tabellino/changelog.gz doc/tabellino/materials.txt \
  tabellino/ridotti/cr0600.rid tabellino/ridotti/cr1507.rid \
  tabellino/skin/skn.dat tabellino/skin/skin1_1.skn tabellino/skin/skin1_2.skn tabellino/skin/skin1_3.skn \
  tabellino/archivio/drawit.sqlite tabellino/guida.html; do
  [ -f "$usr/share/$nome" ] || fallisci "share/$nome is not there"
done
for lato in 16 22 24 32 48 64 128 256; do
  file "$usr/share/icons/hicolor/${lato}x$lato/apps/tabellino.png" |
    grep -q "PNG image data, $lato x $lato," || fallisci "the icon of $lato pixels"
done
[ "$(find "$usr/share/tabellino/ridotti" -name '????0?.rid' | wc -l)" -eq 136 ] || fallisci "136 tables"
for sistema in primipassi.sen primipassi.col ridotto.sen terzine.sel terzine.lot cinquine.sel; do
  [ -f "$usr/share/tabellino/cruciverba/$sistema" ] || fallisci "sample $sistema"
done
# The guide is reached through the shared folder by a link that holds wherever the tree is put.
[ -x "$usr/libexec/tabellino/guida" ] || fallisci "the guide is not there"
[ "$(readlink -f "$usr/share/tabellino/guida")" = "$(readlink -f "$usr/libexec/tabellino/guida")" ] ||
  fallisci "share/tabellino/guida does not lead to the guide"
# The slip program too, which is a command besides.
[ "$(readlink -f "$usr/share/tabellino/stampa")" = "$(readlink -f "$usr/bin/stampa")" ] ||
  fallisci "share/tabellino/stampa does not lead to the slip program"
altrove=$(rimasti -type f ! -path '*/usr/bin/*' ! -path '*/usr/share/*' ! -path '*/usr/libexec/tabellino/*')
[ -z "$altrove" ] || fallisci "unexpected files: $altrove"
scrivibili=$(rimasti -type f -perm /022)
[ -z "$scrivibili" ] || fallisci "writable by others: $scrivibili"
[ -z "$(chiusi "$usr")" ] || fallisci "closed to others: $(chiusi "$usr")"

# Dependencies: each library that a program wants belongs to a package that is named.
dipendenze=$(dpkg-deb -f "$deb" Depends)
for pacchetto in libqt6widgets6 libqt6svg6 libqt6printsupport6 libmdb libc6 fonts-liberation \
  qt6-translations-l10n; do
  [[ $dipendenze == *"$pacchetto"* ]] || fallisci "does not depend on $pacchetto: $dipendenze"
done

# So do the materials, which the build looked up by itself.
for pacchetto in libqt6widgets6 libmdb libc6 fonts-liberation qt6-translations-l10n; do
  grep -q "^$pacchetto[^ ]* .*[0-9]" "$usr/share/doc/tabellino/materials.txt" ||
    fallisci "the materials lack $pacchetto"
done

# A first start makes the user's suite folder and nothing else in the home.
casa=$radice/home/utente dati=$casa/dati
mkdir -p "$casa/run"
chmod 700 "$casa/run"
env -u DISPLAY -u WAYLAND_DISPLAY HOME="$casa" XDG_DATA_HOME="$dati" XDG_RUNTIME_DIR="$casa/run" \
  XDG_CONFIG_HOME="$casa/config" XDG_CACHE_HOME="$casa/cache" QT_QPA_PLATFORM=offscreen \
  "$usr/bin/tabellino" 2>"$lavoro/err" &
programma=$!
for _ in $(seq 300); do
  [ -d "$dati/sortivario/cruciverba" ] && [ -e "$dati/sortivario/guida" ] && break
  kill -0 $programma 2>/dev/null || { cat "$lavoro/err"; fallisci "the program ended"; }
  sleep 0.1
done
kill -0 $programma 2>/dev/null || { cat "$lavoro/err"; fallisci "the program ended"; }
suite=$dati/sortivario
[ -d "$suite/cruciverba" ] || fallisci "no suite folder after the first start"
for parte in ridotti skin archivio; do
  diff -r "$usr/share/tabellino/$parte" "$suite/$parte" || fallisci "$parte differs"
done
for sistema in "$usr"/share/tabellino/cruciverba/*; do
  cmp "$sistema" "$suite/cruciverba/$(basename "$sistema")" || fallisci "sample systems differ"
done
[ "$(readlink -f "$suite/guida")" = "$(readlink -f "$usr/libexec/tabellino/guida")" ] ||
  fallisci "the suite folder does not lead to the guide"
[ "$(readlink -f "$suite/stampa")" = "$(readlink -f "$usr/bin/stampa")" ] ||
  fallisci "the suite folder does not lead to the slip program"
[ -z "$(find "$casa" -type f ! -path "$suite/*" ! -path "$casa/run/*" ! -path "$casa/cache/*")" ] ||
  fallisci "files outside the suite folder: $(find "$casa" -type f)"
kill -TERM $programma
wait $programma || true
programma=

# Removed, it takes everything along but what is the user's.
echo '"mio"' >"$suite/cruciverba/mio.sen"
propri=$(cd "$casa" && find . | sort)
"${in_radice[@]}" --remove tabellino >"$lavoro/log" 2>&1 || { cat "$lavoro/log"; fallisci "dpkg --remove"; }
[ "$(cd "$casa" && find . | sort)" = "$propri" ] || fallisci "the user's files did not stay"
avanzi=$(rimasti -mindepth 1 ! -path "$casa*" ! -path "$radice/home" ! -path "$radice/var" \
  ! -path "$radice/var/lib")
[ -z "$avanzi" ] || fallisci "left behind: $avanzi"
echo "$(basename "$deb"): $dipendenze"
