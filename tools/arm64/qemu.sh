#!/bin/sh
# Runs a program for 64-bit ARM with the libraries that tools/arm64/prepare_root.sh has unpacked.
#
#   tools/arm64/qemu.sh PROGRAM [ARGUMENT...]
set -eu
cache=${KYR_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kyr}
export QEMU_LD_PREFIX="${KYR_ARM64_ROOT:-$cache/arm64}"  # for programs that it starts, too
exec qemu-aarch64-static "$@"
