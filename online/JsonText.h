#pragma once
// jsoncpp at the module's edge: parsing without exceptions and typed member
// reads that leave the target alone when a member is missing or mistyped.
#include <json/json.h>

#include <cstdint>
#include <string>

namespace kvt1::json {

// False (root untouched) when the text is not one JSON value, nests too
// deeply, or carries anything after it.
bool parse(const std::string& utf8, Json::Value& root);

// The member of an object, or null when value is no object or lacks it.
const Json::Value* member(const Json::Value& value, const char* name);

void read(const Json::Value& object, const char* name, bool& target);
void read(const Json::Value& object, const char* name, std::uint32_t& target);
void read(const Json::Value& object, const char* name, std::wstring& target);

std::string write(const Json::Value& value);

}  // namespace kvt1::json
