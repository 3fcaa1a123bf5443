#pragma once
// Texts as zlib streams (RFC 1950), the form of the usage report on disk and
// on the wire.
#include <cstddef>
#include <string>
#include <string_view>

namespace kvt1::usage {

// The whole text as one zlib stream; empty only when zlib failed.
std::string deflateText(std::string_view text);

// The text of exactly one complete zlib stream; false for a truncated or
// damaged stream, bytes after its end, or a text longer than limit.
bool inflateText(std::string_view stream, std::string& text, std::size_t limit);

}  // namespace kvt1::usage
