#include "online/OrderedJsonObject.h"

#include "online/JsonText.h"

namespace kvt1::json {

void OrderedObject::add(const std::string& name, const Json::Value& value) { addText(name, write(value)); }

void OrderedObject::add(const std::string& name, const OrderedObject& value) { addText(name, value.text()); }

std::string OrderedObject::text() const { return "{" + m_members + "}"; }

void OrderedObject::addText(const std::string& name, const std::string& valueText) {
  if (!m_members.empty()) m_members += ',';
  m_members += write(Json::Value(name));
  m_members += ':';
  m_members += valueText;
}

}  // namespace kvt1::json
