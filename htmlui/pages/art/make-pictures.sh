#!/usr/bin/env bash
# Draws the dialogs' pictures (art/MakePictures.cpp, Cairo) into htmlui/pages,
# where they are kept as resources. Run it again after changing the drawing.
set -euo pipefail
art=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# shellcheck disable=SC2046
g++ -std=c++17 -O2 -Wall -Wextra "$art/MakePictures.cpp" -o "$work/make-pictures" $(pkg-config --cflags --libs cairo)
"$work/make-pictures" "$art/.."
