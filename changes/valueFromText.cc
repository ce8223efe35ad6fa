#include "changes/valueFromText.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "changes/compactText.h"
#include "changes/settingValues.h"
#include "linux/propertylist/PropertyListSerialization.h"

namespace {

std::optional<PropertyListValue> numberFromText(const settings::Setting& setting,
                                                std::string_view text) {
  const auto label = std::ranges::find_if(setting.labels, [&](std::string_view each) {
    return compactText(each) == compactText(text);
  });
  if (label != setting.labels.end()) {
    return PropertyListValue(setting.least + (label - setting.labels.begin()));
  }
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return accepted(setting, number);
}

}  // namespace

std::optional<PropertyListValue> valueFromText(const settings::Setting& setting,
                                               std::string_view text) {
  if (setting.kind == settings::Kind::kInteger) {
    return numberFromText(setting, text);
  }
  PropertyListValue value{std::string(text)};
  // What is no text for a file is none.
  return setting.kind == settings::Kind::kText && bytesFromPropertyList(value)
             ? std::optional(std::move(value))
             : std::nullopt;
}
