#include "tools/settings/SetCommand.h"

#include <CLI/CLI.hpp>

#include "changes/settingValues.h"
#include "changes/valueFromText.h"
#include "tools/settings/chosenCountry.h"
#include "tools/settings/settingText.h"

std::vector<Example> SetCommand::examples() const {
  return {{"quietdial set dialerMode hold", "stores 1, and its text \"Hold\""},
          {"quietdial set dialButtonStyle 3", "the third picture of the button"},
          {"quietdial set customText 'Call now?'", "a text in quotes where it has blanks"}};
}

void SetCommand::describeArguments(CLI::App& app) {
  app.add_option("KEY", key_, "The setting; quietdial list names them")->required();
  app.add_option("VALUE", value_, "A number or its word, or a text")->required();
}

int SetCommand::run(Streams streams) {
  const auto known = leadingSettingFor(key_);
  if (!known.setting) {
    return fail(streams, known.fault, kNotUnderstood);
  }
  const auto& setting = *known.setting;
  if (setting.kind == settings::Kind::kTextList) {
    return fail(streams, key_ + " is kept by the page of tweaks and cannot be set.",
                kNotUnderstood);
  }
  auto value = valueFromText(setting, value_);
  if (!value) {
    return fail(streams, key_ + " has to be " + valuesInWords(setting) + '.', kNotUnderstood);
  }
  if (setting.key == settings::kSelectedCountry.key) {
    const auto chosen = chosenCountry(value_);
    if (!chosen.fault.empty()) {
      return fail(streams, chosen.fault, kNotUnderstood);
    }
    value = PropertyListValue(chosen.name);
  }
  return change(streams, [&](SettingsChange& change) {
    change.set(setting, *value);
    return true;
  });
}
