#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The environment that this program was started with, for the programs that it starts in turn:
/// what it sets for its own libraries is no business of theirs. Any thread.
class StartEnvironment {
 public:
  /// Taken at the first call, which `main` makes before anything changes the environment.
  static const StartEnvironment& shared();

  StartEnvironment(const StartEnvironment&) = delete;
  StartEnvironment& operator=(const StartEnvironment&) = delete;
  StartEnvironment(StartEnvironment&&) = delete;
  StartEnvironment& operator=(StartEnvironment&&) = delete;
  ~StartEnvironment() = default;

  /// As programs are started with it: "NAME=value" each, ended by null. Without what belongs to one
  /// start of one program, which does not hand it on.
  char* const* variables() const { return pointers_.data(); }

  /// Nothing where it is not set.
  std::optional<std::string_view> value(std::string_view name) const;

 private:
  StartEnvironment();

  std::vector<std::string> texts_;
  std::vector<char*> pointers_;
};
