#pragma once

#include <clocale>
#include <cstdlib>
#include <string>

#include "tests/support/TemporaryFolder.h"

/// Puts the whole process into a locale whose decimal point is a comma; compiled for the occasion,
/// since machines differ in which locales they have. False when that fails.
inline bool enterCommaLocale() {
  static const TemporaryFolder folder;
  const auto compile = "localedef -i de_DE -f UTF-8 " + (folder / "de_DE.UTF-8").string();
  if (std::system(compile.c_str()) != 0) {
    return false;
  }
  setenv("LOCPATH", folder.path().c_str(), 1);
  return std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
}
