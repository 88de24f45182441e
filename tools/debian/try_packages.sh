#!/bin/sh
# Installs packages into a fresh Debian 12, builds a program against them and runs it, and removes them
# without a trace. Needs root, and the machine's source of Debian's packages.
#
#   try_packages.sh FOLDER_WITH_PACKAGES PROGRAM
#
# PROGRAM is run in the fresh system while they are installed; it fails if something does not work.
set -eu
suite=bookworm

# Nothing that is mounted here is seen elsewhere, or outlives this script.
if [ -z "${KYR_TRY_APART-}" ]; then
  KYR_TRY_APART=1 exec unshare --mount --propagation private -- "$0" "$@"
fi
packages=$(CDPATH='' cd -- "$1" && pwd -P)
program=$2
root=$(mktemp -d "${TMPDIR:-/var/tmp}/kyr-debian-XXXXXX")

# Called again it finds nothing left to do.
clean_up() {
  ! mountpoint -q "$root/proc" || umount "$root/proc"
  rm -rf --one-file-system "$root"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# sources OF_SUITE: where the machine has Debian's packages from: "SITE SUITE COMPONENT" in each line.
sources() {
  # shellcheck disable=SC2016 # names for apt
  apt-get indextargets --no-release-info --format '$(SITE) $(RELEASE) $(COMPONENT)' \
    'Created-By: Packages' | sort -u | grep -E "^[^ ]+ $1 main\$"
}

inside() {
  env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
    chroot "$root" "$@"
}

install_inside() {
  inside apt-get install -y -q --no-install-recommends "$@"
}

# apt is told what the machine's is told about proxies, dates and the like.
make_root() {
  site=$(sources "$suite" | sed -n '1s/ .*//p')
  if [ -z "$site" ]; then
    echo "this machine has no source of Debian's packages for $suite" >&2
    return 1
  fi
  proxy=$(apt-config shell value Acquire::http::Proxy)
  http_proxy=$(eval "$proxy"; printf %s "${value-${http_proxy-}}") \
    debootstrap --variant=minbase "$suite" "$root" "$site"
  sources "$suite(-updates|-security)?" | sed 's/^/deb /' >"$root/etc/apt/sources.list"
  apt-config dump --no-empty Acquire >"$root/etc/apt/apt.conf.d/00machine"
  echo force-unsafe-io >"$root/etc/dpkg/dpkg.cfg.d/soon-removed"
  cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
  mount -t proc proc "$root/proc"
}

# What the packages ask for beside each other.
needs_of_packages() {
  for package in "$root"/packages/*.deb; do
    dpkg-deb --field "$package" Pre-Depends Depends
  done | sed -n 's/^[A-Za-z-]*: //p' | tr ',' '\n' | sed -e 's/^ *//' -e '/^libkyr/d' -e '/^$/d' |
    sort -u | paste -s -d ,
}

# What lies in the system, without what apt and dpkg note for themselves: kinds, rights, owners, names and
# targets of links; then sums.
list_root() {
  (
    cd "$root"
    set -- . -xdev \( -path ./proc -o -path ./packages -o -path ./tmp -o -path ./var/cache \
      -o -path ./var/log -o -path ./var/lib/apt -o -path './var/lib/dpkg/*status*' \) -prune -o
    find "$@" -printf '%M %U %G %p %l\n' | LC_ALL=C sort
    find "$@" -type f -print0 | LC_ALL=C sort -z | xargs -0 sha256sum
  )
}

installed() {
  # shellcheck disable=SC2016 # a name for dpkg
  inside dpkg-query -W -f '${Package}\n' | LC_ALL=C sort
}

make_root
mkdir "$root/packages"
find "$packages" -maxdepth 1 -name '*.deb' ! -name '*-dbgsym_*' -exec cp -t "$root/packages" {} +
inside apt-get update -q
install_inside cmake g++ make pkg-config
inside apt-get satisfy -y -q --no-install-recommends "$(needs_of_packages)"

list_root >"$root/packages/before"
installed >"$root/packages/names.before"
# shellcheck disable=SC2046 # a list of names
install_inside $(cd "$root" && printf '/%s ' packages/*.deb)
list_root >"$root/packages/with"
installed | comm -13 "$root/packages/names.before" - >"$root/packages/names"
cp "$program" "$root/packages/program"
inside /packages/program
list_root >"$root/packages/used"
# shellcheck disable=SC2046 # a list of names
inside apt-get purge -y -q $(cat "$root/packages/names")
list_root >"$root/packages/after"

printf 'installed: %s, %d new files and folders\n' "$(paste -s -d ' ' "$root/packages/names")" \
  "$(comm -13 "$root/packages/before" "$root/packages/with" | wc -l)"
diff "$root/packages/with" "$root/packages/used" || { echo 'its use left traces' >&2; exit 1; }
diff "$root/packages/before" "$root/packages/after" || { echo 'removed with traces' >&2; exit 1; }
echo 'used and removed without a trace'
