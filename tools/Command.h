#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

/// Where a command reads and writes.
struct Streams {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  /// Whether texts may stand out by colours: the output is a terminal.
  bool hasColours = false;
};

/// A command line that can be tried, and what it is for.
struct Example {
  std::string line;
  std::string meaning;
};

/// The exit status of arguments that are not understood.
inline constexpr int kNotUnderstood = 2;

/// One of the terminal program's commands. What it says of itself is the source of its help.
class Command {
 public:
  Command() = default;
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  Command(Command&&) = delete;
  Command& operator=(Command&&) = delete;
  virtual ~Command() = default;

  /// The word that it is given by.
  virtual std::string_view name() const = 0;
  /// What it does, as one sentence in the imperative.
  virtual std::string_view summary() const = 0;
  /// What its help begins with.
  virtual std::vector<Example> examples() const { return {}; }
  /// Adds its options, which are read into this object.
  virtual void describe(CLI::App& app) = 0;
  /// Carries it out with the options that were read. The exit status.
  virtual int run(Streams streams) = 0;
};
