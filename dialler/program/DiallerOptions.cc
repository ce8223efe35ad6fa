#include "dialler/program/DiallerOptions.h"

#include <algorithm>
#include <iostream>

#include "linux/PhoneNumbers.h"
#include "settings/start/arguments.h"

namespace {

constexpr std::size_t kLongestNumber = 512;

// One line, cut behind the first sign that no number has any more.
std::string numberFromInput() {
  std::string text;
  for (char c = 0; text.size() <= kLongestNumber && std::cin.get(c) && c != '\n';) {
    text += c;
  }
  return text;
}

std::string checkRegion(std::string& region) {
  std::ranges::transform(region, region.begin(), [](char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  });
  return PhoneNumbers().isRegion(region) ? "" : "has to be a country's two letters, as in DE";
}

}  // namespace

std::optional<int> DiallerOptions::parse(int count, const char* const* values) {
  CLI::App app(
      "Calls a number and asks the network to hide yours, once you have pressed a button; without "
      "a number shows a keypad.",
      "quietdial-dialler");
  const auto* given = app.add_option(
      "NUMBER", number, "A number, or a tel: or callto: address; - reads it from standard input");
  start.addTo(app);
  start.addLookTo(app);
  addText(app, "--via", via,
          "The line that places calls; quietdial lines lists them, and print writes what would be "
          "dialled. Default: auto")
      ->type_name("LINE");
  addText(app, "--region", region, "The country that you call from, as two letters")
      ->type_name("CC")
      ->transform(CLI::Validator(checkRegion, "", "region"));
  app.add_flag("--try-out", isTrial,
               "Where nothing here can place calls, show what would be dialled, and write it to "
               "standard output");
  addText(app, "--screenshot", screenshot,
          "Write what is shown as a PNG file and end. Needs no display")
      ->type_name("FILE");
  app.final_callback([this, given] {
    start.isPicture = !screenshot.empty();
    start.webEngine = false;
    hasNumber = given->count() > 0;
  });
  if (const auto status = parseArguments(app, count, values)) {
    return status;
  }
  if (number == "-") {
    number = numberFromInput();
  }
  return turnRootAway(start.allowRoot);
}
