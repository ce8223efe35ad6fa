#include "root/tweakCatalogue.h"

#include <algorithm>
#include <unordered_set>

#include "platform/makers/addresses.h"

constinit TweakList availableTweaks;
constinit TweakList unseenTweaks;

std::string cataloguePageURL() {
  return std::string(addresses::kCatalogue) + "?id=me.orlanvey.quietdial";
}

std::string catalogueListURL() {
  return cataloguePageURL() + "&list=1";
}

Tweaks tweaksFromList(std::string_view text) {
  Tweaks tweaks;
  for (;;) {
    const auto end = text.find(kTweakSeparator);
    tweaks.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) {
      return tweaks;
    }
    text.remove_prefix(end + 1);
  }
}

Tweaks tweaksNotSeen(const Tweaks& available, const std::optional<PropertyListValue>& seen) {
  const auto* list = seen ? seen->get<PropertyListArray>() : nullptr;
  if (!list) {
    return available;
  }
  std::unordered_set<std::string_view> known;
  known.reserve(list->size());
  for (const auto& element : *list) {
    if (const auto* text = element.get<std::string>()) {
      known.insert(*text);
    }
  }
  Tweaks unseen;
  std::ranges::copy_if(available, std::back_inserter(unseen),
                       [&](const std::string& tweak) { return !known.contains(tweak); });
  return unseen;
}
