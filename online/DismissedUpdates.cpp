#include "online/DismissedUpdates.h"

#include "online/JsonText.h"
#include "platform/Unicode.h"

namespace Hv::Http {
namespace {

bool productNumber(const Json::Value& value, std::uint32_t& out) {
  if (!value.isUInt()) return false;
  out = value.asUInt();
  return true;
}

// One half of a time: unsigned as written, or a negative int read as its bit pattern.
bool timeHalf(const Json::Value& value, std::uint32_t& out) {
  if (value.isUInt()) {
    out = value.asUInt();
    return true;
  }
  if (value.isInt()) {
    out = static_cast<std::uint32_t>(value.asInt());
    return true;
  }
  return false;
}

// The member as an array; a missing member counts as an empty one.
bool arrayMember(const Json::Value& root, const char* name, const Json::Value*& out) {
  static const Json::Value empty(Json::arrayValue);
  const Json::Value* value = kvt1::json::member(root, name);
  out = value ? value : &empty;
  return out->isArray();
}

}  // namespace

bool ReadDismissedUpdates(const std::wstring& text, DismissedMap& dismissed) {
  Json::Value root;
  if (!kvt1::json::parse(kvt1::platform::toUtf8(text), root) || !root.isObject()) return false;
  const Json::Value* products = nullptr;
  const Json::Value* times = nullptr;
  if (!arrayMember(root, "Products", products) || !arrayMember(root, "Times", times)) return false;
  const Json::ArrayIndex count = products->size();
  if (times->size() / 2 != count) return false;

  DismissedMap loaded;
  for (Json::ArrayIndex i = 0; i < count; ++i) {
    std::uint32_t product = 0;
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    if (!productNumber((*products)[i], product) || !timeHalf((*times)[2 * i], low) ||
        !timeHalf((*times)[2 * i + 1], high)) {
      return false;
    }
    loaded[product] = static_cast<std::int64_t>((static_cast<std::uint64_t>(high) << 32) | low);
  }
  dismissed.swap(loaded);
  return true;
}

std::wstring WriteDismissedUpdates(const DismissedMap& dismissed) {
  Json::Value root(Json::objectValue);
  Json::Value& products = root["Products"] = Json::Value(Json::arrayValue);
  Json::Value& times = root["Times"] = Json::Value(Json::arrayValue);
  for (const auto& [product, time] : dismissed) {
    const auto bits = static_cast<std::uint64_t>(time);
    products.append(Json::Value(Json::UInt(product)));
    times.append(Json::Value(Json::UInt(bits & 0xFFFFFFFFu)));
    times.append(Json::Value(Json::UInt(bits >> 32)));
  }
  return kvt1::platform::fromUtf8(kvt1::json::write(root));
}

}  // namespace Hv::Http
