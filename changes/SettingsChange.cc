#include "changes/SettingsChange.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "changes/settingValues.h"

using settings::Setting;

namespace {

std::optional<PropertyListValue> entryOf(const PropertyListDictionary& dictionary,
                                         std::string_view key) {
  const auto entry = dictionary.find(key);
  return entry == dictionary.end() ? std::nullopt : std::optional(entry->second);
}

std::string textInForce(const PropertyListDictionary& stored, const Setting& setting) {
  return textOrNothing(valueInForce(stored, setting)).value_or("");
}

}  // namespace

std::vector<SettingsDifference> differencesBetween(const PropertyListDictionary& before,
                                                   const PropertyListDictionary& after) {
  std::vector<SettingsDifference> all;
  for (const auto& setting : settings::kAll) {
    auto one = entryOf(before, setting.key);
    auto other = entryOf(after, setting.key);
    if (one != other) {
      all.push_back({&setting, std::move(one), std::move(other)});
    }
  }
  return all;
}

SettingsChange::SettingsChange(PropertyListDictionary stored)
    : before_(std::move(stored)), after_(before_) {}

void SettingsChange::set(const Setting& setting, const PropertyListValue& value) {
  if (setting.key == settings::kSelectedCountry.key) {
    const auto name = textOrNothing(value).value_or("");
    const auto* const row = std::ranges::find(prefixes, name, &CountryPrefix::first);
    row == prefixes.end() ? chooseCustom() : chooseCountry(*row);
    return;
  }
  after_.insert_or_assign(std::string(setting.key), value);
  if (setting.key == settings::kCustomPrefix.key && isCustomChosen()) {
    storeText(settings::kSelectedPrefix, textOrNothing(value).value_or(""));
  }
  updateWords(setting);
}

void SettingsChange::chooseCountry(const CountryPrefix& row) {
  storeText(settings::kSelectedCountry, row.first);
  storeText(settings::kSelectedPrefix, row.second);
}

void SettingsChange::chooseCustom() {
  storeText(settings::kSelectedCountry, kCustomRow);
  storeText(settings::kSelectedPrefix, textInForce(after_, settings::kCustomPrefix));
}

void SettingsChange::chooseCustom(std::string_view prefix) {
  storeText(settings::kCustomPrefix, prefix);
  chooseCustom();
}

void SettingsChange::reset(const Setting& setting) {
  std::vector<const Setting*> group{&setting};
  for (const auto& each : settings::kAll) {
    const auto* const leader = leaderOf(each);
    if (leader && leader->key == setting.key && each.key != setting.textKey) {
      group.push_back(&each);
    }
  }
  const bool isDefault =
      std::ranges::none_of(group, [this](const Setting* each) { return isChanged(after_, *each); });
  if (isDefault && !hasStaleWords(setting)) {
    return;
  }
  for (const auto* const each : group) {
    after_.erase(std::string(each->key));
  }
  if (setting.key == settings::kCustomPrefix.key && isCustomChosen()) {
    storeText(settings::kSelectedPrefix, "");
  }
  updateWords(setting);
}

void SettingsChange::resetAll() {
  for (const auto& setting : settings::kAll) {
    if (!leaderOf(setting)) {
      reset(setting);
    }
  }
}

void SettingsChange::storeText(const Setting& setting, std::string_view text) {
  after_.insert_or_assign(std::string(setting.key), PropertyListValue(std::string(text)));
}

bool SettingsChange::hasStaleWords(const Setting& setting) const {
  const auto words = entryOf(after_, setting.textKey);
  return !setting.textKey.empty() && words && words != PropertyListValue(wordsFor(setting, after_));
}

// Brings the text of an integer up to date; without any of the integers that it tells of it goes.
void SettingsChange::updateWords(const Setting& setting) {
  if (setting.textKey.empty()) {
    return;
  }
  const bool isTold = std::ranges::any_of(settings::kAll, [&](const Setting& each) {
    return each.textKey == setting.textKey && after_.contains(each.key);
  });
  if (isTold) {
    after_.insert_or_assign(std::string(setting.textKey),
                            PropertyListValue(wordsFor(setting, after_)));
  } else {
    after_.erase(std::string(setting.textKey));
  }
}

bool SettingsChange::isCustomChosen() const {
  return textInForce(after_, settings::kSelectedCountry) == kCustomRow;
}
