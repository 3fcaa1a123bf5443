#!/usr/bin/env bash
# Installs the x64 package under Wine as an administrator would, runs the
# emulator on the installed module, upgrades to a higher version and removes
# the product again, checking at each step what the host and the user see.
#   install-cycle.sh PACKAGE HOST_BIN WORK
# PACKAGE is the x64 .msi, HOST_BIN the mingw-x64 build's bin folder (with
# kvt1-host.exe); WORK a folder for the Wine prefix and the upgrade package.
set -uo pipefail
package=$(realpath "$1")
host_bin=$(realpath "$2")
work=$(realpath -m "$3")
root=$(cd "$(dirname "$0")/../.." && pwd)

failures=0
fail() { printf 'FAILED: %s\n' "$*"; failures=$((failures + 1)); }
step() { printf '\n-- %s [%s]\n' "$*" "$(date +%T)"; }

rm -rf "$work"
mkdir -p "$work"
export WINEPREFIX=$work/prefix WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
wine=/usr/lib/wine/wine64
trap 'wineserver --kill 2>/dev/null' EXIT
wineboot --init >/dev/null 2>&1 || { echo "FAILED: no Wine prefix"; exit 1; }
# Dialogs open on Wine's null display.
"$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
wineserver --wait

winpath() { "$wine" winepath -w "$1" 2>/dev/null | tr -d '\r'; }
unixpath() { "$wine" winepath -u "$1" 2>/dev/null | tr -d '\r'; }
query() { "$wine" reg query "$@" 2>/dev/null | tr -d '\r'; }
# Wine's reg reports a missing key on standard output: only its status tells.
key_exists() { "$wine" reg query "$@" >/dev/null 2>&1; }
msiexec() { "$wine" msiexec "$@" /qn /l*v "$(winpath "$work/msiexec.log")" || { fail "msiexec $1 $(basename "$2")"; sed -n '/error\|Error/p' "$work/msiexec.log" | head -n 20; }; }
property() { msiinfo export "$1" Property | tr -d '\r' | sed -n "s/^$2\t//p"; }

machine_key='HKLM\SOFTWARE\Halvorn Systems\KVT\1.1\CAD'
user_key='HKCU\Software\Halvorn Systems\KVT\1.1\CAD'
uninstall_key='HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall'
bundle=$(unixpath 'C:\Program Files\Autodesk\ApplicationPlugins\KVT.bundle')
program=$bundle/Contents/Win64
help_file=$(unixpath 'C:\ProgramData\Halvorn Systems\KVT\Help\KVT.chm')
version=$(property "$package" ProductVersion)

# machine_value NAME: the value as the 64-bit view holds it.
machine_value() { query "$machine_key" /v "$1" /reg:64 | sed -nE "s/^ +$1 +REG_SZ +//p"; }

step "msiexec /i $(basename "$package") /qn"
msiexec /i "$(winpath "$package")"
for file in PackageContents.xml Contents/Win64/kvt2018.arx Contents/Win64/kvt2018ENU.dll \
  Contents/Win64/HalvornHttpClient.dll Contents/Win64/KVTHelpID.csv; do
  [ -f "$bundle/$file" ] || fail "not installed: KVT.bundle/$file"
done
[ -f "$help_file" ] || fail "not installed: the help file $help_file"
while read -r name expected; do
  actual=$(machine_value "$name")
  [ "$actual" = "$expected" ] || fail "machine value $name is '$actual', not '$expected'"
done <<'VALUES'
ProgramPath C:\Program Files\Autodesk\ApplicationPlugins\KVT.bundle\Contents\Win64
Language ENU
DataPath C:\ProgramData\Halvorn Systems\KVT
DeploymentPath C:\ProgramData\Halvorn Systems\KVT\Deployment
VALUES
# The 64-bit package leaves the 32-bit view alone.
! key_exists "$machine_key" /reg:32 || fail "machine values written to the 32-bit registry view"

step "kvt1-host.exe loads the installed module"
cat > "$work/session.lsp" <<'LSP'
(kvt1_help "AirportDialog")
KVT1
LSP
# The update check's default service is out of reach here: give up at once.
KVT1_HTTP_CONNECT_TIMEOUT_MS=200 KVT1_HTTP_TIMEOUT_MS=200 \
  "$wine" "$host_bin/kvt1-host.exe" --echo "$(winpath "$program/kvt2018.arx")" "$(winpath "$work/session.lsp")" \
  2>&1 | tr -d '\r' > "$work/session.out"
