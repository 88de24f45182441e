#!/bin/sh
# Unpacks Wine for 32-bit Windows programs, once.
#
#   tools/windows/prepare_wine.sh i686 x86_64
#
# The Wine for 64-bit programs is a package like any other, which --packages names. Debian's i386
# packages of Wine are fetched with lists of their own and unpacked into KYR_CACHE (default: kyr in
# the user's cache folder). The machine's packages stay as they are: i386
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
root=$cache/wine-i386
work=$cache/wine-i386.work
log=$cache/wine-i386.log

packages() {
  for machine; do
    case $machine in
      i686) echo libc6-i386 ;;
      x86_64) echo wine64 ;;
      *) fail "unknown machine $machine" ;;
    esac
  done
}

# apt as a machine of its own: i386, with nothing installed.
apt_i386() {
  apt-get -q -o Dir::Etc::SourceList="$work/none" -o Dir::Etc::SourceParts="$work/parts" \
    -o Dir::Etc::Preferences="$work/none" -o Dir::Etc::PreferencesParts="$work/none.d" \
    -o Dir::State::Lists="$work/lists" -o Dir::State::Status="$work/status" \
    -o Dir::Cache="$work/cache" -o APT::Architecture=i386 -o APT::Architectures=i386 \
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

# A source without i386 packages, or one that is being updated, does not stop the others.
fetch_packages() {
  prepare_apt
  apt_i386 update || true
  apt_i386 install -y --download-only --no-install-recommends wine32
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
  mv "$root.new/usr/lib/wine/wineserver32" "$root.new/usr/lib/wine/wineserver"
  dll=$root.new/usr/lib/i386-linux-gnu/wine/i386-windows/zlib1.dll
  cp "$root.new/usr/i686-w64-mingw32/lib/zlib1.dll" "$dll"
  printf 'Wine builtin DLL\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0' |
    dd of="$dll" bs=1 seek=64 conv=notrunc
}

build_all() {
  rm -rf "$work" "$root.new"
  mkdir -p "$work" "$root.new"
  fetch_packages
  unpack_packages
  complete_wine
  rm -rf "$root" "$work"
  mv "$root.new" "$root"
}

case ${1-} in
  --packages) shift; packages "$@"; exit 0 ;;
  --build) build_all; exit 0 ;;  # a process of its own, so that set -e holds in every function
  '') fail 'for which machines? i686, x86_64 or both' ;;
esac

packages "$@" >/dev/null  # knows the machines
case " $* " in
  *' i686 '*) ;;
  *) exit 0 ;;
esac
stamp=$(sha256sum <"$recipe" | cut -c1-64)
if [ "$(cat "$root/stamp" 2>/dev/null)" != "$stamp" ]; then
  mkdir -p "$cache"
  if ! sh "$recipe" --build >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    fail "Wine could not be unpacked; all of its output is in $log"
  fi
  printf '%s\n' "$stamp" >"$root/stamp"
fi
