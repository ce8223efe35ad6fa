#include "platform/foundation/ClassDescription.h"

#include <map>

namespace {

std::map<std::string_view, const ClassDescription*>& registry() {
  static std::map<std::string_view, const ClassDescription*> classes;
  return classes;
}

}  // namespace

const Method* ClassDescription::methodForSelector(std::string_view selector) const {
  for (const auto* description = this; description; description = description->superclass) {
    for (const auto& method : description->methods) {
      if (method.selector == selector) {
        return &method;
      }
    }
  }
  return nullptr;
}

bool ClassDescription::isSubclassOf(const ClassDescription& other) const {
  for (const auto* description = this; description; description = description->superclass) {
    if (description == &other) {
      return true;
    }
  }
  return false;
}

std::shared_ptr<NSObject> ClassDescription::performFactory(
    std::string_view selector, const std::shared_ptr<NSObject>& argument) const {
  const auto* method = methodForSelector(selector);
  const auto* factory = method ? std::get_if<Method::Factory>(&method->implementation) : nullptr;
  return factory ? (*factory)(argument) : nullptr;
}

void registerClasses(const ClassTable& table) {
  for (const auto* description : table.classes) {
    registry().emplace(description->name, description);
  }
}

const ClassDescription* NSClassFromString(std::string_view name) {
  const auto found = registry().find(name);
  return found == registry().end() ? nullptr : found->second;
}
