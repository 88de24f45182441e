#!/bin/sh
# One line for each stage, and builds that reuse what was compiled before. Read by ./dev.

# quietly TITLE COMMAND...: one line and the time it took; all that the command said if it fails.
quietly() {
  printf '%-52s' "$1"
  shift
  begun=$(date +%s)
  if "$@" >"$log" 2>&1 </dev/null; then
    printf '%5d s\n' "$(($(date +%s) - begun))"
    return 0
  fi
  printf ' failed\n'
  sed '/^\[[0-9]*\/[0-9]*\] /d' "$log" >&2  # without ninja's progress
  return 1
}

# As many jobs as processors, and 1.5 GB of memory for each.
jobs() {
  processors=$(nproc)
  by_memory=$(sed -n 's/^MemTotal: *\([0-9]*\) kB/\1/p' /proc/meminfo 2>/dev/null || true)
  by_memory=$((${by_memory:-1500000} / 1500000))
  [ "$by_memory" -ge 1 ] || by_memory=1
  [ "$by_memory" -ge "$processors" ] && printf '%s' "$processors" || printf '%s' "$by_memory"
}

# What was compiled before, in this checkout or in another one on this machine, is taken from a
# cache beside Qt for Windows. Precompiled headers want the sloppiness: their own sources count.
reuse_compiled() {
  export CCACHE_DIR="${CCACHE_DIR:-$cache/ccache}" CCACHE_BASEDIR="$top" CCACHE_NOHASHDIR=1 \
    CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_MAXSIZE="${CCACHE_MAXSIZE:-8G}"
}

configure() {
  reuse_compiled
  cmake --preset "$1" -S "$top" -D CMAKE_CXX_COMPILER_LAUNCHER="$(command -v ccache || true)"
}

# configure_and_build PRESET [OPTION OF THE BUILD...]
configure_and_build() {
  preset=$1
  shift
  configure "$preset" && cmake --build "$top/build/$preset" "$@"
}

# build TITLE PRESET [OPTION OF THE BUILD...]
build() {
  title=$1
  shift
  quietly "Building $title" configure_and_build "$@" || exit 1
}
