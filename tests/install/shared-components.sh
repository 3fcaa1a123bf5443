#!/usr/bin/env bash
# The x64 and x86 packages can be installed side by side: the only component
# they share is the help file, in the machine's data folder. Any other shared
# component would be counted as one, and removing one package would break
# the other.
#   shared-components.sh X64_PACKAGE X86_PACKAGE
set -uo pipefail
components() { msiinfo export "$1" Component | tr -d '\r' | tail -n +4 | awk -F'\t' '{ print $2, $1 }' | sort; }
shared=$(join <(components "$1") <(components "$2") | awk '{ print $2 "/" $3 }')
echo "shared components: ${shared:-none}"
[ "$shared" = "HelpFile/HelpFile" ] || { echo "FAILED: the packages may share the help file only"; exit 1; }
