#include "settings/start/arguments.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <unistd.h>

#include "settings/messages/complain.h"
#include "tools/version.h"

namespace {

constexpr int kUnusableArguments = 2;

std::string checkFilled(const std::string& text) {
  return text.empty() ? "may not be empty" : "";
}

}  // namespace

CLI::Option* addText(CLI::App& app, const std::string& name, std::string& value,
                     const std::string& description) {
  return app.add_option(name, value, description)
      ->type_name("TEXT")
      ->take_last()
      ->check(CLI::Validator(checkFilled, "", "filled"));
}

CLI::Option* addNumber(CLI::App& app, const std::string& name, double& value, double lowest,
                       double highest, const std::string& description) {
  std::ostringstream range;
  range << "has to be a number from " << lowest << " to " << highest;
  const auto check = [lowest, highest, fault = range.str()](const std::string& text) {
    double number = 0;
    const bool isNumber = CLI::detail::lexical_cast(text, number);
    return isNumber && number >= lowest && number <= highest ? std::string() : fault;
  };
  return app.add_option(name, value, description)
      ->type_name("N")
      ->take_last()
      ->check(CLI::Validator(check, "", "number"));
}

std::optional<int> parseArguments(CLI::App& app, int count, const char* const* values) {
  app.set_version_flag("-v,--version", app.get_name() + " " + kVersion);
  try {
    app.parse(count, values);
  } catch (const CLI::CallForHelp&) {
    std::fputs(app.help().c_str(), stdout);
    return EXIT_SUCCESS;
  } catch (const CLI::CallForVersion& version) {
    std::printf("%s\n", version.what());
    return EXIT_SUCCESS;
  } catch (const CLI::ParseError& error) {
    complain(error.what());
    return kUnusableArguments;
  }
  return std::nullopt;
}

std::optional<int> turnRootAway(bool isAllowed) {
  if (geteuid() != 0 || isAllowed) {
    return std::nullopt;
  }
  complain("This is not meant for root; --allow-root goes on all the same.");
  return EXIT_FAILURE;
}
