#include "platform/preferences/SpecifierListReader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/preferences/PSTableCell.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/services.h"
#include "platform/uikit/UIImage.h"

namespace {

// Entries that say how the row is made; everything else is a property of the row.
constexpr std::array<std::string_view, 9> kMakingKeys{
    "cell", "label", "get", "set", "detail", "action", "placeholder", "keyboard", "icon"};

std::string textOf(const PropertyListDictionary& item, std::string_view key,
                   std::string_view otherwise = "") {
  const auto found = item.find(key);
  const auto* text = found == item.end() ? nullptr : found->second.get<std::string>();
  return text ? *text : std::string(otherwise);
}

std::shared_ptr<PSSpecifier> makeField(const PropertyListDictionary& item,
                                       const std::shared_ptr<NSObject>& target,
                                       std::string_view set, std::string_view get) {
  auto field = PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      textOf(item, "label"), target, set, get, "", PSCellType::kEditText, "");
  field->setPlaceholder(textOf(item, "placeholder"));
  if (textOf(item, "keyboard") == "phone") {
    field->setKeyboardTypeAutoCapsAutoCorrection(UIKeyboardType::kPhonePad,
                                                 UITextAutocapitalizationType::kNone,
                                                 UITextAutocorrectionType::kNo);
  }
  return field;
}

std::shared_ptr<PSSpecifier> makeRow(const PropertyListDictionary& item,
                                     const std::shared_ptr<NSObject>& target) {
  const auto cell = PSTableCell::cellTypeFromString(textOf(item, "cell"));
  if (cell == PSCellType::kGroup) {
    return PSSpecifier::groupSpecifierWithName(textOf(item, "label"));
  }
  const auto get = textOf(item, "get", "readPreferenceValue:");
  const auto set = textOf(item, "set", "setPreferenceValue:specifier:");
  if (cell == PSCellType::kEditText) {
    return makeField(item, target, set, get);
  }
  auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      textOf(item, "label"), target, set, get, textOf(item, "detail"), cell, "");
  row->setAction(textOf(item, "action"));
  return row;
}

void addProperties(PSSpecifier& row, const PropertyListDictionary& item, const NSBundle& bundle) {
  for (const auto& [key, value] : item) {
    if (std::ranges::find(kMakingKeys, key) == kMakingKeys.end()) {
      row.setPropertyForKey(value, key);
    }
  }
  const auto icon = textOf(item, "icon");
  if (icon.empty()) {
    return;
  }
  if (auto image = UIImage::imageNamed(bundle.bundlePath() + "/" + icon)) {
    row.setPropertyForKey(std::shared_ptr<NSObject>(std::move(image)), "iconImage");
  }
}

}  // namespace

SpecifierList readSpecifierList(const NSBundle& bundle, std::string_view name,
                                const std::shared_ptr<NSObject>& target) {
  SpecifierList list;
  const auto resource =
      services().files->dictionaryWithContentsOfFile(bundle.pathForResource(name, "plist"));
  if (!resource) {
    return list;
  }
  list.title = textOf(*resource, "title");
  const auto found = resource->find("items");
  const auto* items = found == resource->end() ? nullptr : found->second.get<PropertyListArray>();
  if (!items) {
    return list;
  }
  for (const auto& entry : *items) {
    if (const auto* item = entry.get<PropertyListDictionary>()) {
      auto row = makeRow(*item, target);
      addProperties(*row, *item, bundle);
      list.specifiers.push_back(std::move(row));
    }
  }
  return list;
}
