#include "tools/call/CallCommand.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <unistd.h>

#include <CLI/CLI.hpp>

#include "calling/CallPlanner.h"
#include "linux/DevicePaths.h"
#include "linux/PhoneNumbers.h"
#include "linux/callSettings.h"
#include "linux/lines/CallPause.h"
#include "linux/lines/Lines.h"
#include "linux/lines/PrintLine.h"
#include "tools/call/CallReport.h"

namespace {

enum Status {
  kDone = 0,
  kNotUnderstood = 2,
  kRefused = 3,
  kWithoutLine = 4,
  kLineFailed = 5,
  kNotKnown = 6,
};

constexpr std::size_t kLongestNumber = 512;

struct Arguments {
  std::string number;
  std::string via = "auto";
  std::string region;
  std::string root;
  bool isAnonymous = false;
  bool isOpen = false;
  bool isAsIs = false;
  bool isDryRun = false;
  bool isConfirmed = false;
  bool isJson = false;
};

std::string checkRegion(std::string& region) {
  std::ranges::transform(region, region.begin(), [](char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  });
  return PhoneNumbers().isRegion(region) ? "" : "has to be a country's two letters, as in DE";
}

void describe(CLI::App& app, Arguments& arguments) {
  app.add_option("NUMBER", arguments.number,
                 "What to call: a number, or a tel: or callto: address; - reads it from standard "
                 "input")
      ->required();
  auto* anonymous = app.add_flag("--anonymous", arguments.isAnonymous,
                                 "Ask for your number to be hidden (the default)");
  app.add_flag("--open", arguments.isOpen, "Do not ask for it")->excludes(anonymous);
  app.add_option("--via", arguments.via,
                 "The line that places the call; quietdial lines lists them, and print writes what "
                 "would be dialled")
      ->type_name("LINE")
      ->capture_default_str();
  app.add_option("--region", arguments.region, "The country that you call from, as two letters")
      ->type_name("CC")
      ->transform(CLI::Validator(checkRegion, "", "region"));
  app.add_option("--root", arguments.root, "Device root with the settings (default: the user's)")
      ->type_name("DIR");
  app.add_flag("--as-is", arguments.isAsIs, "Dial codes as they are given");
  app.add_flag("--dry-run", arguments.isDryRun, "Only tell what would be done");
  app.add_flag("--yes", arguments.isConfirmed, "Do not ask whether to call");
  app.add_flag("--json", arguments.isJson, "Tell it as one JSON object");
  app.footer(
      "Whether the network obeys cannot be known: call your other phone to see.\n"
      "Example: quietdial call --dry-run --region DE '0171 555 0134'");
}

// One line of the input, without its end; nothing where it is longer than any number.
std::optional<std::string> readLine(std::istream& in) {
  std::string text;
  for (char c = 0; in.get(c) && c != '\n';) {
    text += c;
    if (text.size() > kLongestNumber) {
      return std::nullopt;
    }
  }
  if (text.ends_with('\r')) {
    text.pop_back();
  }
  return text;
}

// A call on its way from the arguments to a line.
class CallCommand {
 public:
  CallCommand(const Arguments& arguments, CallRequest request, std::istream& in, std::ostream& out,
              std::ostream& err)
      : arguments_(arguments),
        request_(std::move(request)),
        in_(in),
        out_(out),
        err_(err),
        planner_(plans_, surroundings()) {}

  int run() {
    const bool isEmergency = planner_.isEmergency(request_);
    auto lines = linesFor(isEmergency);
    if (lines.empty()) {
      const auto plan = planner_.plan(request_, nullptr);
      return refuse(plan, *plan.refusal);
    }
    bool isAsked = false;
    for (std::size_t i = 0;; ++i) {
      Line& line = *lines[i];
      const LineFacts facts = line.facts();
      const auto plan = planner_.plan(request_, &facts);
      if (plan.refusal) {
        return refuse(plan, *plan.refusal);
      }
      if (arguments_.isDryRun) {
        return tell(plan, line);
      }
      if (!isAsked) {
        if (const auto status = confirm(plan, line)) {
          return *status;
        }
        isAsked = true;
      }
      const auto placement = place(plan, line);
      const bool hasNext = isEmergency && i + 1 < lines.size();
      if (placement.outcome != Placement::Outcome::kFailed || !hasNext) {
        return finish(plan, placement);
      }
      err_ << "quietdial call: " << placement.sentence << " Trying the next line.\n";
    }
  }

