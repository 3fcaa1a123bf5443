#!/usr/bin/env bash
# Checks a package's tables and files without installing it (the x86
# package cannot run here): its PackageContents.xml is well-formed and names
# exactly the files the package puts into the bundle, its version is the
# module's own, the machine values are the installer's values of
# install/kvt1-machine.reg, in the registry view of the package's
# architecture, and, given the signing certificate, every binary and the
# package carry a valid signature.
#   check-package.sh PACKAGE x64|x86 WORK [CERTIFICATE]
set -uo pipefail
package=$(realpath "$1")
arch=$2
work=$(realpath -m "$3")
certificate=${4:-}
root=$(cd "$(dirname "$0")/../.." && pwd)

failures=0
fail() { printf 'FAILED: %s\n' "$*"; failures=$((failures + 1)); }
table() { msiinfo export "$package" "$1" | tr -d '\r' | tail -n +4; }
property() { table Property | sed -n "s/^$1\t//p"; }

case "$arch" in
  x64) os=Win64 template='x64;1033' program_files=ProgramFiles64Folder triplet=x86_64-w64-mingw32 ;;
  x86) os=Win32 template='Intel;1033' program_files=ProgramFilesFolder triplet=i686-w64-mingw32 ;;
  *) echo "check-package.sh: x64 or x86, not $arch" >&2; exit 2 ;;
esac

rm -rf "$work"
mkdir -p "$work"
msiextract -C "$work/files" "$package" > "$work/files.txt" || { echo "FAILED: msiextract"; exit 1; }
# msiextract puts the 32-bit Program Files under "Program Files/", the 64-bit one at the top.
bundle_root=$(sed -n 's|/PackageContents.xml$||p' "$work/files.txt")
[[ "$bundle_root" == *Autodesk/ApplicationPlugins/KVT.bundle ]] || fail "the bundle is at '$bundle_root'"
contents=$work/files/$bundle_root/PackageContents.xml

echo "-- PackageContents.xml"
xmllint --noout "$contents" || fail "PackageContents.xml is not well-formed"
xpath() { xmllint --xpath "$1" "$contents" 2>/dev/null; }
# What the bundle's description names, and what the package puts into the bundle.
xpath '//ComponentEntry/@ModuleName' | sed -E 's/^ *ModuleName="\.\/(.*)"$/\1/' | sort > "$work/named.txt"
sed -n "s|^$bundle_root/||p" "$work/files.txt" | grep -vx 'PackageContents.xml' | sort > "$work/installed.txt"
diff -u "$work/installed.txt" "$work/named.txt" || fail "PackageContents.xml does not name exactly the bundle's files"
[ -s "$work/installed.txt" ] || fail "no files in the bundle"
module=$(xpath 'string(//ComponentEntry[@AppType="Arx"]/@ModuleName)')
[ "$module" = "./Contents/$os/kvt2018.arx" ] || fail "the Arx component is '$module'"
while read -r expression expected; do
  actual=$(xpath "string($expression)")
  [ "$actual" = "$expected" ] || fail "$expression is '$actual', not '$expected'"
done <<EXPECTED
//RuntimeRequirements/@OS $os
//RuntimeRequirements/@SeriesMin R22.0
//RuntimeRequirements/@SeriesMax R22.0
//ComponentEntry[@AppType="Arx"]/@LoadOnAutoCADStartup True
//ComponentEntry[@AppType="Arx"]/Commands/@GroupName KVT1_COMMANDS
//ComponentEntry[@AppType="Arx"]/Commands/Command/@Global KVT1
//ComponentEntry[@AppType="Arx"]/Commands/Command/@Local KVT1
/ApplicationPackage/@ProductCode $(property ProductCode)
/ApplicationPackage/@AppVersion $(property ProductVersion)
EXPECTED

echo "-- tables"
msiinfo suminfo "$package" | grep -qxF "Template: $template" || fail "the package's platform is not $template"
# The version is the module's own, as its version resource says.
module_version=$("$triplet-windres" -i "$work/files/$bundle_root/Contents/$os/kvt2018.arx" -O rc |
  sed -nE 's/^ *VALUE "FileVersion", "(.*)"\r?$/\1/p')
[ -n "$module_version" ] && [ "$(property ProductVersion)" = "$module_version" ] ||
  fail "the package's version $(property ProductVersion) is not the module's $module_version"
table Upgrade | grep -q "^$(property UpgradeCode)	.*WIX_UPGRADE_DETECTED$" || fail "no major upgrade of older versions"
table Directory | grep -q "^HostVendorFolder	$program_files	" || fail "the bundle is not in $program_files"
# The same value names as install/kvt1-machine.reg, under the machine root (2), in the right view.
iconv -f UTF-16 -t UTF-8 "$root/install/kvt1-machine.reg" | tr -d '\r' | sed -nE 's/^"([^"]+)"=.*/\1/p' | sort \
  > "$work/reg-names.txt"
table Registry | awk -F'\t' '$2 == 2 && $3 == "SOFTWARE\\Halvorn Systems\\KVT\\1.1\\CAD\\" { print $4 }' | sort \
  > "$work/msi-names.txt"
diff -u "$work/reg-names.txt" "$work/msi-names.txt" || fail "the machine values differ from install/kvt1-machine.reg"
component=$(table Registry | cut -f6 | sort -u)
attributes=$(table Component | awk -F'\t' -v c="$component" '$1 == c { print $4 }')
if [ "$arch" = x64 ]; then
  [ $((attributes & 256)) -ne 0 ] || fail "the machine values are not in the 64-bit registry view"
else
  [ $((attributes & 256)) -eq 0 ] || fail "the machine values are not in the 32-bit registry view"
fi
table File | cut -f3 | grep -qx 'KVT.chm' || fail "no help file"
grep -qx 'Halvorn Systems/KVT/Help/KVT.chm' "$work/files.txt" || fail "the help file is not in the data folder's Help"

if [ -n "$certificate" ]; then
  echo "-- signatures"
  for file in "$package" "$work/files/$bundle_root/Contents/$os/"*.arx "$work/files/$bundle_root/Contents/$os/"*.dll; do
    osslsigncode verify -CAfile "$certificate" -in "$file" > "$work/verify.txt" 2>&1 ||
      { cat "$work/verify.txt"; fail "no valid signature on ${file##*/}"; }
  done
fi

printf '%d failed checks\n' "$failures"
[ "$failures" -eq 0 ]
