#!/usr/bin/env bash
# Runs .clang-tidy's checks over every source of the repository that the
# build folder compiles (default build/linux-debug, whose compile commands it
# reads); fails, naming file and line, on any finding.
set -uo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/linux-debug}

run-clang-tidy -quiet -p "$build" -j "$(nproc)" "^$PWD/(bench|companions|fuzz|host|htmlui|online|platform|settings|support|tests|text|tools)/" \
  >"$build/clang-tidy.log" 2>&1
status=$?
grep -E '(warning|error): ' "$build/clang-tidy.log" | sort -u
[ $status -eq 0 ] && printf 'lint: clean\n'
exit $status
