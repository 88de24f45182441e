#!/bin/sh
# What only the build for Windows needs. Read by ./dev.

in_wine() {
  "$top/tools/windows/wine.sh" "$@"
}

make_windows_package() {
  rm -rf "$top/build/windows/package" "$top/build/windows/symbols"
  cmake --install "$top/build/windows" --prefix "$top/build/windows/package"
  # Kept by who ships the package, not shipped.
  mv "$top/build/windows/package/lib/debug" "$top/build/windows/symbols"
  tar -C "$top/build/windows" -czf "$top/build/windows/symbols.tar.gz" symbols
}

# The package as it is on a machine that has nothing else: its own folder only.
try_windows_package() {
  package=$top/build/windows/package
  (cd "$package/bin" && in_wine ./kyr.exe --version && in_wine ./kyr.exe units length)
}

# What the Linux build tests has passed on Windows as well, or is excluded with a reason.
compare_tests() {
  (cd "$top" && ctest --preset dev --show-only=json-v1) >"$top/build/dev/tests.json"
  python3 "$top/tools/windows/compare_tests.py" \
    "$top/build/dev/tests.json" "$top/build/windows/tests.xml" "$top/tests/windows-exclusions.txt"
}

tour_in_wine() {
  mkdir -p "$top/build/windows/tour"
  in_wine "$top/build/windows/bin/tour.exe" --output "$top/build/windows/tour" \
    /usr/share/glmark2/models/bunny.obj
}

verb_windows() {
  # shellcheck disable=SC2046,SC2086
  need $test_packages $(windows_packages)
  german_locale
  # CI builds it meanwhile: a second one waits, and finds it finished.
  mkdir -p "$cache"
  quietly 'Qt for Windows' flock "$cache/qt.lock" "$top/tools/windows/build_qt.sh" || exit 1
  quietly 'Wine' "$top/tools/windows/prepare_wine.sh" || exit 1
  build 'for Linux, to compare' dev
  trap 'in_wine --stop' EXIT
  quietly 'A fresh 32-bit Windows' in_wine --fresh || exit 1
  build 'for Windows' windows
  worst=0
  run_tests windows windows --output-junit "$top/build/windows/tests.xml" "$@" || worst=1
  if [ $# -eq 0 ]; then
    quietly 'All tests of Linux, but for the excluded ones' compare_tests || worst=1
    tail -n 1 "$log"
  fi
  quietly 'The tour in Wine' tour_in_wine || worst=1
  quietly 'Packing build/windows/package' make_windows_package || worst=1
  quietly 'The tool kyr out of the package' try_windows_package || worst=1
  return "$worst"
}
