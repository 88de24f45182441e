#!/bin/sh
# Runs a Windows program in Wine.
#
#   tools/windows/wine.sh PROGRAM.EXE [ARGUMENT...]
#   tools/windows/wine.sh --fresh    forgets the Windows of earlier runs and makes a new one
#   tools/windows/wine.sh --stop     ends Wine's server with all that still runs in it
#   tools/windows/wine.sh --64 ...   all of this for 64-bit programs instead of 32-bit ones
#
# WINEPREFIX names the folder of that Windows; without it, it lies in the folder build, one for each
# kind of programs. The Wine is the one that tools/windows/prepare_wine.sh unpacked.
set -eu

bits=32
if [ "${1-}" = --64 ]; then
  bits=64
  shift
fi
top=$(CDPATH='' cd -- "$(dirname -- "$0")/../.." && pwd -P)
cache=${KYR_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kyr}
if [ "$bits" = 64 ]; then
  root=$cache/wine-amd64
  libraries=$root/usr/lib/x86_64-linux-gnu:$root/lib/x86_64-linux-gnu
  export WINEPREFIX="${WINEPREFIX:-$top/build/wine-prefix64}" WINEARCH=win64
else
  root=$cache/wine-i386
  libraries=$root/usr/lib/i386-linux-gnu:$root/lib/i386-linux-gnu
  export WINEPREFIX="${WINEPREFIX:-$top/build/wine-prefix}" WINEARCH=win32
fi
export WINELOADER="$root/usr/lib/wine/wine" WINESERVER="$root/usr/lib/wine/wineserver"
export WINEDEBUG="${WINEDEBUG--all}"
# Neither offers to download anything, nor makes entries in the desktop's menus.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES-mscoree=;mshtml=;winemenubuilder.exe=}"

if [ ! -x "$WINELOADER" ]; then
  printf '%s\n' "wine.sh: there is no Wine for $bits bits yet; ./dev windows --$bits prepares it" >&2
  exit 127
fi

with_libraries() {
  LD_LIBRARY_PATH="$libraries" "$@"
}

stop() {
  with_libraries "$WINESERVER" -k 2>/dev/null || true
  with_libraries "$WINESERVER" -w 2>/dev/null || true
}

# The server and what belongs to it stay after the last program: the next one starts ten times as
# fast. What the first program or the first window starts inherits its standard streams, and whoever
# reads them would wait for all programs of this Windows: so it is started here, and a program with a
# window keeps the desktop. Windows are drawn nowhere: there may be no display; the desktop of a new
# Windows came before it was told, and goes with its server. The first program makes that Windows by
# itself; asking for it would make two of each service.
start() {
  mkdir -p "$WINEPREFIX"
  {
    [ -e "$WINEPREFIX/system.reg" ] || {
      with_libraries "$WINELOADER" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
      stop
    }
    with_libraries "$WINESERVER" -p
    with_libraries "$WINELOADER" cmd /c start notepad
  } >"$WINEPREFIX.log" 2>&1 </dev/null || {
    cat "$WINEPREFIX.log" >&2
    return 1
  }
}

running() {
  [ -d "$WINEPREFIX" ] && with_libraries "$WINESERVER" -k0
}

# All that a program starts inherits its error stream, consoles as well, and may outlive it: it gets
# a file in the stream's place, so that whoever reads the stream waits for the program alone.
run() {
  errors=$(mktemp "$WINEPREFIX.errors.XXXXXX")
  status=0
  "$WINELOADER" "$@" 2>"$errors" || status=$?
  cat "$errors" >&2
  rm -f "$errors"
  exit "$status"
}

# Only one of several programs that come at once starts it.
ensure_started() {
  ! running || return 0
  mkdir -p "$(dirname "$WINEPREFIX")"
  exec 9>"$WINEPREFIX.lock"
  flock 9
  running || start 9>&-
  exec 9>&-
}

case ${1-} in
  '') sed -n '2,/^set/s/^# \{0,1\}//p' "$0"; exit 2 ;;
  --stop) stop ;;
  --fresh)
    stop
    rm -rf "$WINEPREFIX"
    ensure_started
    ;;
  *)
    ensure_started
    export LD_LIBRARY_PATH="$libraries"
    run "$@"
    ;;
esac
