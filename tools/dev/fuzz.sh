#!/bin/sh
# Inputs that nobody thought of. Read by ./dev.

fuzz_packages="$build_packages clang-14 libclang-rt-14-dev"

# Their names, one in each line.
harnesses() {
  sed -n 's/^kyr_harness(\([a-z0-9]*\).*/\1/p' "$top/fuzz/CMakeLists.txt"
}

# fuzz_one NAME SECONDS: a line with what it came to; what was found lies in build/fuzz/found/NAME.
fuzz_one() {
  inputs=$top/build/fuzz/inputs/$1  # what has reached something new is kept for the next run
  found=$top/build/fuzz/found/$1
  mkdir -p "$inputs" "$found"
  set -- "$1" -max_total_time="$2" -max_len=4096 -timeout=20 -rss_limit_mb=2000 \
    -print_final_stats=1 -artifact_prefix="$found/" "$inputs" "$top/fuzz/corpus/$1"
  [ ! -e "$top/fuzz/dict/$1.dict" ] || set -- "$@" -dict="$top/fuzz/dict/$1.dict"
  harness=$1
  shift
  ended=0
  ASAN_OPTIONS=quarantine_size_mb=4:thread_local_quarantine_size_kb=64 \
    UBSAN_OPTIONS=print_stacktrace=1 TMPDIR="$fuzz_folder" \
    "$top/build/fuzz/bin/fuzz_$harness" "$@" >"$found.log" 2>&1 </dev/null || ended=$?
  edges=$(sed -n 's/.* cov: \([0-9]*\) .*/\1/p' "$found.log" | tail -n 1)
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$found.log")
  speed=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$found.log")
  printf '%-12s %9s runs %7s runs/s %6s edges' "$harness" "${runs:-?}" "${speed:-?}" "${edges:-?}"
  [ "$ended" -ne 0 ] || { printf '\n'; return 0; }
  printf '  FOUND in %s\n' "${found#"$PWD/"}"
  grep -m 1 -E '^Broken: |runtime error: |ERROR: ' "$found.log" || tail -n 3 "$found.log"
  return 1
}

# fuzz_words WORD...: sets names and seconds by the words of the verb.
fuzz_words() {
  names=$(harnesses)
  seconds=60
  while [ $# -gt 0 ]; do
    case $1 in
      --seconds) [ $# -gt 1 ] || fail '--seconds wants a number'; seconds=$2; shift ;;
      *)
        printf '%s\n' "$(harnesses)" | grep -qxF -- "$1" ||
          fail "there is no harness \"$1\"; there are:" $(harnesses)
        names=$1 ;;
    esac
    shift
  done
  case $seconds in '' | *[!0-9]* | 0*) fail "\"$seconds\" is no number of seconds" ;; esac
}

verb_fuzz() {
  fuzz_words "$@"
  # shellcheck disable=SC2086
  need $fuzz_packages
  build 'the harnesses' fuzz
  memory=/dev/shm
  [ -w "$memory" ] || memory=${TMPDIR:-/tmp}
  fuzz_folder=$(mktemp -d "$memory/kyr-fuzz-XXXXXX")
  trap 'rm -rf "$fuzz_folder"' EXIT
  trap 'exit 130' INT TERM
  worst=0
  for name in $names; do
    fuzz_one "$name" "$seconds" || worst=1
  done
  return "$worst"
}
