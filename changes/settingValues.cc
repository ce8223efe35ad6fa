#include "changes/settingValues.h"

#include <algorithm>
#include <variant>

using settings::Kind;
using settings::Setting;

namespace {

std::int64_t integerInForce(const PropertyListDictionary& stored, const Setting& setting) {
  const auto value = accepted(setting, *valueInForce(stored, setting));
  return integerOrZero(value ? value : defaultOf(setting));
}

bool isListOfTexts(const PropertyListValue& value) {
  const auto* const list = value.get<PropertyListArray>();
  return list && std::ranges::all_of(*list, [](const PropertyListValue& each) {
           return each.get<std::string>() != nullptr;
         });
}

}  // namespace

std::optional<PropertyListValue> defaultOf(const Setting& setting) {
  if (const auto* number = std::get_if<int>(&setting.defaultValue)) {
    return PropertyListValue(*number);
  }
  if (const auto* text = std::get_if<std::string_view>(&setting.defaultValue)) {
    return PropertyListValue(std::string(*text));
  }
  const auto* const integer = std::ranges::find(settings::kAll, setting.key, &Setting::textKey);
  return integer == settings::kAll.end() ? std::nullopt
                                         : std::optional<PropertyListValue>(wordsFor(*integer, {}));
}

std::optional<PropertyListValue> valueInForce(const PropertyListDictionary& stored,
                                              const Setting& setting) {
  const auto entry = stored.find(setting.key);
  return entry == stored.end() ? defaultOf(setting) : std::optional(entry->second);
}

std::optional<PropertyListValue> accepted(const Setting& setting, const PropertyListValue& value) {
  switch (setting.kind) {
    case Kind::kInteger: {
      const auto number = value.integerValue();
      const bool isInRange = number && *number >= setting.least && *number <= setting.greatest;
      return isInRange && value == PropertyListValue(*number)
                 ? std::optional<PropertyListValue>(*number)
                 : std::nullopt;
    }
    case Kind::kText:
      return value.get<std::string>() ? std::optional(value) : std::nullopt;
    case Kind::kTextList:
      break;
  }
  return isListOfTexts(value) ? std::optional(value) : std::nullopt;
}

bool isChanged(const PropertyListDictionary& stored, const Setting& setting) {
  const auto entry = stored.find(setting.key);
  return entry != stored.end() && defaultOf(setting) != entry->second;
}

std::string_view labelOf(const Setting& setting, const PropertyListValue& value) {
  const auto number = accepted(setting, value);
  return setting.labels.empty() || !number
             ? std::string_view()
             : setting.labels[static_cast<std::size_t>(integerOrZero(number) - setting.least)];
}

std::string valuesInWords(const Setting& setting) {
  if (setting.kind == Kind::kText) {
    return "a text";
  }
  if (setting.kind == Kind::kTextList) {
    return "a list of texts";
  }
  if (setting.labels.empty()) {
    return "a number from " + std::to_string(setting.least) + " to " +
           std::to_string(setting.greatest);
  }
  std::string words;
  for (int number = setting.least; number <= setting.greatest; ++number) {
    words += number == setting.least ? "" : number == setting.greatest ? " or " : ", ";
    words.append(std::to_string(number)).append(" (").append(labelOf(setting, number)).append(")");
  }
  return words;
}

const Setting* leaderOf(const Setting& setting) {
  if (setting.key == settings::kSelectedPrefix.key) {
    return &settings::kSelectedCountry;
  }
  const auto* const integer = std::ranges::find(settings::kAll, setting.key, &Setting::textKey);
  return setting.kind != Kind::kText || integer == settings::kAll.end() ? nullptr : integer;
}

std::string wordsFor(const Setting& setting, const PropertyListDictionary& stored) {
  if (!setting.labels.empty()) {
    return std::string(labelOf(setting, integerInForce(stored, setting)));
  }
  return "Style " + std::to_string(integerInForce(stored, settings::kDialButtonStyle)) + " & " +
         std::to_string(integerInForce(stored, settings::kSystemwideButtonStyle));
}
