#!/usr/bin/env bash
# Draws every dialog of the module, and the emulator's gallery of controls,
# into build/gallery/pictures: builds the module and the host emulator
# (linux-release) when needed, installs the product into build/gallery
# (registry, program and data folders, no help file) and plays
# demo/gallery.lsp in kvt1-host with --render. The start-up update check goes
# to a closed local port. Nothing is written outside build/gallery.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

if [ ! -f build/linux-release/build.ninja ]; then
  bash scripts/setup.sh --native
  cmake --preset linux-release >/dev/null
fi
cmake --build --preset linux-release --target kvt1-host kvt1_module kvt1_language_enu

gallery=$root/build/gallery
rm -rf "$gallery"
mkdir -p "$gallery/Program" "$gallery/Data" "$gallery/registry" "$gallery/AppData" "$gallery/pictures"
cp demo/installation/KVTHelpID.csv "$gallery/Program/"

cat > "$gallery/registry/HKEY_LOCAL_MACHINE.reg" <<REG
Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvorn Systems\\KVT\\1.1\\CAD]
"ProgramPath"="$gallery/Program"
"Language"="ENU"
"DataPath"="$gallery/Data"
"DeploymentPath"="$gallery/Deployment"
"CheckUpdateUrl"="127.0.0.1:9"
REG

export XDG_DATA_HOME=$gallery/AppData
build/linux-release/bin/kvt1-host --echo --registry "$gallery/registry" --render "$gallery/pictures" \
  build/linux-release/bin/kvt2018.so demo/gallery.lsp
echo "pictures:"
ls -1 "$gallery/pictures" | sed 's/^/  /'
