#include "platform/uikit/UIColor.h"

#include <algorithm>
#include <array>
#include <utility>

std::optional<UIColor> UIColor::named(std::string_view name) {
  static constexpr std::array<std::pair<std::string_view, UIColor>, 8> kColors{{
      {"red", redColor()},
      {"white", whiteColor()},
      {"black", blackColor()},
      {"gray", grayColor()},
      {"lightGray", lightGrayColor()},
      {"blue", {0, 0, 1, 1}},
      {"green", {0, 1, 0, 1}},
      {"orange", {1, 0.5, 0, 1}},
  }};
  const auto* const found =
      std::ranges::find(kColors, name, &std::pair<std::string_view, UIColor>::first);
  return found == kColors.end() ? std::nullopt : std::optional(found->second);
}
