#!/bin/sh
# Runs tests and counts them. Read by ./dev.

# The tests want a locale with a decimal comma; the system's own settings stay as they are.
german_locale() {
  locales=$top/build/locales
  if [ ! -d "$locales/de_DE.UTF-8" ]; then
    rm -rf "$locales.new"
    mkdir -p "$locales.new"
    quietly 'Making a German locale' \
      localedef -i de_DE -f UTF-8 "$locales.new/de_DE.UTF-8" || exit 1
    rm -rf "$locales"
    mv "$locales.new" "$locales"
  fi
  export LOCPATH="$locales" KYR_REQUIRE_LOCALE=1
}

# count_tests FILE: how many passed, failed and were skipped, from the end of ctest's output.
count_tests() {
  sed -n '/ tests failed out of /,$p' "$1" >"$1.end"
  failed=$(sed -n 's/.* \([0-9]*\) tests failed out of .*/\1/p' "$1.end")
  skipped=$(grep -c '^[[:space:]]*[0-9]* - .* (Skipped)$' "$1.end") || true
  all=$(sed -n 's/.* tests failed out of \([0-9]*\)$/\1/p' "$1.end")
  printf '%d %d %d\n' "$((all - failed - skipped))" "$failed" "$skipped"
}

# run_tests TITLE PRESET [CTEST OPTION...]: the tests of a build, then a line with their numbers.
run_tests() {
  title=$1
  preset=$2
  shift 2
  results=$top/build/$preset/tests
  rm -f "$results.log" "$results.failed" "$results.count"
  {
    (cd "$top" && ctest --preset "$preset" --output-log "$results.log" "$@") 2>&1 </dev/null ||
      : >"$results.failed"
  } | sed -u -e '/^ *Start *[0-9]*:/d' -e '/ Passed  *[0-9.]* sec$/d'
  grep -q ' tests failed out of ' "$results.log" || return 1
  count_tests "$results.log" >"$results.count"
  read -r passed failed skipped <"$results.count"
  printf '%s: %d passed, %d failed, %d skipped\n' "$title" "$passed" "$failed" "$skipped"
  [ ! -e "$results.failed" ]
}

# ThreadSanitizer cannot lay out its shadow memory where the kernel scatters addresses widely.
# The build runs the tests as well, to list them: so all of the verb starts anew.
with_plain_addresses() {
  bits=$(cat /proc/sys/vm/mmap_rnd_bits 2>/dev/null || echo 0)
  if [ "$bits" -gt 28 ] && [ -z "${KYR_PLAIN_ADDRESSES-}" ] && setarch -R true 2>/dev/null; then
    KYR_PLAIN_ADDRESSES=1 exec setarch -R "$top/dev" "$@"
  fi
}

# Locks that are taken in a circle end the test in which that is seen; the other builds run the
# same tests without.
verb_test() {
  # shellcheck disable=SC2086
  need $test_packages
  german_locale
  export KYR_LOCK_DOCTOR="${KYR_LOCK_DOCTOR-strict}"
  build 'the library and its tests' dev
  run_tests tests dev "$@"
}

# What may differ with another Qt. The compiler's cache has nothing of it at first.
verb_qt6() {
  # shellcheck disable=SC2086
  need $test_packages $qt6_packages
  german_locale
  build 'with Qt 6' qt6
  run_tests 'Qt 6' qt6 "$@"
}

# repeat_tests [N] [CTEST OPTION...]: what happens only now and then, and what only without time.
repeat_tests() {
  times=200
  case ${1-} in '' | *[!0-9]*) ;; *) times=$1; shift ;; esac
  worst=0
  build 'with ThreadSanitizer' tsan
  if [ $# -gt 0 ]; then
    run_tests "threads, each $times times" tsan --repeat "until-fail:$times" "$@"
    return
  fi
  run_tests "threads, each $times times" tsan --repeat "until-fail:$times" \
    -R '^(sync|jobs|log|trace|terminal)\.|^pack\.ZipPieces' || worst=$?
  build 'the library and its tests' dev
  run_tests "ends of processes, each $(((times + 3) / 4)) times, under load" dev \
    --repeat "until-fail:$(((times + 3) / 4))" -j $((CTEST_PARALLEL_LEVEL * 4)) \
    -R '^(crash|app)\.' || worst=$?
  return "$worst"
}

verb_sanitize() {
  # shellcheck disable=SC2086
  need $test_packages
  with_plain_addresses sanitize "$@"
  german_locale
  if [ "${1-}" = --repeat ]; then
    shift
    repeat_tests "$@"
    return
  fi
  worst=0
  build 'with AddressSanitizer' asan
  run_tests address-and-undefined asan "$@" || worst=$?
  build 'with ThreadSanitizer' tsan
  run_tests threads tsan "$@" || worst=$?
  return "$worst"
}
