# The module's version information, written once here and compiled into an
# image either as a Windows VERSIONINFO resource (windres) or, elsewhere, as an
# embedded table that the version port reads with the same lookup rules.
set(KVT1_COMPANY_NAME "Halvorn Aero")
set(KVT1_PRODUCT_NAME "KVT")
set(KVT1_FILE_DESCRIPTION "KVT1 interface module for the CAD host")
set(KVT1_COPYRIGHT "Copyright (C) 2018 Halvorn Aero")
set(KVT1_VERSION_TEXT "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH}.${PROJECT_VERSION_TWEAK}")
# Language 0x0409 (US English), code page 1200 (UTF-16).
set(KVT1_VERSION_LANGUAGE 0409)
set(KVT1_VERSION_CODEPAGE 04b0)

# Host release -> release year, as the module's file name carries it.
set(_kvt1_release_years 18 2010 19 2013 20 2015 21 2017 22 2018)
list(FIND _kvt1_release_years ${KVT1_HOST_RELEASE} _kvt1_index)
if(_kvt1_index EQUAL -1 OR _kvt1_index GREATER 9)
  message(FATAL_ERROR "KVT1_HOST_RELEASE must be one of 18..22, not ${KVT1_HOST_RELEASE}")
endif()
math(EXPR _kvt1_index "${_kvt1_index} + 1")
list(GET _kvt1_release_years ${_kvt1_index} KVT1_HOST_RELEASE_YEAR)
set(KVT1_MODULE_BASENAME "kvt${KVT1_HOST_RELEASE_YEAR}")

function(kvt1_add_version_resource target original_filename)
  set(KVT1_ORIGINAL_FILENAME "${original_filename}")
  set(generated ${CMAKE_CURRENT_BINARY_DIR}/${target}_version)
  if(WIN32)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/templates/version.rc.in ${generated}.rc @ONLY)
    target_sources(${target} PRIVATE ${generated}.rc)
  else()
    configure_file(${PROJECT_SOURCE_DIR}/cmake/templates/EmbeddedVersionInfo.cpp.in ${generated}.cpp @ONLY)
    target_sources(${target} PRIVATE ${generated}.cpp)
    target_link_libraries(${target} PRIVATE kvt1_platform)
  endif()
endfunction()