 private:
  Surroundings surroundings() {
    const DevicePaths paths(
        arguments_.root.empty()
            ? DevicePaths::defaultRoot()
            : std::filesystem::absolute(arguments_.root).lexically_normal().string(),
        DevicePaths::installedLibrary());
    return {.settings = readCallSettings(paths),
            .network = lines_.network(),
            .givenRegion = arguments_.region,
            .localeRegion = localeRegion()};
  }

  std::vector<std::shared_ptr<Line>> linesFor(bool isEmergency) {
    if (arguments_.via == PrintLine::kName) {
      return {std::make_shared<PrintLine>(out_)};
    }
    return lines_.forCall(arguments_.via, isEmergency);
  }

  int refuse(const CallPlan& plan, Refusal refusal) {
    const std::string sentence(sentenceOf(refusal));
    if (arguments_.isJson) {
      out_ << print(jsonOf(plan, sentence)) << std::endl;
    } else {
      err_ << "quietdial call: " << sentence << '\n';
    }
    return refusal == Refusal::kNoLine ? kWithoutLine : kRefused;
  }

  int tell(const CallPlan& plan, Line& line) {
    out_ << (arguments_.isJson ? print(jsonOf(plan, "")) : sentencesOf(plan, line.title()))
         << std::endl;
    return kDone;
  }

  static std::string print(const nlohmann::ordered_json& object) {
    return object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
  }

  static bool onlyWrites(const CallPlan& plan) { return plan.line == PrintLine::kName; }

  // The status to end with where the user does not want the call, or cannot be asked.
  std::optional<int> confirm(const CallPlan& plan, Line& line) {
    if (onlyWrites(plan)) {
      return std::nullopt;
    }
    if (!arguments_.isJson) {
      out_ << sentencesOf(plan, line.title()) << std::endl;
    }
    if (arguments_.isConfirmed) {
      return std::nullopt;
    }
    if (arguments_.number == "-" || isatty(STDIN_FILENO) == 0) {
      err_ << "quietdial call: there is no terminal to ask on; --yes calls without asking.\n";
      return kNotUnderstood;
    }
    (arguments_.isJson ? err_ : out_) << "Call? [y/N] " << std::flush;
    const auto answer = readLine(in_);
    if (answer == "y" || answer == "Y" || answer == "yes") {
      return std::nullopt;
    }
    err_ << "quietdial call: not called.\n";
    return kRefused;
  }

  Placement place(const CallPlan& plan, Line& line) const {
    if (onlyWrites(plan)) {
      return arguments_.isJson ? Placement{Placement::Outcome::kHandedOver, {}} : line.place(plan);
    }
    if (!plan.isEmergency) {
      waitForCallPause();
    }
    return line.place(plan);
  }

  int finish(const CallPlan& plan, const Placement& placement) {
    using Outcome = Placement::Outcome;
    if (arguments_.isJson) {
      out_ << print(jsonOf(plan, placement.sentence)) << std::endl;
    } else if (!placement.sentence.empty()) {
      const bool isGood =
          placement.outcome == Outcome::kPlaced || placement.outcome == Outcome::kHandedOver;
      (isGood ? out_ : err_ << "quietdial call: ") << placement.sentence << std::endl;
    }
    switch (placement.outcome) {
      case Outcome::kPlaced:
      case Outcome::kHandedOver:
        return kDone;
      case Outcome::kFailed:
        return kLineFailed;
      case Outcome::kUnknown:
        break;
    }
    return kNotKnown;
  }

  const Arguments& arguments_;
  CallRequest request_;
  std::istream& in_;
  std::ostream& out_;
  std::ostream& err_;
  const PhoneNumbers plans_;
  const Lines lines_;
  CallPlanner planner_;
};

}  // namespace

int runCallCommand(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
                   std::ostream& err) {
  CLI::App app("Calls a number and asks the network to hide yours.", "quietdial call");
  Arguments arguments;
  describe(app, arguments);
  try {
    // The parser takes the words from the back.
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::CallForHelp&) {
    out << app.help();
    return kDone;
  } catch (const CLI::ParseError& error) {
    err << "quietdial call: " << error.what() << '\n';
    return kNotUnderstood;
  }
  const auto number = arguments.number == "-" ? readLine(in) : std::optional(arguments.number);
  if (!number) {
    err << "quietdial call: the first line of the input is too long for a number.\n";
    return kNotUnderstood;
  }
  const CallRequest request{*number, !arguments.isOpen, arguments.isAsIs};
  return CallCommand(arguments, request, in, out, err).run();
}
