#pragma once

#include <cstdint>
#include <limits>
#include <string>

#include "platform/foundation/PropertyList.h"

/// The settings file's own thirteen keys.
inline PropertyListDictionary ownSettings() {
  return {{"dialerMode", 1},
          {"dialerModeText", "Hold"},
          {"systemwideStyle", 2},
          {"systemwideStyleText", "Show always"},
          {"customText", "Are you sure you want to call?"},
          {"systemWideTwoButtonText", "How would you like to call?"},
          {"dialButtonStyle", 1},
          {"systemwideButtonStyle", 4},
          {"buttonStyleText", "Style 1 & 4"},
          {"selectedCountry", "Canada"},
          {"selectedPrefix", "#31#"},
          {"customPrefix", ""},
          {"seen_tweaks", PropertyListArray{"me.orlanvey.one", "me.orlanvey.two"}}};
}

/// A value of every kind that XML can carry, under keys that the panes do not know.
inline PropertyListDictionary foreignSettings() {
  PropertyListData data;
  for (int byte = 0; byte < 256; ++byte) {
    data.push_back(static_cast<std::byte>(byte));
  }
  return {{"yes", true},
          {"no", false},
          {"half", 0.5},
          {"third", 1.0 / 3},
          {"tiny", std::numeric_limits<double>::denorm_min()},
          {"huge", std::numeric_limits<double>::max()},
          {"minusZero", -0.0},
          {"infinite", -std::numeric_limits<double>::infinity()},
          {"least", std::numeric_limits<std::int64_t>::min()},
          {"most", std::numeric_limits<std::uint64_t>::max()},
          {"aboveSigned", std::uint64_t{1} << 63U},
          {"date", PropertyListDate{-978307200}},
          {"oldest", PropertyListDate{-63113904000}},
          {"data", data},
          {"noData", PropertyListData{}},
          {"text", "<&>\"' \xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\x9E\ttab\nline"},
          {"blanks", "  \n "},
          {"", "under the empty key"},
          {"nested", PropertyListArray{PropertyListDictionary{{"a", PropertyListArray{}}},
                                       PropertyListDictionary{}, PropertyListArray{1, "1", true}}}};
}
