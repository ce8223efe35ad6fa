#include "tools/settings/ExportCommand.h"

#include <filesystem>

#include <CLI/CLI.hpp>

#include "changes/exportSettings.h"
#include "linux/AtomicFile.h"
#include "linux/propertylist/PropertyListBudget.h"

std::vector<Example> ExportCommand::examples() const {
  return {{"quietdial export settings.json", "a backup, for you alone to read"},
          {"quietdial export | ssh phone quietdial import -", "to another machine"}};
}

void ExportCommand::describeArguments(CLI::App& app) {
  app.add_option("FILE", file_, "The file; - for the standard output")->capture_default_str();
}

int ExportCommand::run(Streams streams) {
  const auto stored = readSettings(streams);
  if (!stored) {
    return kFailed;
  }
  const auto exported = exportSettings(*stored);
  for (const auto* const setting : exported.leftOut) {
    fail(streams, std::string(setting->key) + " holds what it cannot be, and is left out.");
  }
  if (file_ == "-") {
    streams.out << exported.text << std::flush;
    return streams.out ? 0 : fail(streams, "the standard output cannot be written.");
  }
  const auto path = std::filesystem::absolute(file_).string();
  const auto anything = [](std::string_view /*old*/) { return true; };
  if (const auto error =
          AtomicFile(path, kPropertyListFileBound, anything).replace(exported.text)) {
    return fail(streams, file_ + " cannot be written: " + error.message() + '.');
  }
  return 0;
}
