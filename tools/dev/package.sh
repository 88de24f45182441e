#!/bin/sh
# Debian's packages, and whether they work, are clean and come out the same twice. Read by ./dev.

package_packages="$build_packages binutils build-essential debhelper git lintian python3 xz-utils"
try_packages='debootstrap'

# changelog_says FIELD: as Version or Timestamp, of the newest entry.
changelog_says() {
  dpkg-parsechangelog -l "$top/debian/changelog" -S "$1"
}

# The names of the sources, each with a zero at its end, in one order everywhere.
list_sources() {
  {
    git -C "$top" ls-files -z 2>/dev/null ||
      (cd "$top" && find . \( -name .git -o -path ./build \) -prune -o -type f -printf '%P\0')
  } | LC_ALL=C sort -z
}

# archive_sources FILE: those of the library itself, with neither today's date nor who packs them.
archive_sources() {
  list_sources | grep -zv '^debian/' >"$1.list"
  tar -C "$top" --null --files-from "$1.list" --transform "flags=r;s,^,$source/," \
    --mtime "@$SOURCE_DATE_EPOCH" --owner 0 --group 0 --numeric-owner --mode u=rwX,go=rX \
    -cJf "$1"
  rm "$1.list"
}

# build_packages FOLDER: all packages and their sources, in a folder that is emptied first. Everything is
# compiled: debug information out of a compiler cache is not the same as that of the compiler alone.
build_packages() {
  rm -rf "$1"
  mkdir -p "$1"
  archive_sources "$1/libkyr_$upstream.orig.tar.xz"
  tar -C "$1" -xf "$1/libkyr_$upstream.orig.tar.xz"
  cp -R "$top/debian" "$1/$source"
  (cd "$1/$source" && DEB_BUILD_OPTIONS="nocheck parallel=$CMAKE_BUILD_PARALLEL_LEVEL" \
    dpkg-buildpackage -us -uc --build=full)
}

# Somewhere else, later, by someone with other habits.
build_again() {
  umask 077
  TZ=Pacific/Apia LC_ALL=C build_packages "$again"
}

clean_by_lintian() {
  lintian --fail-on error,warning "$packages"/*.changes
}

# Files with sums and licences, for those who account for what is shipped.
list_packages() {
  python3 "$top/tools/file_list.py" --name libkyr --output "$packages/libkyr_$version.spdx.json" \
    "$packages"/*.deb
}

try_packages() {
  as_root "$top/tools/debian/try_packages.sh" "$packages" "$top/debian/tests/first-program"
}

same_packages() {
  python3 "$top/tools/compare_builds.py" "$packages" "$again" '*.deb' '*.dsc' '*.tar.xz'
}

write_symbols() {
  python3 "$top/tools/debian/symbols.py" "$top/build/dev/lib/libKyr.so" "$upstream" \
    "$top/debian/libkyr6.symbols"
}

# Settles what the functions above ask for.
settle_package() {
  version=$(changelog_says Version)
  upstream=${version%-*}
  source=libkyr-$upstream
  packages=$top/build/package
  again=$top/build/package-again/somewhere/else
  SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(changelog_says Timestamp)}
  export SOURCE_DATE_EPOCH
  grep -q "^project(Kyr VERSION $upstream " "$top/CMakeLists.txt" &&
    grep -q "^set(KYR_PACKAGE_RELEASE ${version##*-})" "$top/CMakeLists.txt" ||
    fail "debian/changelog is about $version, and CMakeLists.txt about another version"
  case $top in
    *[[:space:]]*) fail "Debian's tools cannot build below a folder with a blank: $top" ;;
  esac
}

# verb_package [--symbols | --try | --twice]...
verb_package() {
  for word; do
    case $word in
      --symbols | --try | --twice) ;;
      *) printf 'dev: package takes --symbols, --try and --twice, but not "%s"\n' "$word" >&2; exit 2 ;;
    esac
  done
  # shellcheck disable=SC2086
  need $package_packages $try_packages
  settle_package
  case " $* " in *' --symbols '*)
    build 'the library' dev --target Kyr
    quietly "What it exports, for debian/libkyr6.symbols" write_symbols || exit 1
    cat "$log"
  esac
  quietly "Building Debian's packages" build_packages "$packages" || exit 1
  worst=0
  quietly 'What lintian says of them' clean_by_lintian || worst=1
  quietly 'Listing their files with sums and licences' list_packages || worst=1
  case " $* " in *' --twice '*)
    quietly 'Building them again, elsewhere' build_again || exit 1
    quietly 'Both are the same, byte by byte' same_packages || worst=1
  esac
  case " $* " in *' --try '*)
    quietly 'Trying them in a fresh Debian 12' try_packages || worst=1
    tail -n 2 "$log"
  esac
  ls -l "$packages"/*.deb
  return "$worst"
}
