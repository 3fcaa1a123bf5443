#pragma once
// The version information that a Linux image carries in place of a Windows
// VERSIONINFO resource. Each image that has one defines kvt1EmbeddedVersionInfo
// (generated at build time); the symbol is hidden, so every image sees its own.
#include <cstddef>
#include <cstdint>

namespace kvt1::platform {

struct EmbeddedVersionString {
  const wchar_t* subBlock;
  const wchar_t* value;
};

struct EmbeddedVersionInfo {
  std::uint32_t fileVersionMS;
  std::uint32_t fileVersionLS;
  std::uint32_t productVersionMS;
  std::uint32_t productVersionLS;
  const std::uint16_t* translations;  // (language, code page) pairs
  std::size_t translationCount;
  const EmbeddedVersionString* strings;
  std::size_t stringCount;
};

}  // namespace kvt1::platform

extern "C" __attribute__((weak, visibility("hidden")))
const kvt1::platform::EmbeddedVersionInfo kvt1EmbeddedVersionInfo;
