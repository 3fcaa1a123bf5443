# Every program, module and library lands in one folder, so that a module
# finds the host's core library and tests find what they load.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

# Warnings, cache and platform flags shared by every target.
find_program(KVT1_CCACHE ccache)
if(KVT1_CCACHE)
  # Paths below the source folder are hashed relative to it, so that a fresh
  # clone elsewhere (CI) finds what an earlier build compiled.
  set(KVT1_CCACHE_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
                           ${KVT1_CCACHE})
  set(CMAKE_C_COMPILER_LAUNCHER ${KVT1_CCACHE_LAUNCHER})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${KVT1_CCACHE_LAUNCHER})
endif()

add_compile_options(-Wall -Wextra -Wno-unused-parameter)

if(WIN32)
  # Unicode Win32 calls, no min/max macros, and C99 printf semantics in MinGW
  # so that wide formats behave as on Linux.
  add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
                          _WIN32_WINNT=0x0601 __USE_MINGW_ANSI_STDIO=1)
endif()

if(KVT1_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

# Coverage feedback for libFuzzer from every library a fuzz target links.
if(KVT1_BUILD_FUZZ AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
