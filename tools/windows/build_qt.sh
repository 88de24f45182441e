#!/bin/sh
# Builds Qt 5.15 Core for 32-bit Windows from Debian's own source package, once.
#
#   tools/windows/build_qt.sh        prints the folder of the finished Qt
#
# The result lies in KYR_CACHE (default: kyr in the user's cache folder), where a clean of the
# build folder does not reach it. It is built anew when this recipe or Debian's version changes.
# Needs the packages that packages() lists, and a source of Debian's packages.
set -eu

packages() {
  echo 'g++-mingw-w64-i686-posix libz-mingw-w64-dev dpkg-dev make perl python3 qtbase5-dev-tools qt5-qmake-bin'
}

fail() {
  printf '%s\n' "build_qt: $*" >&2
  exit 1
}

recipe=$(CDPATH='' cd -- "$(dirname -- "$0")" && pwd -P)/$(basename -- "$0")
cache=${KYR_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kyr}
prefix=$cache/qt5-windows-i686
work=$cache/qt5-windows-i686.work
log=$cache/qt5-windows-i686.log
source_package=qtbase-opensource-src

# apt with the machine's sources, but for source packages and with lists of its own: neither the
# machine's sources nor its lists change.
apt_sources() {
  apt-get -q -o Dir::Etc::SourceList="$work/apt/none" -o Dir::Etc::SourceParts="$work/apt/parts" \
    -o Dir::State::Lists="$work/apt/lists" -o APT::Sandbox::User='' "$@"
}

write_source_parts() {
  mkdir -p "$work/apt/parts" "$work/apt/lists/partial"
  for list in /etc/apt/sources.list.d/*.sources; do
    [ ! -f "$list" ] || sed 's/^Types:.*/Types: deb-src/' "$list" \
      >"$work/apt/parts/$(basename "$list")"
  done
  for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ ! -f "$list" ] || sed -n 's/^deb /deb-src /p' "$list" \
      >"$work/apt/parts/$(basename "$list" .list).list"
  done
}

# dpkg-source applies Debian's patch series as it unpacks.
fetch_source() {
  write_source_parts
  apt_sources update
  (cd "$work" && apt_sources source --only-source "$source_package")
  mv "$work"/"$source_package"-*/ "$work/source"
}

# The prefix that Qt knows is one of a Windows machine: nothing of this machine gets into it, and
# its CMake files find each other wherever they lie.
configure_qt() {
  mkdir -p "$work/build"
  (cd "$work/build" && ../source/configure -opensource -confirm-license \
    -xplatform win32-g++ -device-option CROSS_COMPILE=i686-w64-mingw32- -release \
    -no-gui -no-widgets -no-opengl -no-dbus -no-icu -no-openssl -no-sql-sqlite \
    -nomake examples -nomake tests -qt-zlib -qt-pcre -qt-doubleconversion \
    -prefix /qt -extprefix "$prefix.new" -hostprefix "$prefix.new" \
    "QMAKE_CXXFLAGS+=-ffile-prefix-map=$work/source=qtbase")
}

# Its CMake files name programs that run on this machine; the system's own serve.
add_host_programs() {
  mkdir -p "$prefix.new/bin"
  for program in qmake moc rcc; do
    [ -e "$prefix.new/bin/$program" ] || ln -s "/usr/lib/qt5/bin/$program" "$prefix.new/bin/$program"
  done
}

build_qt() {
  make -C "$work/build" sub-src-qmake_all
  make -C "$work/build/src" -j "$(nproc)" sub-corelib sub-winmain
  make -C "$work/build/src" sub-corelib-install_subtargets sub-winmain-install_subtargets
  make -C "$work/build" install_mkspecs
  add_host_programs
}

keep_licences() {
  mkdir -p "$prefix.new/licences"
  cp "$work"/source/LICENSE.* "$work/source/debian/copyright" "$prefix.new/licences/"
}

build_all() {
  rm -rf "$work" "$prefix.new"
  mkdir -p "$work"
  fetch_source
  configure_qt
  build_qt
  keep_licences
  # shellcheck disable=SC2016 # for pkg-config to expand
  sed -i 's|^prefix=.*|prefix=${pcfiledir}/../..|' "$prefix.new"/lib/pkgconfig/*.pc
  rm -rf "$prefix"
  mv "$prefix.new" "$prefix"
  rm -rf "$work"
}

case ${1-} in
  '') ;;
  --packages) packages; exit 0 ;;
  --build) build_all; exit 0 ;;  # a process of its own, so that set -e holds in every function
  *) fail "unknown argument $1" ;;
esac

stamp=$(sha256sum <"$recipe" | cut -c1-64)-$(dpkg-query -W -f '${source:Version}' qtbase5-dev-tools)
if [ "$(cat "$prefix/stamp" 2>/dev/null)" != "$stamp" ]; then
  mkdir -p "$cache"
  if ! sh "$recipe" --build >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    fail "Qt could not be built; all of its output is in $log"
  fi
  printf '%s\n' "$stamp" >"$prefix/stamp"
fi
printf '%s\n' "$prefix"
