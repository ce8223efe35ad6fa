#pragma once

#include <string>

/// What `quietdial call` is given.
struct CallOptions {
  std::string number;  ///< `-` for the first line of the input.
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
