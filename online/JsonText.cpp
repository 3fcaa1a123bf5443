#include "online/JsonText.h"

#include <memory>

#include "platform/Unicode.h"

namespace kvt1::json {

bool parse(const std::string& utf8, Json::Value& root) {
  Json::CharReaderBuilder builder;
  builder["failIfExtra"] = true;
  builder["collectComments"] = false;
  const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
  Json::Value parsed;
  std::string errors;
  try {
    // The reader throws when the nesting passes its stack limit.
    if (!reader->parse(utf8.data(), utf8.data() + utf8.size(), &parsed, &errors)) return false;
  } catch (const std::exception&) {
    return false;
  }
  root.swap(parsed);
  return true;
}

const Json::Value* member(const Json::Value& value, const char* name) {
  if (!value.isObject()) return nullptr;
  return value.find(name, name + std::char_traits<char>::length(name));
}

void read(const Json::Value& object, const char* name, bool& target) {
  const Json::Value* value = member(object, name);
  if (value && value->isBool()) target = value->asBool();
}

void read(const Json::Value& object, const char* name, std::uint32_t& target) {
  const Json::Value* value = member(object, name);
  if (value && value->isUInt()) target = value->asUInt();
}

void read(const Json::Value& object, const char* name, std::wstring& target) {
  const Json::Value* value = member(object, name);
  if (value && value->isString()) target = platform::fromUtf8(value->asString());
}

std::string write(const Json::Value& value) {
  Json::StreamWriterBuilder builder;
  builder["indentation"] = "";
  return Json::writeString(builder, value);
}

}  // namespace kvt1::json
