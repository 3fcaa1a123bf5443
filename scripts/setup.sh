#!/usr/bin/env bash
# Installs every build and test dependency of KVT1 from Debian's packages.
# Idempotent: packages already present are not fetched again, and jsoncpp for
# the MinGW toolchains (and Google Benchmark for x86_64 Windows) is built once
# from Debian's source package into $KVT1_DEPS_DIR (default /opt/kvt1-deps).
set -euo pipefail

# --native: only what the Linux build needs (no MinGW, Wine or cross-built jsoncpp).
native_only=0
[ "${1:-}" = "--native" ] && native_only=1

deps_dir=${KVT1_DEPS_DIR:-/opt/kvt1-deps}
sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)

log() { printf 'setup: %s\n' "$*"; }

apt_updated=0
apt_update() {
  if [ "$apt_updated" -eq 0 ]; then
    # A mirror in mid-sync can fail one index; what did download is still usable.
    "${sudo_cmd[@]}" apt-get update -qq || "${sudo_cmd[@]}" apt-get update -qq ||
      log "apt-get update reported errors; going on with the lists it has"
    apt_updated=1
  fi
}

missing_packages() {
  local p
  for p in "$@"; do
    dpkg-query -W -f='${Status}\n' "$p" 2>/dev/null | grep -q '^install ok installed$' || printf '%s\n' "$p"
  done
}

apt_install() {
  local missing
  missing=$(missing_packages "$@")
  [ -z "$missing" ] && return 0
  apt_update
  log "installing:" $missing
  # shellcheck disable=SC2086
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends $missing
}

native_packages=(
  build-essential cmake ninja-build ccache pkg-config git ca-certificates
  zlib1g-dev libjsoncpp-dev libcurl4-openssl-dev
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  fp-utils
  libpugixml-dev libtinyxml2-dev libxml2-dev libxml2-utils clang libclang-rt-14-dev clang-format clang-tidy
  libcairo2-dev libpango1.0-dev fonts-dejavu-core
)
mingw_packages=(
  g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix binutils-mingw-w64-x86-64
  binutils-mingw-w64-i686 mingw-w64-tools libz-mingw-w64-dev
  dpkg-dev wine wine64 fonts-wine
  msitools wixl osslsigncode
)

if [ "$native_only" -eq 1 ]; then
  apt_install "${native_packages[@]}"
else
  apt_install "${native_packages[@]}" "${mingw_packages[@]}"
fi

# What the setup builds from sources goes into $deps_dir/<target>, once per
# version: a stamp file there marks it installed.
installed() { [ -f "$deps_dir/$3/.$1-$2" ]; }

# cmake_install NAME VERSION SOURCE BUILD TARGET [cmake options...]: a
# Release build of SOURCE in BUILD, installed into $deps_dir/TARGET and stamped.
cmake_install() {
  local name=$1 version=$2 source=$3 build=$4 prefix="$deps_dir/$5"
  shift 5
  log "building $name $version for ${prefix##*/}"
  cmake -S "$source" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" \
    -DBUILD_SHARED_LIBS=OFF "$@" >/dev/null
  cmake --build "$build" --parallel 2 >/dev/null
  "${sudo_cmd[@]}" cmake --install "$build" >/dev/null
  "${sudo_cmd[@]}" touch "$prefix/.$name-$version"
}

mingw_options() {
  local triplet=$1
  printf '%s\n' -DCMAKE_SYSTEM_NAME=Windows "-DCMAKE_C_COMPILER=$triplet-gcc-posix" \
    "-DCMAKE_CXX_COMPILER=$triplet-g++-posix" "-DCMAKE_RC_COMPILER=$triplet-windres"
}

