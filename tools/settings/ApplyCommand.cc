#include "tools/settings/ApplyCommand.h"

#include "tools/settings/announceChange.h"

std::vector<Example> ApplyCommand::examples() const {
  return {{"quietdial apply", "where the phone app still behaves as before"}};
}

void ApplyCommand::describeArguments(CLI::App& /*app*/) {}

int ApplyCommand::run(Streams streams) {
  applyAgain();
  if (!isQuiet()) {
    streams.out << "The dialler's processes were told to restart.\n";
  }
  return 0;
}
