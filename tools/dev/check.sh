#!/bin/sh
# What holds for the sources before they run. Read by ./dev.

# format_sources OPTION...
format_sources() {
  list=$top/build/sources
  find "$top/src" "$top/tests" "$top/bench" "$top/fuzz" "$top/examples" "$top/tools" \
    \( -name '*.h' -o -name '*.cpp' \) -type f -print0 >"$list" || return 1
  if [ ! -s "$list" ]; then
    echo 'no sources are found' >&2
    return 1
  fi
  xargs -0 clang-format-14 "$@" <"$list"
}

# dev with the parts that it reads, and all scripts that stand alone.
scripts_linted() {
  (cd "$top" && shellcheck -x dev) &&
    find "$top/.ci/run" "$top/debian/tests" "$top/tools" -name dev -prune -o \
      \( -name run -o -name first-program -o -name '*.sh' \) -type f -print0 | xargs -0 shellcheck
}

# What is installed, as ./dev test builds it.
hardened() {
  configure_and_build dev --target Kyr kyr_tool kyr_backtrace &&
    python3 "$top/tools/check_hardening.py" "$top/build/dev/lib/libKyr.so" \
      "$top/build/dev/bin/kyr" "$top/build/dev/lib/kyr/kyr-backtrace"
}

verb_check() {
  # shellcheck disable=SC2086
  need $test_packages $bench_packages $lint_packages $docs_packages
  worst=0
  quietly 'Scripts' scripts_linted || worst=1
  quietly 'Formatting (./dev format mends it)' format_sources --dry-run -Werror || worst=1
  quietly 'Rooms' python3 "$top/tools/check_rooms.py" || worst=1
  quietly 'Platform rules' python3 "$top/tools/check_platform.py" || worst=1
  quietly 'Translations' python3 "$top/tools/check_messages.py" || worst=1
  quietly 'Reference' python3 -B "$top/tools/reference/reference.py" --check || worst=1
  quietly 'Hardening of what is installed' hardened || worst=1
  # There is one file, for the machines that most use.
  [ "$(uname -m)" != x86_64 ] ||
    quietly 'The interface of compiled programs' held_interface || worst=1
  quietly 'Configuring for clang' configure clang || exit 1
  quietly 'Every public header alone, by clang' \
    cmake --build "$top/build/clang" --target all_verify_interface_header_sets || worst=1
  quietly 'Lint, with the locks that clang proves' \
    python3 "$top/tools/lint.py" "$top/build/clang" "$cache/lint" || worst=1
  return "$worst"
}

verb_format() {
  need clang-format-14
  format_sources -i
}
