#pragma once

#include <string>
#include <vector>

#include "linux/DevicePaths.h"

/// A page that a row of the bundle's first page opens.
struct SettingsPage {
  std::string title;  ///< As the row has it.
  std::string pane;   ///< The class of its pane.
};

/// In the order of the rows; none where the bundle's list cannot be read.
std::vector<SettingsPage> settingsPages(const DevicePaths& paths);

/// The pages that a name may mean: the one with that title (without regard to case and blanks),
/// else those whose title has it as a word.
std::vector<SettingsPage> pagesNamed(const std::vector<SettingsPage>& pages,
                                     const std::string& name);
