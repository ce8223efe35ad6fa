#include "platform/preferences/PSSpecifier.h"

#include <utility>

constexpr ClassOf<PSSpecifier> PSSpecifier::classObject{"PSSpecifier"};

std::shared_ptr<PSSpecifier> PSSpecifier::groupSpecifierWithName(std::string name) {
  return preferenceSpecifierNamedTargetSetGetDetailCellEdit(std::move(name), nullptr, "", "", "",
                                                            PSCellType::kGroup, "");
}

std::shared_ptr<PSSpecifier> PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
    std::string name, const std::shared_ptr<NSObject>& target, std::string_view set,
    std::string_view get, std::string_view detail, PSCellType cell, std::string_view edit) {
  auto specifier = allocInit<PSSpecifier>();
  specifier->configure(std::move(name), target, set, get, detail, cell, edit);
  return specifier;
}

void PSSpecifier::configure(std::string name, const std::shared_ptr<NSObject>& target,
                            std::string_view set, std::string_view get, std::string_view detail,
                            PSCellType cell, std::string_view edit) {
  name_ = std::move(name);
  target_ = target;
  setter_ = set;
  getter_ = get;
  detail_ = detail;
  cellType_ = cell;
  edit_ = edit;
}

std::string PSSpecifier::identifier() const {
  return textForKey("id").value_or(name_);
}

bool PSSpecifier::performAction() {
  const auto target = target_.lock();
  return target && !action_.empty() && target->performAction(action_, this);
}

std::optional<PropertyListValue> PSSpecifier::value() {
  const auto target = target_.lock();
  return target && !getter_.empty() ? target->performGetter(getter_, *this) : std::nullopt;
}

void PSSpecifier::setValue(const PropertyListValue& value) {
  const auto target = target_.lock();
  if (target && !setter_.empty()) {
    target->performSetter(setter_, value, *this);
  }
}

std::optional<PSPropertyValue> PSSpecifier::propertyForKey(std::string_view key) const {
  const std::lock_guard lock(mutex_);
  const auto found = properties_.find(key);
  return found == properties_.end() ? std::nullopt : std::optional(found->second);
}

void PSSpecifier::setPropertyForKey(PSPropertyValue value, std::string_view key) {
  const std::lock_guard lock(mutex_);
  properties_.insert_or_assign(std::string(key), std::move(value));
}

std::map<std::string, PSPropertyValue, std::less<>> PSSpecifier::properties() const {
  const std::lock_guard lock(mutex_);
  return properties_;
}

std::optional<PropertyListValue> PSSpecifier::plistForKey(std::string_view key) const {
  const auto property = propertyForKey(key);
  const auto* value = property ? std::get_if<PropertyListValue>(&*property) : nullptr;
  return value ? std::optional(*value) : std::nullopt;
}

std::optional<std::string> PSSpecifier::textForKey(std::string_view key) const {
  return textOrNothing(plistForKey(key));
}

const ClassDescription* PSSpecifier::classForKey(std::string_view key) const {
  const auto property = propertyForKey(key);
  if (!property) {
    return nullptr;
  }
  if (const auto* description = std::get_if<const ClassDescription*>(&*property)) {
    return *description;
  }
  const auto name = textForKey(key);
  return name ? NSClassFromString(*name) : nullptr;
}
