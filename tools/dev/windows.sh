#!/bin/sh
# What only the builds for Windows need. Read by ./dev.

# use_windows BITS: which Windows is meant from here on, by the names that others give it.
use_windows() {
  bits=$1
  case $bits in
    32) preset=windows wine_option= ;;
    64) preset=windows64 wine_option=--64 ;;
  esac
  windows=$top/build/$preset
}

# machines_of BITS...: the names of compilers.
machines_of() {
  for bits; do
    case $bits in
      32) printf 'i686 ' ;;
      64) printf 'x86_64 ' ;;
    esac
  done
}

in_wine() {
  # shellcheck disable=SC2086 # one word or none
  "$top/tools/windows/wine.sh" $wine_option "$@"
}

stop_wine() {
  for bits in 32 64; do
    use_windows "$bits"
    in_wine --stop 2>/dev/null || true
  done
}

make_windows_package() {
  rm -rf "$windows/package" "$windows/symbols"
  cmake --install "$windows" --prefix "$windows/package"
  # Kept by who ships the package, not shipped.
  mv "$windows/package/lib/debug" "$windows/symbols"
  tar -C "$windows" -czf "$windows/symbols.tar.gz" symbols
  python3 "$top/tools/file_list.py" --name "libkyr-$(basename "$windows")" \
    --output "$windows/package.spdx.json" "$windows/package"
}

# The package as it is on a machine that has nothing else: its own folder only.
try_windows_package() {
  (cd "$windows/package/bin" && in_wine ./kyr.exe --version && in_wine ./kyr.exe units length)
}

# What the Linux build tests has passed on Windows as well, or is excluded with a reason.
compare_tests() {
  (cd "$top" && ctest --preset dev --show-only=json-v1) >"$top/build/dev/tests.json"
  python3 "$top/tools/windows/compare_tests.py" \
    "$top/build/dev/tests.json" "$windows/tests.xml" "$top/tests/windows-exclusions.txt"
}

tour_in_wine() {
  mkdir -p "$windows/tour"
  in_wine "$windows/bin/tour.exe" --output "$windows/tour" /usr/share/glmark2/models/bunny.obj
}

# test_windows BITS [CTEST OPTION...]: builds for one kind of Windows, and runs it all.
test_windows() {
  use_windows "$1"
  shift
  quietly "A fresh $bits-bit Windows" in_wine --fresh || exit 1
  build "for $bits-bit Windows" "$preset"
  worst=0
  run_tests "$bits-bit Windows" "$preset" --output-junit "$windows/tests.xml" "$@" || worst=1
  if [ $# -eq 0 ]; then
    quietly 'All tests of Linux, but for the excluded ones' compare_tests || worst=1
    tail -n 1 "$log"
  fi
  quietly 'The tour in Wine' tour_in_wine || worst=1
  quietly "Packing build/$preset/package" make_windows_package || worst=1
  quietly 'The tool kyr out of the package' try_windows_package || worst=1
  in_wine --stop
  return "$worst"
}

verb_windows() {
  kinds='32 64'
  case ${1-} in
    --32 | --64) kinds=${1#--}; shift ;;
  esac
  # shellcheck disable=SC2046,SC2086 # lists of words
  {
    machines=$(machines_of $kinds)
    need $test_packages $(windows_packages $machines)
    german_locale
    # CI builds it meanwhile: a second one waits, and finds it finished.
    mkdir -p "$cache"
    quietly 'Qt for Windows' flock "$cache/qt.lock" "$top/tools/windows/build_qt.sh" $machines ||
      exit 1
    quietly 'Wine' "$top/tools/windows/prepare_wine.sh" $machines || exit 1
  }
  build 'for Linux, to compare' dev
  trap stop_wine EXIT
  green=0
  for kind in $kinds; do
    test_windows "$kind" "$@" || green=1
  done
  return "$green"
}
