#!/usr/bin/env bash
# Checks that every include runs down the layers, sets the machine up, checks
# the layout of the sources (.clang-format), then builds (warnings fail the
# build) and runs every test: Linux (debug, and AddressSanitizer with
# UndefinedBehaviorSanitizer), bounded runs of the libFuzzer targets (clang),
# the x86_64 Windows build under Wine and the i686 one where the kernel runs
# 32-bit programs (else it is built only, and a line says why). The release
# build (benchmarks, emulator) is built too, so that it keeps compiling.
# .clang-tidy's lint runs over what the linux-debug build compiles. Then the
# Windows installer packages are made and tested.
# Ends with one line counting all tests.
set -uo pipefail
cd "$(dirname "$0")/.."

status=0
printf '== include layers\n'
bash scripts/check-includes.sh || status=1

bash scripts/setup.sh || exit 1

printf '\n== formatting\n'
bash scripts/check-format.sh || status=1

logs=$(mktemp -d)
trap 'rm -rf "$logs"' EXIT
# The i686 Windows tests run under 32-bit Wine, which the setup installs only
# where the kernel runs 32-bit programs; elsewhere that build is compiled only.
built_only=(linux-release)
tested=(mingw-x64 linux-asan linux-debug linux-fuzz)
skip_note=""
if bash scripts/runs-32bit.sh; then
  tested+=(mingw-x86)
else
  built_only+=(mingw-x86)
  skip_note="mingw-x86: tests skipped: this kernel runs no 32-bit programs"
fi

for preset in "${built_only[@]}"; do
  printf '\n== %s (build only)\n' "$preset"
  { cmake --preset "$preset" >/dev/null && cmake --build --preset "$preset"; } || status=1
done

for preset in "${tested[@]}"; do
  printf '\n== %s\n' "$preset"
  cmake --workflow --preset "$preset" 2>&1 | tee "$logs/$preset.log"
  [ "${PIPESTATUS[0]}" -eq 0 ] || status=1
done

# The lint reads the compile commands of the linux-debug build above.
printf '\n== lint\n'
bash scripts/check-tidy.sh build/linux-debug || status=1

# What each fuzz target did: its runs and their time, from CTest's log.
awk '/Testing: fuzz_/ { target = $3 } /^Done [0-9]+ runs/ && target { print "  " target ": " $0; target = "" }' \
  build/linux-fuzz/Testing/Temporary/LastTest.log 2>/dev/null

# The Windows installer: both packages from the builds above, signed with a
# throwaway certificate made here (so that signing keeps working), then
# checked, and the x64 one installed, upgraded and removed under Wine.
printf '\n== installer\n'
{
  openssl req -x509 -newkey rsa:2048 -nodes -days 1 -subj "/CN=KVT1 throwaway code signing" \
    -addext extendedKeyUsage=codeSigning -keyout "$logs/signing.key" -out "$logs/signing.pem" 2>/dev/null &&
    KVT1_SIGN_CERT="$logs/signing.pem" KVT1_SIGN_KEY="$logs/signing.key" bash scripts/package.sh --no-setup &&
    cmake -S tests/install -B build/installer-tests -DKVT1_PACKAGE_DIR="$PWD/build/package" \
      -DKVT1_X64_BUILD="$PWD/build/mingw-x64" -DKVT1_SIGNING_CERTIFICATE="$logs/signing.pem" >/dev/null &&
    ctest --test-dir build/installer-tests --output-on-failure
} 2>&1 | tee "$logs/installer.log"
[ "${PIPESTATUS[0]}" -eq 0 ] || status=1

# One line over all presets: CTest counts skipped tests among the passed ones.
passed=0 failed=0 skipped=0
for log in "$logs"/*.log; do
  summary=$(grep -E '^[0-9]+% tests passed, [0-9]+ tests? failed out of [0-9]+' "$log" | tail -n 1)
  if [ -z "$summary" ]; then
    status=1
    continue
  fi
  f=$(sed -E 's/.* ([0-9]+) tests? failed out of ([0-9]+).*/\1/' <<<"$summary")
  t=$(sed -E 's/.* failed out of ([0-9]+).*/\1/' <<<"$summary")
  s=$(grep -cE '\(Skipped\)$' "$log" || true)
  passed=$((passed + t - f - s)) failed=$((failed + f)) skipped=$((skipped + s))
done
[ -z "$skip_note" ] || printf '\n%s' "$skip_note"
printf '\ntests: %d passed, %d failed, %d skipped\n' "$passed" "$failed" "$skipped"
[ "$failed" -eq 0 ] || status=1
exit "$status"
