#!/usr/bin/env bash
# Fails, naming each file, when a C++ source of the repository is not laid out
# as .clang-format says; --fix lays them out in place.
set -uo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files --cached --others --exclude-standard '*.cpp' '*.h')
if [ "${1:-}" = --fix ]; then
  clang-format -i "${sources[@]}"
  exit 0
fi
unformatted=$(clang-format --dry-run "${sources[@]}" 2>&1 | sed -n 's/^\([^:]*\):[0-9]*:[0-9]*: warning: code should be clang-formatted.*/\1/p' | sort -u)
if [ -n "$unformatted" ]; then
  printf '%s: not formatted (bash scripts/check-format.sh --fix)\n' $unformatted
  exit 1
fi
printf 'formatting: %d sources as .clang-format says\n' "${#sources[@]}"