# litehtml, one version on every build, from Debian's own source archive: the
# archive's pool is found through the machine's apt sources; a byte-identical
# copy beside the repository (../shared/deps) serves a mirror that lacks it.
litehtml_version=0.9
litehtml_archive=litehtml_${litehtml_version}.orig.tar.gz
litehtml_sha256=c7d2bff0a300961aec2dbc347a1f8211737addc20fcba95f1058bb8893867642
litehtml_source=""

apt_archive_uris() {
  grep -hsE '^(URIs:|deb )' /etc/apt/sources.list.d/*.sources /etc/apt/sources.list.d/*.list /etc/apt/sources.list |
    sed -E 's/^URIs:[[:space:]]*//; s/^deb[[:space:]]+(\[[^]]*\][[:space:]]+)?//; s/[[:space:]].*//' |
    grep -v -- '-security' | sort -u
}

fetch_litehtml_archive() {
  local work=$1 uri
  for uri in $(apt_archive_uris); do
    if curl -fsSL --max-time 120 -o "$work/$litehtml_archive" "${uri%/}/pool/main/l/litehtml/$litehtml_archive" &&
      echo "$litehtml_sha256  $work/$litehtml_archive" | sha256sum -c --quiet - 2>/dev/null; then
      return 0
    fi
  done
  local copy
  copy="$(cd "$(dirname "$0")/.." && pwd)/../shared/deps/$litehtml_archive"
  if [ -f "$copy" ] && echo "$litehtml_sha256  $copy" | sha256sum -c --quiet - 2>/dev/null; then
    log "litehtml archive taken from ../shared/deps"
    cp "$copy" "$work/$litehtml_archive"
    return 0
  fi
  log "litehtml $litehtml_version: no archive with the expected checksum"
  return 1
}

litehtml_unpacked() {
  [ -n "$litehtml_source" ] && return 0
  litehtml_work=$(mktemp -d)
  fetch_litehtml_archive "$litehtml_work" || exit 1
  tar -xzf "$litehtml_work/$litehtml_archive" -C "$litehtml_work"
  litehtml_source=$(find "$litehtml_work" -mindepth 1 -maxdepth 1 -type d | head -n 1)
}

# build_litehtml TARGET [cmake options...]: a static library with gumbo into $deps_dir/TARGET.
build_litehtml() {
  local target=$1
  shift
  installed litehtml "$litehtml_version-$litehtml_sha256" "$target" && return 0
  litehtml_unpacked
  cmake_install litehtml "$litehtml_version-$litehtml_sha256" "$litehtml_source" "$litehtml_work/build-$target" \
    "$target" -DCMAKE_POSITION_INDEPENDENT_CODE=ON -DLITEHTML_BUILD_TESTING=OFF "$@"
}

build_litehtml linux
if [ "$native_only" -eq 0 ]; then
  mapfile -t options < <(mingw_options x86_64-w64-mingw32)
  build_litehtml x86_64-w64-mingw32 "${options[@]}"
  mapfile -t options < <(mingw_options i686-w64-mingw32)
  build_litehtml i686-w64-mingw32 "${options[@]}"
fi
[ -n "${litehtml_work:-}" ] && rm -rf "$litehtml_work"
# An older litehtml from Debian's packages would shadow ours.
if [ -z "$(missing_packages liblitehtml-dev)" ]; then
  log "removing liblitehtml-dev (the build uses litehtml $litehtml_version from $deps_dir)"
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get remove -y -qq liblitehtml-dev liblitehtml0 >/dev/null
fi

if [ "$native_only" -eq 1 ]; then
  log "done (Linux build dependencies)"
  exit 0
fi

# 32-bit Wine runs the i686 tests, but only on a kernel that runs 32-bit
# programs (scripts/runs-32bit.sh runs one to find out). Elsewhere it is never
# kept: installed there, Wine starts every program through its 32-bit loader
# and the x86_64 runs fail too; the i686 build is then compiled, not run.
if bash "$(dirname "$0")/runs-32bit.sh"; then
  if [ -n "$(missing_packages wine32:i386)" ]; then
    if ! dpkg --print-foreign-architectures | grep -qx i386; then
      log "adding the i386 architecture (for wine32)"
      "${sudo_cmd[@]}" dpkg --add-architecture i386
      apt_updated=0
    fi
    apt_install wine32:i386
  fi