cat "$work/session.out"
# The topic comes from the help map found through ProgramPath, the file from DataPath\Help.
grep -qxF 'help: topic 10120 of C:\ProgramData\Halvorn Systems\KVT\Help\KVT.chm' "$work/session.out" ||
  fail "the help map or help file of the installation was not found"
# The usage question of a first start, titled from the texts of the language module beside the module.
grep -qxF 'dialog [Help Improve the KVT Product Experience]: opened' "$work/session.out" ||
  fail "no dialog titled from the installed language module"
grep -qF 'queued: (load "C:\\Program Files\\Autodesk\\ApplicationPlugins\\KVT.bundle\\Contents\\Win64\\kv_Menu.vlx")' \
  "$work/session.out" || fail "the start command did not run from the bundle's folder"

# The session made the user's key and data folder; the user keeps a value and files of their own there.
user_data=$(query "$user_key" /v DataPath | sed -nE 's/^ +DataPath +REG_SZ +//p')
[ -n "$user_data" ] || fail "the session stored no user DataPath"
"$wine" reg add "$user_key" /v Tutorials /d 'C:\KVT Tutorials' /f >/dev/null 2>&1
query "$user_key" /s > "$work/user-values.before"
user_files=$(unixpath "$user_data")
echo "the user's own notes" > "$user_files/notes.txt"
echo '{"Logins":{}}' > "$user_files/UsageReport_1.json"
find "$user_files" -type f | sort > "$work/user-files.before"

step "a higher version upgrades in place"
# Windows Installer compares the first three parts of a product's version only.
IFS=. read -r major minor build revision <<<"$version"
upgrade_version=$major.$minor.$((build + 1)).$revision
bash "$root/scripts/package.sh" --no-setup --arch x64 --version "$upgrade_version" --out "$work/upgrade" |
  sed 's/^/  /'
upgrade=$work/upgrade/KVT-$upgrade_version-x64.msi
old_code=$(property "$package" ProductCode)
new_code=$(property "$upgrade" ProductCode)
[ "$old_code" != "$new_code" ] || fail "the upgrade package has the same product code $old_code"
msiexec /i "$(winpath "$upgrade")"
! key_exists "$uninstall_key\\$old_code" /reg:64 || fail "version $version is still registered beside $upgrade_version"
query "$uninstall_key\\$new_code" /v DisplayVersion /reg:64 | grep -q "$upgrade_version" ||
  fail "version $upgrade_version is not registered"
grep -q "AppVersion=\"$upgrade_version\"" "$bundle/PackageContents.xml" 2>/dev/null ||
  fail "the bundle was not replaced by version $upgrade_version"
[ -f "$program/kvt2018.arx" ] || fail "the module is gone after the upgrade"
[ "$(machine_value ProgramPath)" = 'C:\Program Files\Autodesk\ApplicationPlugins\KVT.bundle\Contents\Win64' ] ||
  fail "ProgramPath is gone after the upgrade"

step "an older version does not replace a newer one"
if "$wine" msiexec /i "$(winpath "$package")" /qn; then fail "version $version was installed over $upgrade_version"; fi
key_exists "$uninstall_key\\$new_code" /reg:64 || fail "version $upgrade_version is gone after the refused downgrade"
! key_exists "$uninstall_key\\$old_code" /reg:64 || fail "version $version is registered after the refused downgrade"

step "msiexec /x removes the product and leaves the user's values and files"
msiexec /x "$(winpath "$upgrade")"
[ ! -e "$bundle" ] || fail "the bundle is still there: $(find "$bundle" | head -n 5 | tr '\n' ' ')"
[ ! -e "$help_file" ] || fail "the help file is still there"
for name in ProgramPath Language DataPath DeploymentPath; do
  [ -z "$(machine_value "$name")" ] || fail "machine value $name is still there"
done
! key_exists "$uninstall_key\\$new_code" /reg:64 || fail "the product is still registered"
query "$user_key" /s > "$work/user-values.after"
diff -u "$work/user-values.before" "$work/user-values.after" || fail "the user's registry values changed"
find "$user_files" -type f | sort > "$work/user-files.after"
diff -u "$work/user-files.before" "$work/user-files.after" || fail "the user's files changed"

wineserver --wait
printf '\n%d failed checks\n' "$failures"
[ "$failures" -eq 0 ]
