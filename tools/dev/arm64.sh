#!/bin/sh
# What only the build for 64-bit ARM needs. Read by ./dev.

# verb_arm64 [CTEST OPTION...]: builds for it and runs the tests in an emulator.
verb_arm64() {
  # shellcheck disable=SC2046,SC2086
  need $test_packages $("$top/tools/arm64/prepare_root.sh" --packages)
  german_locale
  mkdir -p "$cache"
  quietly 'Packages of arm64' "$top/tools/arm64/prepare_root.sh" || exit 1
  # Programs that start others need it; the package binfmt-support sets it up where it may.
  [ -e /proc/sys/fs/binfmt_misc/qemu-aarch64 ] ||
    fail 'the system does not start programs of arm64 (/proc/sys/fs/binfmt_misc/qemu-aarch64 is
  missing). Install binfmt-support and qemu-user-static where programs may register themselves.'
  build 'for 64-bit ARM' arm64
  QEMU_LD_PREFIX=$("$top/tools/arm64/prepare_root.sh")
  export QEMU_LD_PREFIX
  run_tests arm64 arm64 "$@"
}
