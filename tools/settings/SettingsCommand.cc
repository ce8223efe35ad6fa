#include "tools/settings/SettingsCommand.h"

#include <CLI/CLI.hpp>

#include "linux/storedSettings.h"
#include "tools/deviceRoot.h"
#include "tools/settings/announceChange.h"
#include "tools/settings/settingText.h"

using Outcome = ChangeResult::Outcome;

void SettingsCommand::describe(CLI::App& app) {
  describeArguments(app);
  addRootOption(app, root_);
  app.add_flag("-q,--quiet", isQuiet_, "Say nothing but what is asked for and what goes wrong");
}

DevicePaths SettingsCommand::paths() const {
  return devicePathsBelow(root_);
}

int SettingsCommand::fail(Streams streams, const std::string& sentence, int status) const {
  streams.err << "quietdial " << name() << ": " << sentence << '\n';
  return status;
}

std::optional<PropertyListDictionary> SettingsCommand::readSettings(Streams streams) const {
  auto stored = readStoredSettings(paths());
  if (stored.state == StoredSettings::State::kUnreadable) {
    fail(streams, "the settings file cannot be read: " + stored.fault + '.');
    return std::nullopt;
  }
  return std::move(stored.settings);
}

int SettingsCommand::change(Streams streams, const std::function<bool(SettingsChange&)>& decide,
                            bool replacesUnreadable) const {
  bool isRefused = false;
  const auto result = changeSettings(paths(), {.decide =
                                                   [&](SettingsChange& change) {
                                                     isRefused = !decide(change);
                                                     return !isRefused;
                                                   },
                                               .announce = announceChange,
                                               .replacesUnreadable = replacesUnreadable});
  switch (result.outcome) {
    case Outcome::kUnchanged:
      if (!isRefused && !isQuiet_) {
        streams.out << "Nothing changes.\n";
      }
      return isRefused ? kFailed : 0;
    case Outcome::kChanged:
      if (!isQuiet_) {
        streams.out << textOf(result.differences);
      }
      return 0;
    case Outcome::kOverwritten:
      return fail(streams,
                  "it was stored, but somebody else has written the settings since and has changed "
                  "it again; quietdial list shows what is set.");
    case Outcome::kBusy:
      return fail(streams, "another command is changing the settings; try again.");
    case Outcome::kUnreadable:
      return fail(streams,
                  "the settings file cannot be read: " + result.fault +
                      ". quietdial reset puts a new one in its place and keeps it beside.");
    case Outcome::kNotWritten:
      break;
  }
  return fail(streams, "the settings cannot be written: " + result.fault + '.');
}
