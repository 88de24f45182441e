#!/bin/sh
# Builds Qt 5.15 Core for Windows from Debian's own source package, once for each machine.
#
#   tools/windows/build_qt.sh i686 x86_64   prints the folder of each finished Qt, on a line
#
# The results lie in KYR_CACHE (default: kyr in the user's cache folder), where a clean of the
# build folder does not reach them. One is built anew when this recipe or Debian's version changes.
# Needs the packages that --packages lists for these machines, and a source of Debian's packages.
set -eu

fail() {
  printf '%s\n' "build_qt: $*" >&2
  exit 1
}

recipe=$(CDPATH='' cd -- "$(dirname -- "$0")" && pwd -P)/$(basename -- "$0")
cache=${KYR_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kyr}
work=$cache/qt5-windows.work
log=$cache/qt5-windows.log
source_package=qtbase-opensource-src
host_tools=/usr/lib/qt5/bin  # of the same version as the source

packages() {
  echo 'libz-mingw-w64-dev dpkg-dev make perl qtbase5-dev-tools qt5-qmake-bin'
  for machine; do
    case $machine in
      i686) echo g++-mingw-w64-i686-posix ;;
      x86_64) echo g++-mingw-w64-x86-64-posix ;;
      *) fail "unknown machine $machine" ;;
    esac
  done
}

# use_machine MACHINE: which Qt is meant from here on.
use_machine() {
  machine=$1
  prefix=$cache/qt5-windows-$machine
  build=$work/$machine
}

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

# No code is changed, only what is asked. The configuration asks about windows, networks and databases
# as well: it need only ask what Core wants to know.
prepare_source() {
  sed -i '/"subconfigs": \[/,/\]/{/"src\/corelib"/s/,//;/"src\/corelib"\|subconfigs\|\]/!d}' \
    "$work/source/configure.json"
}

# What neither the library nor its tests and examples use.
left_out() {
  for feature in animation easingcurve statemachine itemmodel mimetype sharedmemory \
    systemsemaphore filesystemwatcher jalalicalendar hijricalendar topleveldomain \
    gestures sha3-fast future zstd; do
    printf '%s ' "-no-feature-$feature"
  done
}

# run_qmake PROJECT [ARGUMENT...]: the system's qmake, as if it were the one of this build.
run_qmake() {
  project=$1
  shift
  mkdir -p "$build/$(dirname "$project")"
  (cd "$build/$(dirname "$project")" &&
    MAKE="make" "$host_tools/qmake" -qtconf "$build/bin/qt.conf" "$work/source/$project" "$@")
}

# What Qt's own configure does, without the qmake that it builds first. The prefix that Qt knows is
# one of a Windows machine: nothing of this machine gets into it, and its CMake files find each
# other wherever they lie.
configure_qt() {
  mkdir -p "$build/bin" "$build/mkspecs"
  printf '%s\n' '[EffectivePaths]' 'Prefix=..' '[Paths]' 'TargetSpec=dummy' 'HostSpec=linux-g++' \
    '[EffectiveSourcePaths]' "Prefix=$work/source" >"$build/bin/qt.conf"
  # shellcheck disable=SC2046 # a list of words
  run_qmake qtbase.pro -- -opensource -confirm-license -release \
    -xplatform win32-g++ -device-option "CROSS_COMPILE=$machine-w64-mingw32-" \
    -external-hostbindir "$host_tools" -prefix /qt -extprefix "$prefix.new" \
    -hostprefix "$prefix.new" -nomake examples -nomake tests -no-gui -no-widgets -no-dbus -no-icu \
    -qt-zlib -qt-pcre -qt-doubleconversion $(left_out) \
    "QMAKE_CXXFLAGS+=-ffile-prefix-map=$work/source=qtbase"
}

# Its CMake files name programs that run on this machine; the system's own serve, also here.
add_host_programs() {
  mkdir -p "$prefix.new/bin"
  for program in qmake moc rcc; do
    ln -s "$host_tools/$program" "$prefix.new/bin/$program"
  done
}

make_qt() {
  add_host_programs
  for part in 3rdparty/pcre2 corelib winmain; do
    run_qmake "src/$part/$(basename "$part").pro" QMAKE_CFLAGS_OPTIMIZE_FULL=-O2
    make -C "$build/src/$part" -j "$(nproc)" release
  done
  make -C "$build/src/corelib" -j "$(nproc)" release-install
  make -C "$build/src/winmain" release-install
  make -C "$build" install_mkspecs
}

keep_licences() {
  mkdir -p "$prefix.new/licences"
  cp "$work"/source/LICENSE.* "$work/source/debian/copyright" "$prefix.new/licences/"
}

build_machine() {
  rm -rf "$prefix.new"
  configure_qt
  make_qt
  keep_licences
  # shellcheck disable=SC2016 # for pkg-config to expand
  sed -i 's|^prefix=.*|prefix=${pcfiledir}/../..|' "$prefix.new"/lib/pkgconfig/*.pc
  printf '%s\n' "$stamp" >"$prefix.new/stamp"
  rm -rf "$prefix" "$build"
  mv "$prefix.new" "$prefix"
}

# build_all MACHINE...: all of them out of one unpacked source.
build_all() {
  rm -rf "$work"
  mkdir -p "$work"
  fetch_source
  prepare_source
  for machine; do
    use_machine "$machine"
    build_machine
  done
  rm -rf "$work"
}

stamp=$(sha256sum <"$recipe" | cut -c1-64)-$(dpkg-query -W -f '${source:Version}' qtbase5-dev-tools)

case ${1-} in
  --packages) shift; packages "$@"; exit 0 ;;
  # A process of its own, so that set -e holds in every function.
  --build) shift; build_all "$@"; exit 0 ;;
  '') fail 'for which machines? i686, x86_64 or both' ;;
esac

packages "$@" >/dev/null  # knows the machines
missing=
for machine; do
  use_machine "$machine"
  [ "$(cat "$prefix/stamp" 2>/dev/null)" = "$stamp" ] || missing="$missing $machine"
done
if [ -n "$missing" ]; then
  mkdir -p "$cache"
  # shellcheck disable=SC2086 # a list of words
  if ! sh "$recipe" --build $missing >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    fail "Qt could not be built; all of its output is in $log"
  fi
fi
for machine; do
  use_machine "$machine"
  printf '%s\n' "$prefix"
done
