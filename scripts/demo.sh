#!/usr/bin/env bash
# Plays the demo session: the module loaded into kvt1-host, its LISP
# functions called, its start command run, each dialog that opens played as
# the script says and drawn into the dialogs folder. The module's update
# checks go to the local update service, started here on 127.0.0.1 and
# stopped at the end. Nothing is written outside the demo folder.
#   demo.sh            the Linux build (release), in build/demo
#   demo.sh --windows  the x86_64 Windows build under Wine (real windows on
#                      Wine's null display), in build/demo-windows
# Each sets up what it needs, builds, and installs the product into its
# folder first (registry, program and data folders, compiled help).
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

windows=0
[ "${1:-}" = "--windows" ] && windows=1

if [ "$windows" -eq 1 ]; then
  bash scripts/setup.sh
  cmake --preset mingw-x64 >/dev/null
  cmake --build --preset mingw-x64 --target kvt1-host kvt1_module kvt1_language_enu HalvornHttpClient
  bin=build/mingw-x64/bin
  demo=$root/build/demo-windows
else
  bash scripts/setup.sh --native
  bin=build/linux-release/bin
  demo=$root/build/demo
fi
# The local update service is a Linux program on both: Wine's programs reach 127.0.0.1 too.
cmake --preset linux-release >/dev/null
cmake --build --preset linux-release --target kvt1-update-service
[ "$windows" -eq 1 ] || cmake --build --preset linux-release --target kvt1-host kvt1_module kvt1_language_enu

rm -rf "$demo"
mkdir -p "$demo/Program" "$demo/Data/Help" "$demo/registry" "$demo/AppData"
cp demo/installation/KVTHelpID.csv "$demo/Program/"
cp -r demo/help "$demo/help-project"
(cd "$demo/help-project" && chmcmd --no-html-scan KVT.hhp >/dev/null && mv KVT.chm "$demo/Data/Help/")

# The local update service answers from tools/kvt1-update-service/answers.
build/linux-release/bin/kvt1-update-service --answers tools/kvt1-update-service/answers \
  --port-file "$demo/update-service.port" > "$demo/update-service.log" &
service=$!
trap 'kill $service 2>/dev/null; wait $service 2>/dev/null || true' EXIT
for _ in $(seq 100); do [ -s "$demo/update-service.port" ] && break; sleep 0.05; done
port=$(cat "$demo/update-service.port")

acad='ACAD=C:\Halvorn\KVT\Support;C:\Program Files\KVTools 2016\Support;C:\Users\Public\Fonts'

if [ "$windows" -eq 1 ]; then
  export WINEPREFIX=$demo/wineprefix WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
  wine=/usr/lib/wine/wine64
  wineboot --init >/dev/null 2>&1
  # Windows without a display: Wine's null graphics driver makes them.
  "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null
  # The prefix is settled (and the driver in force) once its server has ended.
  wineserver --wait
  winpath() { "$wine" winepath -w "$1" 2>/dev/null | tr -d '\r'; }
  regpath() { winpath "$1" | sed 's/\\/\\\\/g'; }
  # The machine values an installer writes (see install/kvt1-machine.reg), for this folder.
  cat > "$demo/registry/machine.reg" <<REG
Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvorn Systems\\KVT\\1.1\\CAD]
"ProgramPath"="$(regpath "$demo/Program")"
"Language"="ENU"
"DataPath"="$(regpath "$demo/Data")"
"DeploymentPath"="$(regpath "$demo/Deployment")"
"CheckUpdateUrl"="127.0.0.1:$port"
"UsageReportUrl"="http://127.0.0.1:$port/UsageReportService/Upload"
REG
  "$wine" reg import "$(winpath "$demo/registry/machine.reg")" >/dev/null 2>&1
  "$wine" "$bin/kvt1-host.exe" --echo --render "$(winpath "$demo/dialogs")" --env "$acad" \
    "$(winpath "$root/$bin/kvt2018.arx")" "$(winpath "$root/demo/demo.lsp")" | tr -d '\r'
  echo "usage consent and reports:"
  "$wine" reg query 'HKCU\Software\Halvorn Systems' /s 2>/dev/null | tr -d '\r' | { grep -i 'HVCOLLECTUSAGE' || true; } | sed 's/^ */  /'
  find "$WINEPREFIX/drive_c/users" -name 'UsageReport_*' -printf '  %P\n' 2>/dev/null
  wineserver --wait
else
  # The machine values an installer writes (see install/kvt1-machine.reg), for this folder.
  cat > "$demo/registry/HKEY_LOCAL_MACHINE.reg" <<REG
Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvorn Systems\\KVT\\1.1\\CAD]
"ProgramPath"="$demo/Program"
"Language"="ENU"
"DataPath"="$demo/Data"
"DeploymentPath"="$demo/Deployment"
"CheckUpdateUrl"="127.0.0.1:$port"
"UsageReportUrl"="http://127.0.0.1:$port/UsageReportService/Upload"
REG
  export XDG_DATA_HOME=$demo/AppData
  build/linux-release/bin/kvt1-host --echo --registry "$demo/registry" --render "$demo/dialogs" --env "$acad" \
    build/linux-release/bin/kvt2018.so demo/demo.lsp
  echo "usage consent and reports:"
  # The store writes regedit's UTF-16LE.
  for reg in "$demo/registry/"*.reg; do iconv -f UTF-16 -t UTF-8 "$reg" 2>/dev/null || cat "$reg"; done |
    { grep -i 'HVCOLLECTUSAGE' || true; } | tr -d '\r' | sed 's/^/  /'
  find "$demo" -name 'UsageReport_*' -printf '  %P\n'
fi
echo "update service requests:"
sed 's/^/  /' "$demo/update-service.log"
