#!/usr/bin/env bash
# Sets up what the Linux build needs, builds the module and the host emulator
# (release), and plays the demo session: the module loaded into kvt1-host,
# its LISP functions called, its start command run.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh --native
cmake --preset linux-release >/dev/null
cmake --build --preset linux-release --target kvt1-host kvt1_module

exec build/linux-release/bin/kvt1-host --echo \
  --env 'ACAD=C:\Halvorn\KVT\Support;C:\Program Files\KVTools 2016\Support;C:\Users\Public\Fonts' \
  build/linux-release/bin/kvt2018.so demo/demo.lsp
