#!/usr/bin/env bash
# Fails, naming file and line, on an include that runs against the layers:
# - platform/ includes only platform/ (the OS ports sit below all product code);
# - product code never includes tools/ or tests/ (they are built on top of it);
# - settings, text, htmlui, online and support reach into host/ only through
#   the host's API boundary (host/arx/) and the product identity (host/identity/),
#   never the application object above them.
# Quoted includes are read from the repository's sources (tracked or new); a path with a
# folder is taken from the repository root, one without it or starting with
# ./ or ../ from the file's folder.
set -uo pipefail
cd "$(dirname "$0")/.."

product='host settings text htmlui online support platform companions'
faults=0

fault() {
  printf '%s:%s: includes "%s": %s\n' "$1" "$2" "$3" "$4"
  faults=$((faults + 1))
}

# Each quoted include of the product's sources as "file<TAB>line<TAB>target".
# shellcheck disable=SC2086
while IFS=$'\t' read -r file line target; do
  case $target in
    ./* | ../*) resolved=$(realpath -m --relative-to=. "${file%/*}/$target") ;;
    *../*) resolved=$(realpath -m --relative-to=. "$target") ;;
    */*) resolved=$target ;;
    *) resolved=${file%/*}/$target ;;
  esac
  from=${file%%/*}
  to=${resolved%%/*}
  case $to in
    tools | tests) fault "$file" "$line" "$target" "product code does not depend on $to/" ;;
  esac
  case $from in
    platform)
      case $to in
        host | settings | text | htmlui | online | support | companions)
          fault "$file" "$line" "$target" "platform/ includes nothing above it" ;;
      esac ;;
    settings | text | htmlui | online | support)
      case $resolved in
        host/arx/* | host/identity/*) ;;
        host/*) fault "$file" "$line" "$target" "only host/arx/ and host/identity/ are open to $from/" ;;
      esac ;;
  esac
done < <(git ls-files --cached --others --exclude-standard -- $product | grep -E '\.(h|hpp|c|cpp|inl)$' |
  xargs grep -nE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"' |
  sed -E 's/^([^:]+):([0-9]+):[[:space:]]*#[[:space:]]*include[[:space:]]*"([^"]+)".*/\1\t\2\t\3/')

if [ "$faults" -gt 0 ]; then
  printf '%d include(s) run the wrong way\n' "$faults"
  exit 1
fi
echo "includes: every one runs down the layers"
