#!/bin/sh
# The programs to look at. Read by ./dev.

# names_a_mesh ARGUMENT...
names_a_mesh() {
  for argument; do
    case $argument in *.obj | *.OBJ) return 0 ;; esac
    [ ! -f "$argument" ] || return 0
  done
  return 1
}

verb_demo() {
  # shellcheck disable=SC2086 # lists of names
  need $build_packages glmark2-data
  build 'the library and the tour' demo --target tour
  # Without any language set, units such as µm could not be shown.
  [ -n "${LC_ALL-}${LC_CTYPE-}${LANG-}" ] || export LC_ALL=C.UTF-8
  names_a_mesh "$@" || set -- /usr/share/glmark2/models/bunny.obj "$@"
  archive=$top/build/demo/tour.tar.gz
  rm -f "$archive"
  trap : INT  # the tour's own affair
  "$top/build/demo/bin/tour" --output "$top/build/demo" --archive "$archive" "$@" || exit
  if [ -f "$archive" ]; then
    printf '\n$ tar tzvf %s\n' "${archive#"$PWD/"}"
    tar tzvf "$archive"
  fi
}

verb_viewer() {
  # shellcheck disable=SC2086
  need $build_packages fonts-vlgothic glmark2-data
  build 'the library and the viewer' demo --target viewer
  [ $# -gt 0 ] || set -- /usr/share/glmark2/models/bunny.obj
  exec "$top/build/demo/bin/viewer" "$@"
}

verb_bench() {
  # shellcheck disable=SC2086
  need $bench_packages
  build 'the benchmarks' bench --target kyr_bench
  exec "$top/build/bench/bin/kyr_bench" "$@"
}
