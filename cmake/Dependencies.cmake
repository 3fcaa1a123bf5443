# Libraries taken from Debian's packages (natively) or from the MinGW sysroot
# and the setup script's jsoncpp build (cross). Each is exposed as kvt1::<name>.
# What the setup script builds from Debian's source packages (litehtml, and
# jsoncpp for MinGW) lies in one folder per target; the MinGW toolchain
# files add theirs to the find root.
if(NOT CMAKE_CROSSCOMPILING)
  set(KVT1_DEPS_DIR "$ENV{KVT1_DEPS_DIR}")
  if(NOT KVT1_DEPS_DIR)
    set(KVT1_DEPS_DIR /opt/kvt1-deps)
  endif()
  list(APPEND CMAKE_PREFIX_PATH ${KVT1_DEPS_DIR}/linux)
endif()

if(WIN32)
  # Windows binaries carry zlib inside, like their C and C++ runtimes.
  set(ZLIB_USE_STATIC_LIBS ON)
endif()
find_package(ZLIB REQUIRED)
add_library(kvt1::zlib ALIAS ZLIB::ZLIB)

find_package(jsoncpp CONFIG QUIET)
if(TARGET jsoncpp_static)
  add_library(kvt1::jsoncpp ALIAS jsoncpp_static)
elseif(TARGET jsoncpp_lib)
  add_library(kvt1::jsoncpp ALIAS jsoncpp_lib)
else()
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(JSONCPP REQUIRED IMPORTED_TARGET jsoncpp)
  add_library(kvt1::jsoncpp ALIAS PkgConfig::JSONCPP)
endif()

if(KVT1_BUILD_TESTS)
  if(CMAKE_CROSSCOMPILING)
    # Debian ships GoogleTest's sources; cross builds compile them with the
    # target toolchain
    set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
    set(gtest_disable_pthreads OFF CACHE BOOL "" FORCE)
    # (it defines the GTest:: targets itself).
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  else()
    find_package(GTest REQUIRED)
  endif()
endif()

if(KVT1_BUILD_BENCH)
  find_package(benchmark REQUIRED)
endif()
