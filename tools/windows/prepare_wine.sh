#!/bin/sh
# Unpacks Wine for Windows programs of one or both kinds, once.
#
#   tools/windows/prepare_wine.sh i686 x86_64    prints the folder of each Wine, on a line
#
# Debian's packages of Wine are fetched with lists of their own and unpacked into KYR_CACHE
# (default: kyr in the user's cache folder). The machine's packages stay as they are: i386
# packages often lag behind the installed amd64 ones, and apt then refuses to install both, or
# would downgrade half of the machine. Nothing here needs root. All that the machine itself must
# have is libc6-i386, an amd64 package: the C library that starts 32-bit programs.
set -eu

fail() {
  printf '%s\n' "prepare_wine: $*" >&2
  exit 1
}

recipe=$(CDPATH='' cd -- "$(dirname -- "$0")" && pwd -P)/$(basename -- "$0")
cache=${KYR_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kyr}

# use_machine MACHINE: which Wine is meant from here on.
use_machine() {
  machine=$1
  case $machine in
    i686) architecture=i386 bits=32 triplet=i386-linux-gnu dlls=i386-windows ;;
    x86_64) architecture=amd64 bits=64 triplet=x86_64-linux-gnu dlls=x86_64-windows ;;
    *) fail "unknown machine $machine" ;;
  esac
  root=$cache/wine-$architecture
  dlls=$root.new/usr/lib/$triplet/wine/$dlls
  work=$root.work
  log=$root.log
}

# Its binutils strip what is unpacked.
packages() {
  for machine; do
    case $machine in
      i686) echo libc6-i386 binutils-mingw-w64-i686 ;;
      x86_64) echo binutils-mingw-w64-x86-64 ;;
      *) fail "unknown machine $machine" ;;
    esac
  done
}

# apt as a machine of its own, with nothing installed.
apt_alone() {
  apt-get -q -o Dir::Etc::SourceList="$work/none" -o Dir::Etc::SourceParts="$work/parts" \
    -o Dir::Etc::Preferences="$work/none" -o Dir::Etc::PreferencesParts="$work/none.d" \
    -o Dir::State::Lists="$work/lists" -o Dir::State::Status="$work/status" \
    -o Dir::Cache="$work/cache" -o APT::Architecture="$architecture" \
    -o APT::Architectures="$architecture" \
    -o APT::Sandbox::User='' -o Debug::NoLocking=1 -o Acquire::Retries=2 "$@"
}

prepare_apt() {
  mkdir -p "$work/parts" "$work/lists/partial" "$work/cache/archives/partial"
  : >"$work/status"
  for list in /etc/apt/sources.list.d/*.sources; do
    [ ! -f "$list" ] || sed '/^Architectures:/d' "$list" >"$work/parts/$(basename "$list")"
  done
  for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ ! -f "$list" ] || sed -n 's/^\(deb \[[^]]*\)arch=[^] ]*/\1/; /^deb /p' "$list" \
      >"$work/parts/$(basename "$list" .list).list"
  done
}

# A source without packages for it, or one that is being updated, does not stop the others.
fetch_packages() {
  prepare_apt
  apt_alone update || true
  apt_alone install -y --download-only --no-install-recommends "wine$bits"
}

# Without what belongs to the C library: its parts must come from one release, the machine's.
unpack_packages() {
  for package in "$work"/cache/archives/*.deb; do
    case $(basename "$package") in
      libc6_* | libc-bin_*) ;;
      *) dpkg-deb -x "$package" "$root.new" ;;
    esac
  done
  rm -rf "$root.new/usr/share/doc" "$root.new/usr/share/man" "$root.new/usr/share/locale"
}

# What the packages do when they are installed. Debian's wineserver is a script that looks for
# the program below /usr; and Wine takes a DLL for a part of its own, which it puts into each new
# Windows, only with these words (and zeros up to 32 bytes) behind the 64 bytes of its DOS header.
complete_wine() {
  mv "$root.new/usr/lib/wine/wineserver$bits" "$root.new/usr/lib/wine/wineserver"
  [ "$bits" = 32 ] || mv "$root.new/usr/lib/wine/wine64" "$root.new/usr/lib/wine/wine"
  cp "$root.new/usr/$machine-w64-mingw32/lib/zlib1.dll" "$dlls/zlib1.dll"
  printf 'Wine builtin DLL\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0' |
    dd of="$dlls/zlib1.dll" bs=1 seek=64 conv=notrunc
}

# Three quarters of its DLLs are debug information. Each new Windows gets a copy of it, and each
# program that crashes reads it.
strip_wine() {
  find "$dlls" -type f -exec "$machine-w64-mingw32-strip" -p --strip-debug {} + || true
}

build_all() {
  rm -rf "$work" "$root.new"
  mkdir -p "$work" "$root.new"
  fetch_packages
  unpack_packages
  complete_wine
  strip_wine
  rm -rf "$root" "$work"
  mv "$root.new" "$root"
}

case ${1-} in
  --packages) shift; packages "$@"; exit 0 ;;
  # A process of its own, so that set -e holds in every function.
  --build) use_machine "$2"; build_all; exit 0 ;;
  '') fail 'for which machines? i686, x86_64 or both' ;;
esac

stamp=$(sha256sum <"$recipe" | cut -c1-64)
mkdir -p "$cache"
for kind; do
  use_machine "$kind"
  if [ "$(cat "$root/stamp" 2>/dev/null)" != "$stamp" ]; then
    if ! sh "$recipe" --build "$kind" >"$log" 2>&1; then
      tail -n 30 "$log" >&2
      fail "Wine could not be unpacked; all of its output is in $log"
    fi
    printf '%s\n' "$stamp" >"$root/stamp"
  fi
  printf '%s\n' "$root"
done
