#!/bin/sh
# Debian's packages: what is missing and its installation. Read by ./dev.

build_packages='g++ ccache cmake ninja-build qtbase5-dev qttools5-dev-tools qttranslations5-l10n zlib1g-dev libdw-dev libisal-dev libdeflate-dev'
qt6_packages='qt6-base-dev qt6-l10n-tools qt6-translations-l10n'
test_packages="$build_packages abigail-tools gdb libgtest-dev glmark2-data libarchive-tools lldb-14 llvm-14 locales pkg-config python3 units"
bench_packages="$build_packages libarchive-dev libbenchmark-dev libboost-dev libboost-iostreams-dev libspdlog-dev libssl-dev libtbb-dev glmark2-data"
lint_packages='clang-14 clang-tidy-14 clang-format-14 shellcheck'
docs_packages='doxygen doxygen-awesome-css graphviz python3'

# missing PACKAGE...: those that are not installed, each with a space before it.
missing() {
  installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
    sed -n 's/^installed //p')
  for package; do
    printf '%s\n' "$installed" | grep -qxF -- "$package" || printf ' %s' "$package"
  done
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    env DEBIAN_FRONTEND=noninteractive "$@"
  else
    sudo ${CI:+-n} env DEBIAN_FRONTEND=noninteractive "$@"
  fi
}

apt_install() {
  as_root apt-get install -y -q --no-install-recommends -o DPkg::Lock::Timeout=300 \
    -o Acquire::Retries=2 "$@"
}

# The package lists are fetched only if the installation fails with those of the machine: one
# source that does not answer must then not stop the others.
install_or_refresh() {
  apt_install "$@" && return 0
  as_root apt-get update -q || true
  apt_install "$@"
}

# need PACKAGE...: installs what is missing. Every verb that builds calls it first.
need() {
  mkdir -p "$top/build"
  command -v apt-get >/dev/null ||
    fail "this is no Debian system. Install by hand what these packages of Debian 12 hold: $*"
  absent=$(missing "$@")
  [ -n "$absent" ] || return 0
  [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null ||
    fail "packages are missing, and there is neither root nor sudo to install them. Ask for:
  apt-get install$absent"
  printf 'Installing%s\n' "$absent"
  # shellcheck disable=SC2086 # a list of names
  if ! install_or_refresh $absent >"$log" 2>&1; then
    tail -n 15 "$log" >&2
    fail "the packages above could not be installed. Is there a network? Once it is mended:
  apt-get install$absent"
  fi
}

# windows_packages MACHINE...: what the verbs for Windows need of packages.
windows_packages() {
  printf 'googletest '
  "$top/tools/windows/build_qt.sh" --packages "$@"
  "$top/tools/windows/prepare_wine.sh" --packages "$@"
}

verb_packages() {
  # shellcheck disable=SC2046,SC2086
  need $test_packages $qt6_packages $bench_packages $lint_packages $docs_packages $fuzz_packages \
    $package_packages $try_packages $(windows_packages i686 x86_64)
}
