#pragma once
// The text of a page or style sheet handed to the engine as bytes: UTF-8
// (with or without a byte order mark), or UTF-16LE after its byte order mark.
#include <cstddef>
#include <string>

namespace kvt1::html {

std::wstring decodePageBytes(const unsigned char* data, std::size_t size);

}  // namespace kvt1::html
