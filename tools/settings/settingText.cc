#include "tools/settings/settingText.h"

#include "changes/nearestWord.h"
#include "changes/settingValues.h"
#include "tools/propertyListJson.h"

namespace {

std::vector<std::string> allKeys() {
  std::vector<std::string> keys;
  for (const auto& setting : settings::kAll) {
    keys.emplace_back(setting.key);
  }
  return keys;
}

}  // namespace

std::string shown(const settings::Setting& setting, const std::optional<PropertyListValue>& value) {
  if (!value) {
    return "not set";
  }
  auto text = printed(toJson(*value));
  const auto label = labelOf(setting, *value);
  return label.empty() ? text : text.append(" (").append(label).append(")");
}

std::string textOf(const std::vector<SettingsDifference>& differences) {
  std::string text;
  for (const auto& [setting, before, after] : differences) {
    text.append(setting->key).append(": ").append(shown(*setting, before));
    text.append(" -> ").append(shown(*setting, after)).append("\n");
  }
  return text;
}

KnownSetting settingFor(std::string_view key) {
  if (const auto* const setting = settings::find(key)) {
    return {setting, {}};
  }
  const auto keys = allKeys();
  const auto meant = nearestWord(key, keys);
  return {nullptr, "there is no setting \"" + std::string(key) + "\"" +
                       (meant.empty() ? "; quietdial list shows them all."
                                      : "; did you mean \"" + meant + "\"?")};
}

KnownSetting leadingSettingFor(std::string_view key) {
  auto known = settingFor(key);
  const auto* const leader = known.setting ? leaderOf(*known.setting) : nullptr;
  if (leader) {
    known = {nullptr, std::string(key) + " goes with " + std::string(leader->key) +
                          " and is changed with it."};
  }
  return known;
}
