#include "tools/call/CallCommand.h"

#include <optional>

#include <CLI/CLI.hpp>

#include "linux/PhoneNumbers.h"
#include "platform/foundation/asciiText.h"
#include "tools/call/OutgoingCall.h"
#include "tools/deviceRoot.h"
#include "tools/readLine.h"

namespace {

constexpr std::size_t kLongestNumber = 512;

std::string checkRegion(std::string& region) {
  region = inCapitals(region);
  return PhoneNumbers().isRegion(region) ? "" : "has to be a country's two letters, as in DE";
}

}  // namespace

std::vector<Example> CallCommand::examples() const {
  return {{"quietdial call '0171 555 0134'", "tells, asks, calls"},
          {"quietdial call --dry-run --region DE 01715550134", "only tells"}};
}

void CallCommand::describe(CLI::App& app) {
  app.add_option("NUMBER", options_.number,
                 "What to call: a number, or a tel: or callto: address; - reads it from standard "
                 "input")
      ->required();
  auto* anonymous = app.add_flag("--anonymous", options_.isAnonymous,
                                 "Ask for your number to be hidden (the default)");
  app.add_flag("--open", options_.isOpen, "Do not ask for it")->excludes(anonymous);
  app.add_option("--via", options_.via,
                 "The line that places the call; quietdial lines lists them, and print writes what "
                 "would be dialled")
      ->type_name("LINE")
      ->capture_default_str();
  app.add_option("--region", options_.region, "The country that you call from, as two letters")
      ->type_name("CC")
      ->transform(CLI::Validator(checkRegion, "", "region"));
  addRootOption(app, options_.root);
  app.add_flag("--as-is", options_.isAsIs, "Dial codes as they are given");
  app.add_flag("--dry-run", options_.isDryRun, "Only tell what would be done");
  app.add_flag("--yes", options_.isConfirmed, "Do not ask whether to call");
  app.add_flag("--json", options_.isJson, "Tell it as one JSON object");
  app.footer("Whether the network obeys cannot be known: call your other phone to see.");
}

int CallCommand::run(Streams streams) {
  const auto number = options_.number == "-" ? readLine(streams.in, kLongestNumber)
                                             : std::optional(options_.number);
  if (!number) {
    streams.err << "quietdial call: the first line of the input is too long for a number.\n";
    return kNotUnderstood;
  }
  return OutgoingCall(options_, {*number, !options_.isOpen, options_.isAsIs}, streams).run();
}
