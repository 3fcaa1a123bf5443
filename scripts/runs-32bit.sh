#!/usr/bin/env bash
# Exits 0 when this machine runs 32-bit x86 programs, 1 when it does not.
#
# The answer comes from running one: a 96-byte i386 ELF written here, whose
# only instructions are the exit system call with status 42. Neither the
# kernel's configuration nor a /proc switch answers reliably: a kernel built
# with IA32 emulation can still have it turned off at boot (ia32_emulation=off,
# or a hypervisor's own policy, "32-bit emulation disabled"), and a container
# may refuse what its host allows. Such a kernel refuses the exec itself
# (Exec format error); only a kernel that runs the program returns the 42.
set -u

# A temporary folder that runs no programs at all answers no: the safe side.
folder=$(mktemp -d) || exit 1
trap 'rm -rf "$folder"' EXIT
probe=$folder/exit42

# ELF header (52 bytes), one loadable segment (32 bytes) mapping the whole
# file at 0x08048000, then the code at 0x08048054:
#   mov ebx, 42; mov eax, 1 (exit); int 0x80
printf '%b' \
  '\x7fELF\x01\x01\x01\x00\x00\x00\x00\x00\x00\x00\x00\x00' \
  '\x02\x00\x03\x00\x01\x00\x00\x00\x54\x80\x04\x08\x34\x00\x00\x00' \
  '\x00\x00\x00\x00\x00\x00\x00\x00\x34\x00\x20\x00\x01\x00\x00\x00' \
  '\x00\x00\x00\x00' \
  '\x01\x00\x00\x00\x00\x00\x00\x00\x00\x80\x04\x08\x00\x80\x04\x08' \
  '\x60\x00\x00\x00\x60\x00\x00\x00\x05\x00\x00\x00\x00\x10\x00\x00' \
  '\xbb\x2a\x00\x00\x00\xb8\x01\x00\x00\x00\xcd\x80' >"$probe"
chmod +x "$probe"

"$probe" 2>/dev/null
[ $? -eq 42 ]
