# Shared part of the MinGW toolchain files; KVT1_MINGW_TRIPLET is set by the caller.
set(CMAKE_C_COMPILER ${KVT1_MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${KVT1_MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${KVT1_MINGW_TRIPLET}-windres)

# Debian's MinGW sysroot, and the folder where the setup script installs
# what Debian only ships as source (jsoncpp).
set(KVT1_DEPS_DIR "$ENV{KVT1_DEPS_DIR}")
if(NOT KVT1_DEPS_DIR)
  set(KVT1_DEPS_DIR /opt/kvt1-deps)
endif()
set(CMAKE_FIND_ROOT_PATH /usr/${KVT1_MINGW_TRIPLET} ${KVT1_DEPS_DIR}/${KVT1_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Binaries carry their C and C++ runtimes, so Wine (or a user's machine)
# needs no MinGW DLLs beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")
