#include "platform/CodePage.h"

#include <iconv.h>

#include <cerrno>
#include <cstdlib>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <tuple>
#include <utility>

#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

// The iconv name of a Windows code page number.
std::string iconvName(unsigned codePage) {
  switch (codePage) {
    case kCodePageUtf8:
      return "UTF-8";
    case 1200:
      return "UTF-16LE";
    case 1201:
      return "UTF-16BE";
    case 12000:
      return "UTF-32LE";
    case 12001:
      return "UTF-32BE";
    case 20127:
      return "ASCII";
    case 20866:
      return "KOI8-R";
    case 21866:
      return "KOI8-U";
    case 936:
      return "GBK";
    case 950:
      return "BIG5";
    case 54936:
      return "GB18030";
    case 51932:
      return "EUC-JP";
    case 51949:
      return "EUC-KR";
    default:
      break;
  }
  if (codePage >= 28591 && codePage <= 28606) return "ISO-8859-" + std::to_string(codePage - 28590);
  return "CP" + std::to_string(codePage);
}

const iconv_t kNoDescriptor = reinterpret_cast<iconv_t>(-1);

// Descriptors stay open until the image goes: opening one costs far more
// than most conversions. A descriptor keeps conversion state, so each thread
// has its own; they are kept in one table by thread rather than in
// thread-local storage, whose destructors would keep the image loaded until
// the thread that used it ends (a host could not unload the module). A thread
// that comes with the id of an ended one takes over its descriptors.
class Descriptors {
 public:
  ~Descriptors() {
    for (auto& entry : open_) {
      if (entry.second != kNoDescriptor) iconv_close(entry.second);
    }
  }
  iconv_t get(const std::string& from, const std::string& to) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto [it, inserted] = open_.try_emplace({std::this_thread::get_id(), from, to}, kNoDescriptor);
    if (inserted) it->second = iconv_open(to.c_str(), from.c_str());
    return it->second;
  }

 private:
  std::mutex mutex_;
  std::map<std::tuple<std::thread::id, std::string, std::string>, iconv_t> open_;
};

iconv_t descriptor(const std::string& from, const std::string& to) {
  static Descriptors descriptors;
  return descriptors.get(from, to);
}

// Converts with the pair's descriptor. A unit that cannot be converted is
// replaced and reported; for UTF-8 input the unit is a whole character.
bool convert(const std::string& from, const std::string& to, std::string_view input, std::string& output,
             const std::string& replacement, bool inputIsUtf8) {
  output.clear();
  iconv_t cd = descriptor(from, to);
  if (cd == kNoDescriptor) return false;
  iconv(cd, nullptr, nullptr, nullptr, nullptr);  // back to the initial state
  bool lossless = true;
  char* in = const_cast<char*>(input.data());
  std::size_t inLeft = input.size();
  std::string buffer(input.size() * 4 + 16, '\0');
  for (;;) {
    char* out = buffer.data();
    std::size_t outLeft = buffer.size();
    const std::size_t result =
        inLeft > 0 ? iconv(cd, &in, &inLeft, &out, &outLeft) : iconv(cd, nullptr, nullptr, &out, &outLeft);
    const int error = errno;
    output.append(buffer.data(), buffer.size() - outLeft);
    if (inLeft == 0 && result != static_cast<std::size_t>(-1)) break;
    if (result != static_cast<std::size_t>(-1) || error == E2BIG) continue;
    // EILSEQ or EINVAL: skip the unit that cannot be converted.
    lossless = false;
    output += replacement;
    ++in, --inLeft;
    while (inputIsUtf8 && inLeft > 0 && (static_cast<unsigned char>(*in) & 0xC0) == 0x80) ++in, --inLeft;
  }
  return lossless;
}

}  // namespace

unsigned ansiCodePage() {
  static const unsigned configuredOnce = [] {
    const char* configured = std::getenv("KVT1_ANSI_CODEPAGE");
    if (configured == nullptr) return 1252u;
    const unsigned long number = std::strtoul(configured, nullptr, 10);
    return number > 0 && isCodePageSupported(static_cast<unsigned>(number)) ? static_cast<unsigned>(number) : 1252u;
  }();
  return configuredOnce;
}

bool isCodePageSupported(unsigned codePage) { return descriptor(iconvName(codePage), "UTF-8") != kNoDescriptor; }

bool bytesToWide(unsigned codePage, std::string_view bytes, std::wstring& out) {
  std::string utf8;
  const bool lossless = convert(iconvName(codePage), "UTF-8", bytes, utf8, "\xEF\xBF\xBD", false);
  out = fromUtf8(utf8);
  return lossless;
}

bool wideToBytes(unsigned codePage, std::wstring_view text, std::string& out) {
  return convert("UTF-8", iconvName(codePage), toUtf8(text), out, "?", true);
}

}  // namespace kvt1::platform
