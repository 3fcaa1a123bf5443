#!/usr/bin/env bash
# Builds the Windows Installer packages of KVT, one per architecture:
# build/package/KVT-<version>-x64.msi and KVT-<version>-x86.msi.
#   package.sh [--arch x64|x86] [--out DIR] [--version A.B.C.D] [--no-setup]
# It builds what goes into them first (the mingw-x64 and mingw-x86 presets'
# module, language module and HTTP client library; the help file compiled
# from demo/help) and takes the version, maker and module name from the
# module's own version resource. --version packages another version than the
# module's, to try an upgrade.
#
# Signing: with KVT1_SIGN_CERT set, the module, its libraries and the package
# are Authenticode-signed with osslsigncode. KVT1_SIGN_CERT is a PKCS#12 file
# (.pfx, .p12) or a PEM certificate chain whose key is KVT1_SIGN_KEY;
# KVT1_SIGN_PASS is their password, KVT1_SIGN_TIMESTAMP_URL a time-stamping
# service to countersign with.
# Build folders: KVT1_X64_BUILD and KVT1_X86_BUILD (default build/mingw-x64, build/mingw-x86).
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

arches=(x64 x86)
out=$root/build/package
version_override=""
setup=1
while [ $# -gt 0 ]; do
  case "$1" in
    --arch)
      case "${2:-}" in x64 | x86) arches=("$2") ;; *) echo "package.sh: --arch x64 or x86" >&2; exit 2 ;; esac
      shift 2 ;;
    --out) out=$(realpath -m "$2"); shift 2 ;;
    --version) version_override=$2; shift 2 ;;
    --no-setup) setup=0; shift ;;
    *) echo "package.sh: unknown argument $1" >&2; exit 2 ;;
  esac
done

log() { printf 'package: %s\n' "$*"; }

[ "$setup" -eq 0 ] || bash scripts/setup.sh

build_dir() { case "$1" in x64) echo "${KVT1_X64_BUILD:-build/mingw-x64}" ;; x86) echo "${KVT1_X86_BUILD:-build/mingw-x86}" ;; esac; }
bundle_os() { case "$1" in x64) echo Win64 ;; x86) echo Win32 ;; esac; }
triplet() { case "$1" in x64) echo x86_64-w64-mingw32 ;; x86) echo i686-w64-mingw32 ;; esac; }

# version_value FILE NAME: a string of the module's version resource.
version_value() {
  sed -nE "s/^ *VALUE \"$2\", \"(.*)\"\r?$/\1/p" "$1" | head -n 1
}

# uuid5 NAMESPACE NAME: a name-based UUID (RFC 4122 version 5), so that one
# architecture and version always give the same product code.
uuid5() {
  local namespace=${1//-/} hash
  hash=$({ printf '%b' "$(sed 's/../\\x&/g' <<<"${namespace,,}")"; printf '%s' "$2"; } | sha1sum | cut -c1-32)
  local variant=$(((16#${hash:16:1} & 3) | 8))
  hash=${hash:0:12}5${hash:13:3}$(printf '%x' "$variant")${hash:17:15}
  printf '%s-%s-%s-%s-%s\n' "${hash:0:8}" "${hash:8:4}" "${hash:12:4}" "${hash:16:4}" "${hash:20:12}" | tr a-f A-F
}
product_code_namespace=3F6A2C1E-8B47-4D95-A0E2-71C5B9D3E864

sign() {
  [ -n "${KVT1_SIGN_CERT:-}" ] || return 0
  local file=$1 options=(-h sha256 -n "KVT")
  case "$KVT1_SIGN_CERT" in
    *.pfx | *.p12) options+=(-pkcs12 "$KVT1_SIGN_CERT") ;;
    *) options+=(-certs "$KVT1_SIGN_CERT" -key "${KVT1_SIGN_KEY:?KVT1_SIGN_KEY names the key of KVT1_SIGN_CERT}") ;;
  esac
  [ -z "${KVT1_SIGN_PASS:-}" ] || options+=(-pass "$KVT1_SIGN_PASS")
  [ -z "${KVT1_SIGN_TIMESTAMP_URL:-}" ] || options+=(-ts "$KVT1_SIGN_TIMESTAMP_URL")
  osslsigncode sign "${options[@]}" -in "$file" -out "$file.signed" >/dev/null
  mv "$file.signed" "$file"
}

mkdir -p "$out"
work=$(mktemp -d "$out/work.XXXXXX")
trap 'rm -rf "$work"' EXIT

# The help file, compiled as the demo compiles it.
cp -r demo/help "$work/help"
(cd "$work/help" && chmcmd --no-html-scan KVT.hhp >chmcmd.log 2>&1) || { cat "$work/help/chmcmd.log" >&2; exit 1; }

for arch in "${arches[@]}"; do
  dir=$(build_dir "$arch")
  os=$(bundle_os "$arch")
  log "building the $arch module in $dir"
  [ -f "$dir/CMakeCache.txt" ] || cmake --preset "mingw-$arch" -B "$dir" >/dev/null
  cmake --build "$dir" -j2 --target kvt1_module kvt1_language_enu HalvornHttpClient >/dev/null

  modules=("$dir"/bin/kvt*.arx)
  [ "${#modules[@]}" -eq 1 ] && [ -f "${modules[0]}" ] || { log "expected one module in $dir/bin"; exit 1; }
  "$(triplet "$arch")-windres" -i "${modules[0]}" -O rc -o "$work/version-$arch.rc"
  module=$(version_value "$work/version-$arch.rc" OriginalFilename)
  module=${module%.arx}
  version=${version_override:-$(version_value "$work/version-$arch.rc" FileVersion)}
  manufacturer=$(version_value "$work/version-$arch.rc" CompanyName)
  release=$(sed -n 's/^KVT1_HOST_RELEASE:STRING=//p' "$dir/CMakeCache.txt")
  product_code=$(uuid5 "$product_code_namespace" "$arch-$version")

  stage=$work/stage-$arch
  mkdir -p "$stage/Contents/$os" "$stage/Help"
  cp "$dir/bin/$module.arx" "$dir/bin/${module}ENU.dll" "$dir/bin/HalvornHttpClient.dll" "$stage/Contents/$os/"
  for binary in "$stage/Contents/$os/"*; do sign "$binary"; done
  cp demo/installation/KVTHelpID.csv "$stage/Contents/$os/"
  cp "$work/help/KVT.chm" "$stage/Help/"
  sed -e "s/@VERSION@/$version/g" -e "s/@PRODUCT_CODE@/$product_code/g" -e "s/@MANUFACTURER@/$manufacturer/g" \
    -e "s/@OS@/$os/g" -e "s/@SERIES@/R$release.0/g" -e "s/@MODULE@/$module/g" \
    install/PackageContents.xml.in > "$stage/PackageContents.xml"

  msi=$out/KVT-$version-$arch.msi
  rm -f "$out"/KVT-*-"$arch".msi
  # wixl finds the sources relative to the folder it runs in.
  (cd "$stage" && wixl -a "$arch" -D Arch="$arch" -D Version="$version" -D ProductCode="$product_code" \
    -D Manufacturer="$manufacturer" -D Module="$module" -D Stage=. -o "$msi" "$root/install/KVT.wxs")
  sign "$msi"
  log "wrote $msi"
done
