#!/bin/sh
# The interface that programs are compiled against. Read by ./dev.

# The file with the interface for this machine; there is none for others.
kept_interface() {
  printf '%s/abi/libKyr-linux-%s.abi' "$top" "$(uname -m)"
}

# held_interface [--renew]: of the library as ./dev test builds it.
held_interface() {
  configure_and_build dev --target Kyr &&
    python3 "$top/tools/abi.py" "$top/build/dev/lib/libKyr.so" "$(kept_interface)" "$@"
}

# verb_abi [--renew]: compares, or keeps what is there as what shall be.
verb_abi() {
  case ${1-} in
    '') title='The interface of compiled programs' ;;
    --renew) title="Keeping the interface in abi" ;;
    *)
      printf 'dev: abi takes nothing but --renew, so not "%s"\n' "$1" >&2
      exit 2
      ;;
  esac
  # shellcheck disable=SC2086
  need $test_packages
  quietly "$title" held_interface "$@"
}