elif [ -z "$(missing_packages wine32:i386)" ]; then
  log "removing wine32:i386 (this kernel runs no 32-bit programs, and x86_64 programs cannot run beside it)"
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get remove -y -qq wine32:i386
fi

# debian_source PACKAGE WORK: Debian's source package of PACKAGE unpacked
# into WORK, its folder in $source_dir.
debian_source() {
  local package=$1 work=$2
  if ! grep -rqs '^Types:.*deb-src' /etc/apt/sources.list.d/ /etc/apt/sources.list; then
    log "enabling deb-src entries"
    "${sudo_cmd[@]}" sed -i 's/^Types: deb$/Types: deb deb-src/' /etc/apt/sources.list.d/debian.sources
    apt_updated=0
  fi
  apt_update
  # Run as root, apt would download as _apt, which cannot write into WORK.
  (cd "$work" && apt-get source -qq -o APT::Sandbox::User=root "$package" >/dev/null)
  source_dir=$(find "$work" -mindepth 1 -maxdepth 1 -type d | head -n 1)
  [ -n "$source_dir" ] || { log "$package source package not unpacked"; exit 1; }
}

# jsoncpp for MinGW, from Debian's source package of libjsoncpp-dev.
jsoncpp_version=$(dpkg-query -W -f='${Version}' libjsoncpp-dev)
build_jsoncpp() {
  local triplet=$1
  installed jsoncpp "$jsoncpp_version" "$triplet" && return 0
  local work
  work=$(mktemp -d)
  debian_source libjsoncpp-dev "$work"
  mapfile -t options < <(mingw_options "$triplet")
  cmake_install jsoncpp "$jsoncpp_version" "$source_dir" "$work/build" "$triplet" "${options[@]}" \
    -DBUILD_STATIC_LIBS=ON -DBUILD_OBJECT_LIBS=OFF \
    -DJSONCPP_WITH_TESTS=OFF -DJSONCPP_WITH_POST_BUILD_UNITTEST=OFF \
    -DJSONCPP_WITH_PKGCONFIG_SUPPORT=OFF -DJSONCPP_WITH_CMAKE_PACKAGE=ON
  rm -rf "$work"
}

build_jsoncpp x86_64-w64-mingw32
build_jsoncpp i686-w64-mingw32

# Google Benchmark for the x86_64 Windows benchmarks (run under Wine; the
# i686 build has none), from Debian's source package of libbenchmark-dev.
benchmark_version=$(dpkg-query -W -f='${Version}' libbenchmark-dev)
build_benchmark() {
  local triplet=$1
  installed benchmark "$benchmark_version" "$triplet" && return 0
  local work
  work=$(mktemp -d)
  debian_source libbenchmark-dev "$work"
  mapfile -t options < <(mingw_options "$triplet")
  # Cross builds cannot run the feature probes; MinGW has both features.
  # The library is C++ only: the C compiler among the options goes unused.
  cmake_install benchmark "$benchmark_version" "$source_dir" "$work/build" "$triplet" --no-warn-unused-cli \
    "${options[@]}" -DGIT_VERSION="${benchmark_version%%-*}" -DHAVE_STD_REGEX=1 -DHAVE_STEADY_CLOCK=1 \
    -DBENCHMARK_ENABLE_TESTING=OFF -DBENCHMARK_ENABLE_GTEST_TESTS=OFF \
    -DBENCHMARK_ENABLE_WERROR=OFF -DBENCHMARK_INSTALL_DOCS=OFF
  rm -rf "$work"
}

build_benchmark x86_64-w64-mingw32

log "done (MinGW dependencies in $deps_dir)"
