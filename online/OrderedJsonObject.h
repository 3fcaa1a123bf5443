#pragma once
// A JSON object whose members are written in the order they were added.
// jsoncpp keeps an object's members sorted by name; a document whose readers
// expect a fixed member order is built with this instead.
#include <json/value.h>

#include <string>

namespace kvt1::json {

class OrderedObject {
 public:
  // Appends a member; a name already added is appended again, never replaced.
  void add(const std::string& name, const Json::Value& value);
  void add(const std::string& name, const OrderedObject& value);

  // The object's compact JSON text, "{...}".
  std::string text() const;

 private:
  void addText(const std::string& name, const std::string& valueText);

  std::string m_members;  // "name":value pairs, comma-separated
};

}  // namespace kvt1::json
