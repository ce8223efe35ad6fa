#include "tools/settings/GetCommand.h"

#include <CLI/CLI.hpp>

#include "changes/settingValues.h"
#include "tools/propertyListJson.h"
#include "tools/settings/settingText.h"

namespace {

// As scripts take it: a text as it is, a list with one element a line, else as in JSON.
std::string plainText(const std::optional<PropertyListValue>& value) {
  if (!value) {
    return "\n";
  }
  if (const auto* text = value->get<std::string>()) {
    return *text + '\n';
  }
  const auto* list = value->get<PropertyListArray>();
  if (!list) {
    return printed(toJson(*value)) + '\n';
  }
  std::string lines;
  for (const auto& element : *list) {
    lines += plainText(element);
  }
  return lines;
}

}  // namespace

std::vector<Example> GetCommand::examples() const {
  return {{"quietdial get dialerMode", "0 where it has not been set"},
          {"quietdial get --json selectedPrefix", "in quotes, with the blanks at its ends"}};
}

void GetCommand::describeArguments(CLI::App& app) {
  app.add_option("KEY", key_, "The setting; quietdial list names them")->required();
  app.add_flag("--json", isJson_, "As JSON; null for what is not set and has no default");
}

int GetCommand::run(Streams streams) {
  const auto known = settingFor(key_);
  if (!known.setting) {
    return fail(streams, known.fault, kNotUnderstood);
  }
  const auto stored = readSettings(streams);
  if (!stored) {
    return kFailed;
  }
  const auto value = valueInForce(*stored, *known.setting);
  streams.out << (isJson_ ? printed(toJson(value)) + '\n' : plainText(value));
  return 0;
}
