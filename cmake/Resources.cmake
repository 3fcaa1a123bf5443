# Resources of an image: pages, style sheets, pictures, the text document.
# On Windows they are compiled in with windres; elsewhere the same files are
# embedded as a table (see platform/posix/EmbeddedResources.h) that the
# resource port searches by the same rules.
#
#   kvt1_add_resources(<target> RESOURCES <type> <name> <file> [<type> <name> <file> ...])
#
# A type or name made of digits is a number (23 is RT_HTML); anything else is a text.

set(_kvt1_embed_script ${CMAKE_CURRENT_LIST_DIR}/EmbedResources.cmake)

function(kvt1_add_resources target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "RESOURCES")
  list(LENGTH arg_RESOURCES count)
  math(EXPR remainder "${count} % 3")
  if(count EQUAL 0 OR NOT remainder EQUAL 0)
    message(FATAL_ERROR "kvt1_add_resources(${target}): RESOURCES takes type, name, file triples")
  endif()

  set(entries "")
  set(files "")
  math(EXPR last "${count} - 1")
  foreach(i RANGE 0 ${last} 3)
    math(EXPR n "${i} + 1")
    math(EXPR f "${i} + 2")
    list(GET arg_RESOURCES ${i} type)
    list(GET arg_RESOURCES ${n} name)
    list(GET arg_RESOURCES ${f} file)
    if(NOT IS_ABSOLUTE "${file}")
      set(file ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    endif()
    list(APPEND files ${file})
    if(WIN32)
      string(APPEND entries "${name} ${type} \"${file}\"\n")
    else()
      string(APPEND entries "${type}|${name}|${file}\n")
    endif()
  endforeach()

  set(generated ${CMAKE_CURRENT_BINARY_DIR}/${target}_resources)
  if(WIN32)
    file(CONFIGURE OUTPUT ${generated}.rc CONTENT "${entries}")
    set_source_files_properties(${generated}.rc PROPERTIES OBJECT_DEPENDS "${files}")
    target_sources(${target} PRIVATE ${generated}.rc)
  else()
    file(CONFIGURE OUTPUT ${generated}.list CONTENT "${entries}")
    add_custom_command(OUTPUT ${generated}.cpp
      COMMAND ${CMAKE_COMMAND} -DLIST=${generated}.list -DOUTPUT=${generated}.cpp -P ${_kvt1_embed_script}
      DEPENDS ${files} ${generated}.list ${_kvt1_embed_script}
      COMMENT "Embedding the resources of ${target}"
      VERBATIM)
    target_sources(${target} PRIVATE ${generated}.cpp)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
    # Every image exports its table under the same name, on purpose; the
    # address sanitizer would take a program's and its module's tables for
    # one variable defined twice.
    if(KVT1_SANITIZE)
      set_source_files_properties(${generated}.cpp PROPERTIES COMPILE_OPTIONS -fno-sanitize=address)
    endif()
  endif()
endfunction()

# Converts a UTF-8 text file into the form of a text resource: UTF-16
# little-endian without a byte order mark, ending in a NUL character.
function(kvt1_utf16_resource output input)
  if(NOT IS_ABSOLUTE "${input}")
    set(input ${CMAKE_CURRENT_SOURCE_DIR}/${input})
  endif()
  add_custom_command(OUTPUT ${output}
    COMMAND sh -c "iconv -f UTF-8 -t UTF-16LE \"$0\" > \"$1\" && printf '\\000\\000' >> \"$1\"" ${input} ${output}
    DEPENDS ${input}
    COMMENT "Converting ${input} to UTF-16"
    VERBATIM)
endfunction()
