#!/bin/sh
# Unpacks Debian's arm64 packages that the library is built and run with, once.
#
#   tools/arm64/prepare_root.sh    prints the folder that holds them
#
# They are fetched with lists of their own and unpacked into KYR_CACHE (default: kyr in the user's
# cache folder). The machine's packages stay as they are, and nothing here needs root.
set -eu

# The cross compiler with its C library, and what runs programs of arm64. With binfmt-support the
# system itself starts them, so that programs can start each other.
packages() {
  echo 'g++-aarch64-linux-gnu qemu-user-static binfmt-support googletest'
}

fail() {
  printf '%s\n' "prepare_root: $*" >&2
  exit 1
}

recipe=$(CDPATH='' cd -- "$(dirname -- "$0")" && pwd -P)/$(basename -- "$0")
cache=${KYR_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kyr}
root=$cache/arm64
work=$cache/arm64.work
log=$cache/arm64.log

# apt as a machine of its own: arm64, with nothing installed.
apt_arm64() {
  apt-get -q -o Dir::Etc::SourceList="$work/none" -o Dir::Etc::SourceParts="$work/parts" \
    -o Dir::Etc::Preferences="$work/none" -o Dir::Etc::PreferencesParts="$work/none.d" \
    -o Dir::State::Lists="$work/lists" -o Dir::State::Status="$work/status" \
    -o Dir::Cache="$work/cache" -o APT::Architecture=arm64 -o APT::Architectures=arm64 \
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

# A source without arm64 packages, or one that is being updated, does not stop the others. Of Qt's
# package for developers only the headers are wanted, not the windows and their libraries.
fetch_packages() {
  prepare_apt
  apt_arm64 update || true
  apt_arm64 install -y --download-only --no-install-recommends \
    libqt5core5a zlib1g-dev libdw-dev libdeflate-dev libstdc++6
  (cd "$work/cache/archives" && apt_arm64 download qtbase5-dev qt5-qmake)
}

unpack_packages() {
  for package in "$work"/cache/archives/*.deb; do
    dpkg-deb -x "$package" "$root.new"
  done
  rm -rf "$root.new/usr/share/doc" "$root.new/usr/share/man" "$root.new/usr/share/locale"
  # What else of Qt there seems to be has no library here.
  find "$root.new/usr/lib/aarch64-linux-gnu/cmake" -maxdepth 1 -name 'Qt5?*' \
    ! -name Qt5Core -exec rm -rf {} +
}

# Qt's description of itself names its tools, which are those of the machine; and links between
# libraries that begin at the root begin at this one.
complete_root() {
  for folder in usr/lib/qt5 usr/lib/aarch64-linux-gnu/qt5; do
    mkdir -p "$root.new/$folder"
    ln -s /usr/lib/qt5/bin "$root.new/$folder/bin"
  done
  find "$root.new" -type l -lname '/lib/*' | while read -r link; do
    ln -sf "$root$(readlink "$link")" "$link"
  done
}

build_all() {
  rm -rf "$work" "$root.new"
  mkdir -p "$work" "$root.new"
  fetch_packages
  unpack_packages
  complete_root
  rm -rf "$root" "$work"
  mv "$root.new" "$root"
}

case ${1-} in
  '') ;;
  --packages) packages; exit 0 ;;
  --build) build_all; exit 0 ;;  # a process of its own, so that set -e holds in every function
  *) fail "unknown argument $1" ;;
esac

stamp=$(sha256sum <"$recipe" | cut -c1-64)
if [ "$(cat "$root/stamp" 2>/dev/null)" != "$stamp" ]; then
  mkdir -p "$cache"
  if ! sh "$recipe" --build >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    fail "the packages could not be unpacked; all of the output is in $log"
  fi
  printf '%s\n' "$stamp" >"$root/stamp"
fi
printf '%s\n' "$root"
