#include "online/usage/ZlibText.h"

#include <zlib.h>

namespace kvt1::usage {

// The fastest level: a report is mostly digits, where higher levels cost
// several times the time for a few per cent of size.
std::string deflateText(std::string_view text) {
  uLongf size = compressBound(static_cast<uLong>(text.size()));
  std::string stream(size, '\0');
  if (compress2(reinterpret_cast<Bytef*>(stream.data()), &size, reinterpret_cast<const Bytef*>(text.data()),
                static_cast<uLong>(text.size()), Z_BEST_SPEED) != Z_OK) {
    return std::string();
  }
  stream.resize(size);
  return stream;
}

bool inflateText(std::string_view stream, std::string& text, std::size_t limit) {
  z_stream inflater{};
  if (inflateInit(&inflater) != Z_OK) return false;
  inflater.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(stream.data()));
  inflater.avail_in = static_cast<uInt>(stream.size());

  std::string out;
  char chunk[64 * 1024];
  int result = Z_OK;
  while (result == Z_OK) {
    inflater.next_out = reinterpret_cast<Bytef*>(chunk);
    inflater.avail_out = sizeof chunk;
    result = inflate(&inflater, Z_NO_FLUSH);
    const std::size_t produced = sizeof chunk - inflater.avail_out;
    if (out.size() + produced > limit) {
      result = Z_MEM_ERROR;
      break;
    }
    out.append(chunk, produced);
    // No progress with input left over: the stream is cut short.
    if (result == Z_BUF_ERROR || (result == Z_OK && produced == 0 && inflater.avail_in == 0)) break;
  }
  const bool complete = result == Z_STREAM_END && inflater.avail_in == 0;
  inflateEnd(&inflater);
  if (!complete) return false;
  text.swap(out);
  return true;
}

}  // namespace kvt1::usage
