#include "tools/settings/ImportCommand.h"

#include <fcntl.h>
#include <system_error>
#include <unistd.h>

#include <CLI/CLI.hpp>

#include "changes/importSettings.h"
#include "linux/propertylist/PropertyListBudget.h"
#include "linux/readFile.h"
#include "tools/settings/settingText.h"

namespace {

std::string faultOf(const FileContents& file) {
  switch (file.outcome) {
    case FileContents::Outcome::kAbsent:
      return "there is no such file";
    case FileContents::Outcome::kNotAFile:
      return "it is not a file";
    case FileContents::Outcome::kTooLarge:
      return "it is larger than settings can be";
    case FileContents::Outcome::kUnreadable:
    case FileContents::Outcome::kRead:
      break;
  }
  return std::system_category().message(file.error);
}

}  // namespace

std::vector<Example> ImportCommand::examples() const {
  return {{"quietdial import --dry-run settings.json", "only tells what would change"},
          {"quietdial import settings.json", "what the file does not set stays"},
          {"quietdial import me.orlanvey.quietDial.plist", "the settings file of a phone"}};
}

void ImportCommand::describeArguments(CLI::App& app) {
  app.add_option("FILE", file_,
                 "An exported file, or a phone's property list; - for the standard input")
      ->required();
  app.add_flag("--dry-run", isDryRun_, "Only tell what would change");
}

int ImportCommand::run(Streams streams) {
  const auto file = file_ == "-" ? readStream(STDIN_FILENO, kPropertyListFileBound)
                                 : readFile(AT_FDCWD, file_, kPropertyListFileBound);
  if (file.outcome != FileContents::Outcome::kRead) {
    return fail(streams, file_ + " cannot be read: " + faultOf(file) + '.');
  }
  if (isDryRun_) {
    return tell(file.bytes, streams);
  }
  return change(streams,
                [&](SettingsChange& change) { return takeOver(file.bytes, change, streams); });
}

bool ImportCommand::takeOver(const std::string& bytes, SettingsChange& change,
                             Streams streams) const {
  const auto refusal = importSettings(bytes, change);
  if (refusal) {
    fail(streams, (file_ == "-" ? "" : file_ + ", ") + refusal->place + ": " + refusal->sentence +
                      " Nothing was imported.");
  }
  return !refusal;
}

int ImportCommand::tell(const std::string& bytes, Streams streams) const {
  const auto stored = readSettings(streams);
  if (!stored) {
    return kFailed;
  }
  SettingsChange change(*stored);
  if (!takeOver(bytes, change, streams)) {
    return kFailed;
  }
  if (!isQuiet()) {
    streams.out << (change.isEmpty() ? "Nothing would change.\n" : textOf(change.differences()));
  }
  return 0;
}
