#!/usr/bin/env bash
# Installs every build and test dependency of KVT1 from Debian's packages.
# Idempotent: packages already present are not fetched again, and jsoncpp for
# the MinGW toolchains is built once from Debian's source package into
# $KVT1_DEPS_DIR (default /opt/kvt1-deps).
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
  libpugixml-dev libtinyxml2-dev libxml2-dev clang libclang-rt-14-dev
  liblitehtml-dev libcairo2-dev libpango1.0-dev fonts-dejavu-core
)
mingw_packages=(
  g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix binutils-mingw-w64-x86-64
  binutils-mingw-w64-i686 mingw-w64-tools libz-mingw-w64-dev
  dpkg-dev wine wine64
)

if [ "$native_only" -eq 1 ]; then
  apt_install "${native_packages[@]}"
  log "done (Linux build dependencies)"
  exit 0
fi
apt_install "${native_packages[@]}" "${mingw_packages[@]}"

# 32-bit Wine runs the i686 test binaries; its absence only skips those tests.
if [ -n "$(missing_packages wine32:i386)" ]; then
  if ! dpkg --print-foreign-architectures | grep -qx i386; then
    "${sudo_cmd[@]}" dpkg --add-architecture i386
    apt_updated=0
  fi
  apt_update
  if DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends wine32:i386; then
    log "wine32:i386 installed"
  else
    log "wine32:i386 could not be installed; the i686 tests will be skipped"
  fi
fi

# jsoncpp for MinGW, from Debian's source package of libjsoncpp-dev.
jsoncpp_version=$(dpkg-query -W -f='${Version}' libjsoncpp-dev)
build_jsoncpp() {
  local triplet=$1
  local prefix="$deps_dir/$triplet"
  local stamp="$prefix/.jsoncpp-$jsoncpp_version"
  [ -f "$stamp" ] && return 0

  if ! grep -rqs '^Types:.*deb-src' /etc/apt/sources.list.d/ /etc/apt/sources.list; then
    log "enabling deb-src entries"
    "${sudo_cmd[@]}" sed -i 's/^Types: deb$/Types: deb deb-src/' /etc/apt/sources.list.d/debian.sources
    apt_updated=0
  fi
  apt_update

  local work
  work=$(mktemp -d)
  (cd "$work" && apt-get source -qq libjsoncpp-dev >/dev/null)
  local src
  src=$(find "$work" -maxdepth 1 -type d -name 'libjsoncpp-*' -o -maxdepth 1 -type d -name 'jsoncpp-*' | head -n 1)
  [ -n "$src" ] || { log "jsoncpp source package not unpacked"; exit 1; }

  log "building jsoncpp $jsoncpp_version for $triplet"
  cmake -S "$src" -B "$work/build" -G Ninja \
    -DCMAKE_SYSTEM_NAME=Windows \
    -DCMAKE_C_COMPILER="$triplet-gcc-posix" \
    -DCMAKE_CXX_COMPILER="$triplet-g++-posix" \
    -DCMAKE_RC_COMPILER="$triplet-windres" \
    -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$prefix" \
    -DBUILD_SHARED_LIBS=OFF -DBUILD_STATIC_LIBS=ON -DBUILD_OBJECT_LIBS=OFF \
    -DJSONCPP_WITH_TESTS=OFF -DJSONCPP_WITH_POST_BUILD_UNITTEST=OFF \
    -DJSONCPP_WITH_PKGCONFIG_SUPPORT=OFF -DJSONCPP_WITH_CMAKE_PACKAGE=ON >/dev/null
  cmake --build "$work/build" --parallel >/dev/null
  "${sudo_cmd[@]}" cmake --install "$work/build" >/dev/null
  "${sudo_cmd[@]}" touch "$stamp"
  rm -rf "$work"
}

build_jsoncpp x86_64-w64-mingw32
build_jsoncpp i686-w64-mingw32

log "done (MinGW dependencies in $deps_dir)"
