#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <variant>

/// Every key that QuietDial keeps in the settings file, for programs that show, move or use the
/// settings. Constant data; nothing of it leaves the module. The panes read and write by operations
/// of their own, and the defaults of the resource lists' rows stand in those lists.
namespace settings {

enum class Kind {
  kInteger,
  kText,
  kTextList,
};

/// What an absent key stands for; nothing where it stands for nothing.
using Default = std::variant<std::monostate, int, std::string_view>;

struct Setting {
  std::string_view key{};
  Kind kind = Kind::kText;
  Default defaultValue{};
  /// The values of an integer, both ends included.
  int least = 0;
  int greatest = 0;
  /// A word for each of these values, from the least on; none where they are only counted.
  std::span<const std::string_view> labels{};
  /// The key of the text that is stored along with an integer, in words; empty for none. Integers
  /// with labels store their label, the two button styles "Style DIAL & SYSTEMWIDE" together.
  std::string_view textKey{};
  /// What people know it by: the title that leads to where it is chosen.
  std::string_view title{};
};

inline constexpr std::string_view kPrefixTitle = "Hide Caller ID Prefix";
inline constexpr std::string_view kDialTabTitle = "Dial Tab Style";
inline constexpr std::string_view kSystemwideTitle = "Systemwide Call Style";
inline constexpr std::string_view kTextTitle = "Custom Text";
inline constexpr std::string_view kButtonTitle = "Button Style";

inline constexpr std::array<std::string_view, 3> kModeLabels{"Swipe", "Hold", "Show always"};

inline constexpr Setting kDialerModeText{.key = "dialerModeText", .title = kDialTabTitle};
inline constexpr Setting kDialerMode{
    .key = "dialerMode",
    .kind = Kind::kInteger,
    .defaultValue = 0,
    .least = 0,
    .greatest = 2,
    .labels = kModeLabels,
    .textKey = kDialerModeText.key,
    .title = kDialTabTitle,
};

inline constexpr Setting kSystemwideStyleText{.key = "systemwideStyleText",
                                              .title = kSystemwideTitle};
inline constexpr Setting kSystemwideStyle{
    .key = "systemwideStyle",
    .kind = Kind::kInteger,
    .defaultValue = 2,
    .least = 0,
    .greatest = 2,
    .labels = kModeLabels,
    .textKey = kSystemwideStyleText.key,
    .title = kSystemwideTitle,
};

/// The system-wide screen's two questions.
inline constexpr Setting kCustomText{.key = "customText", .title = kTextTitle};
inline constexpr Setting kSystemWideTwoButtonText{.key = "systemWideTwoButtonText",
                                                  .title = kTextTitle};

/// The buttons' pictures are counted from 1.
inline constexpr Setting kButtonStyleText{.key = "buttonStyleText", .title = kButtonTitle};
inline constexpr Setting kDialButtonStyle{
    .key = "dialButtonStyle",
    .kind = Kind::kInteger,
    .defaultValue = 1,
    .least = 1,
    .greatest = 4,
    .textKey = kButtonStyleText.key,
    .title = kButtonTitle,
};
inline constexpr Setting kSystemwideButtonStyle{
    .key = "systemwideButtonStyle",
    .kind = Kind::kInteger,
    .defaultValue = 1,
    .least = 1,
    .greatest = 4,
    .textKey = kButtonStyleText.key,
    .title = kButtonTitle,
};

/// The chosen row of the table of countries, by its name, or that of the custom row.
inline constexpr Setting kSelectedCountry{
    .key = "selectedCountry",
    .defaultValue = "Most other counties",
    .title = kPrefixTitle,
};
/// The prefix in force, whether a country's or the user's own. Blanks at its ends are part of it.
inline constexpr Setting kSelectedPrefix{
    .key = "selectedPrefix",
    .defaultValue = "#31#",
    .title = kPrefixTitle,
};
inline constexpr Setting kCustomPrefix{
    .key = "customPrefix",
    .defaultValue = "",
    .title = kPrefixTitle,
};

/// The maker's other tweaks that have been shown, by their identifiers.
inline constexpr Setting kSeenTweaks{
    .key = "seen_tweaks",
    .kind = Kind::kTextList,
    .title = "More Tweaks",
};

inline constexpr std::array kAll{
    kDialerMode,      kDialerModeText,          kSystemwideStyle, kSystemwideStyleText,
    kCustomText,      kSystemWideTwoButtonText, kDialButtonStyle, kSystemwideButtonStyle,
    kButtonStyleText, kSelectedCountry,         kSelectedPrefix,  kCustomPrefix,
    kSeenTweaks,
};

/// Null for a key that is not QuietDial's.
constexpr const Setting* find(std::string_view key) {
  const auto* const found = std::ranges::find(kAll, key, &Setting::key);
  return found == kAll.end() ? nullptr : found;
}

}  // namespace settings
