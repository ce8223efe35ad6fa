#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/export.h"
#include "platform/foundation/PropertyList.h"
#include "root/TweakList.h"

/// The maker's catalogue of other tweaks. Its server answers two requests at one path: the list of
/// all identifiers, joined by "|", and a page that presents them.

/// The page; the requests for it and for the list begin with this. Any thread.
std::string cataloguePageURL();
std::string catalogueListURL();

/// Stands between two identifiers, in the list as in requests.
inline constexpr char kTweakSeparator = '|';

/// Key of the identifiers that the user has been shown.
inline constexpr std::string_view kSeenTweaksKey = "seen_tweaks";

/// The identifiers in an answer of the catalogue. Nothing is left out: an empty text is one empty
/// identifier, and a separator at the end is followed by one. Any thread.
Tweaks tweaksFromList(std::string_view text);

/// `available` without whatever is equal to an element of `seen`, in its order. Nothing, or a value
/// that is no list, counts as nothing seen; elements that are no texts match nothing. Takes time
/// that grows with the sum of the lists. Any thread.
Tweaks tweaksNotSeen(const Tweaks& available, const std::optional<PropertyListValue>& seen);

/// What the last successful answer listed, and what of it the user has not been shown; null until
/// there was one. Shared by all panes, for code outside the bundle too. Any thread.
extern QD_EXPORT TweakList availableTweaks;
extern QD_EXPORT TweakList unseenTweaks;
