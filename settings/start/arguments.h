#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>

/// Options of the command line. What is chosen through one counts the last time that it is given;
/// the variables outlive the parsing.

/// A text that may not be empty.
CLI::Option* addText(CLI::App& app, const std::string& name, std::string& value,
                     const std::string& description);

CLI::Option* addNumber(CLI::App& app, const std::string& name, double& value, double lowest,
                       double highest, const std::string& description);

/// One of several words.
template <class Value>
CLI::Option* addChoice(CLI::App& app, const std::string& name, Value& value,
                       const std::vector<std::pair<std::string, Value>>& words,
                       const std::string& description) {
  std::vector<std::string> names;
  names.reserve(words.size());
  for (const auto& [word, meaning] : words) {
    names.push_back(word);
  }
  const auto choose = [words, &value](const std::string& chosen) {
    value = std::ranges::find(words, chosen, &std::pair<std::string, Value>::first)->second;
  };
  return app.add_option_function<std::string>(name, choose, description)
      ->take_last()
      ->check(CLI::IsMember(names));
}

/// Reads the arguments. Nothing when the program is to go on, else the status that it ends with:
/// the help or the version has been printed, or what is wrong with the arguments.
std::optional<int> parseArguments(CLI::App& app, int count, const char* const* values);

/// As above, for who is root and does not say that this is meant.
std::optional<int> turnRootAway(bool isAllowed);
