#!/usr/bin/env bash
# Sets up what the Linux build needs, builds the module and the host emulator
# (release), installs the product into build/demo (registry, program and data
# folders, compiled help) and plays the demo session: the module loaded into
# kvt1-host, its LISP functions called, its start command run, each dialog
# that opens drawn into build/demo/dialogs. The module's
# update checks go to the local update service, started here on 127.0.0.1 and
# stopped at the end. Nothing is written outside build/demo.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

bash scripts/setup.sh --native
cmake --preset linux-release >/dev/null
cmake --build --preset linux-release --target kvt1-host kvt1_module kvt1_language_enu kvt1-update-service

demo=$root/build/demo
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

# The machine values an installer writes (see install/kvt1-machine.reg), for this folder.
cat > "$demo/registry/HKEY_LOCAL_MACHINE.reg" <<REG
Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvorn Systems\\KVT\\1.1\\CAD]
"ProgramPath"="$demo/Program"
"Language"="ENU"
"DataPath"="$demo/Data"
"DeploymentPath"="$demo/Deployment"
"CheckUpdateUrl"="127.0.0.1:$port"
REG

export XDG_DATA_HOME=$demo/AppData
build/linux-release/bin/kvt1-host --echo --registry "$demo/registry" --render "$demo/dialogs" \
  --env 'ACAD=C:\Halvorn\KVT\Support;C:\Program Files\KVTools 2016\Support;C:\Users\Public\Fonts' \
  build/linux-release/bin/kvt2018.so demo/demo.lsp
echo "update service requests:"
sed 's/^/  /' "$demo/update-service.log"
