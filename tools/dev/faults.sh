#!/bin/sh
# What becomes of programs whose calls fail, that are killed, or that have very much to do. Read by ./dev.

# verb_faults [kills | limits | NAME...] [OPTION...]: without arguments what CI wants of it.
verb_faults() {
  # shellcheck disable=SC2086
  need $test_packages
  build 'the library and its sessions' dev \
    --target kyr_tool faults_session faults_limits kyr_fault_shim
  case ${1-} in
    kills | limits) in_faults "$@"; return ;;
    ?*) in_faults faults "$@"; return ;;
  esac
  worst=0
  counted faults || worst=1
  counted kills || worst=1
  return "$worst"
}

# counted PART: sessions and kinds of kills count as tests do.
counted() {
  mkdir -p "$top/build/$1"
  count=$top/build/$1/tests.count
  rm -f "$count"
  in_faults "$1" --count "$count" && [ -e "$count" ] || return 1
  read -r passed failed _ <"$count"
  printf '%s: %d passed, %d failed\n' "$1" "$passed" "$failed"
}

# in_faults PART [OPTION...]
in_faults() {
  part=$1
  shift
  python3 -B "$top/tests/faults/$part.py" --build "$top/build/dev" "$@"
}
