#pragma once

#include <string_view>

/// Where the previews and the button pictures lie, as a prefix of their names.
inline constexpr std::string_view kResourceFolder =
    "/Library/PreferenceBundles/quietDialPreferences.bundle/";
