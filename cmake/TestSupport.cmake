# Test registration. Linux test programs are split into one CTest test per
# GoogleTest case. Windows test programs run under Wine, one CTest test per
# program, in a Wine prefix that a fixture prepares under the build folder.
include(GoogleTest)

if(CMAKE_CROSSCOMPILING AND WIN32)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(KVT1_WINE_LOADER /usr/lib/wine/wine64)
    set(KVT1_WINEARCH win64)
  else()
    set(KVT1_WINE_LOADER /usr/lib/wine/wine)
    set(KVT1_WINEARCH win32)
  endif()
  set(KVT1_WINEPREFIX ${CMAKE_BINARY_DIR}/wineprefix)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/templates/wine-run.in ${CMAKE_BINARY_DIR}/wine-run @ONLY
                 FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

  if(EXISTS ${KVT1_WINE_LOADER})
    set(KVT1_WINE_AVAILABLE ON)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_BINARY_DIR}/wine-run)
    add_test(NAME wine_prefix_prepare COMMAND ${CMAKE_BINARY_DIR}/wine-run --prepare)
    set_tests_properties(wine_prefix_prepare PROPERTIES FIXTURES_SETUP wine TIMEOUT 600)
    add_test(NAME wine_prefix_shutdown COMMAND ${CMAKE_BINARY_DIR}/wine-run --shutdown)
    set_tests_properties(wine_prefix_shutdown PROPERTIES FIXTURES_CLEANUP wine)
  else()
    set(KVT1_WINE_AVAILABLE OFF)
    message(STATUS "SKIPPING the ${CMAKE_SYSTEM_PROCESSOR} Windows tests: ${KVT1_WINE_LOADER} is missing "
                   "(Debian's wine32:i386, which the setup installs only where the kernel runs 32-bit programs)")
  endif()
endif()

# kvt1_add_test(<name> SOURCES <files...> LIBRARIES <targets...>)
function(kvt1_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})

  if(NOT CMAKE_CROSSCOMPILING)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
  elseif(KVT1_WINE_AVAILABLE)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED wine TIMEOUT 600)
  else()
    # A test that says why it did not run, and counts as skipped.
    add_test(NAME ${name}
             COMMAND ${CMAKE_COMMAND} -E echo
                     "SKIPPED: ${name} needs ${KVT1_WINE_LOADER} (Debian's wine32:i386), installed only where the kernel runs 32-bit programs")
    set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION "SKIPPED:")
  endif()
endfunction()
