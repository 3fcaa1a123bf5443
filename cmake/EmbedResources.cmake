# Writes the embedded resource table of an image (run with cmake -P).
# LIST: lines "type|name|file"; OUTPUT: the C++ source to write.
file(STRINGS ${LIST} lines)

function(_kvt1_id_fields text number_var name_var)
  if(text MATCHES "^[0-9]+$")
    set(${number_var} ${text} PARENT_SCOPE)
    set(${name_var} "nullptr" PARENT_SCOPE)
  else()
    set(${number_var} 0 PARENT_SCOPE)
    set(${name_var} "L\"${text}\"" PARENT_SCOPE)
  endif()
endfunction()

set(arrays "")
set(entries "")
set(index 0)
foreach(line IN LISTS lines)
  string(REPLACE "|" ";" fields "${line}")
  list(GET fields 0 type)
  list(GET fields 1 name)
  list(GET fields 2 file)
  file(READ ${file} hex HEX)
  string(LENGTH "${hex}" digits)
  math(EXPR size "${digits} / 2")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
  string(REGEX REPLACE "((0x..,){24})" "\\1\n" bytes "${bytes}")
  # A zero-length array is not valid C++: an empty file keeps one unused byte.
  if(size EQUAL 0)
    set(bytes "0x00,")
  endif()
  string(APPEND arrays "const unsigned char resource${index}[] = {\n${bytes}\n};\n")
  _kvt1_id_fields("${type}" type_number type_name)
  _kvt1_id_fields("${name}" name_number name_name)
  string(APPEND entries "  {${type_number}, ${type_name}, ${name_number}, ${name_name}, resource${index}, ${size}},\n")
  math(EXPR index "${index} + 1")
endforeach()

file(WRITE ${OUTPUT}.tmp "// Generated from ${LIST}; do not edit.
#include \"platform/posix/EmbeddedResources.h\"

namespace {
${arrays}
const kvt1::platform::EmbeddedResource entries[] = {
${entries}};
}  // namespace

extern \"C\" __attribute__((visibility(\"default\")))
const kvt1::platform::EmbeddedResourceTable kvt1EmbeddedResources = {entries, ${index}};
")
file(RENAME ${OUTPUT}.tmp ${OUTPUT})
