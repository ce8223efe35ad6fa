#include "changes/exportSettings.h"

#include <nlohmann/json.hpp>

#include "changes/settingValues.h"

namespace {

using Object = nlohmann::ordered_json;

constexpr int kIndentation = 2;

// For what a setting accepts.
Object jsonOf(const PropertyListValue& value) {
  if (const auto* text = value.get<std::string>()) {
    return *text;
  }
  if (const auto* list = value.get<PropertyListArray>()) {
    Object array = Object::array();
    for (const auto& element : *list) {
      array.push_back(jsonOf(element));
    }
    return array;
  }
  return integerOrZero(value);
}

}  // namespace

ExportedSettings exportSettings(const PropertyListDictionary& stored) {
  ExportedSettings result;
  Object object = Object::object();
  for (const auto& setting : settings::kAll) {
    const auto entry = stored.find(setting.key);
    if (entry == stored.end()) {
      continue;
    }
    if (const auto value = accepted(setting, entry->second)) {
      object[std::string(setting.key)] = jsonOf(*value);
    } else {
      result.leftOut.push_back(&setting);
    }
  }
  const Object file{{"format", kExportFormat}, {"version", kExportVersion}, {"settings", object}};
  result.text = file.dump(kIndentation) + '\n';
  return result;
}
