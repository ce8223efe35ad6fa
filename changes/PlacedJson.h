#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/foundation/PropertyList.h"

/// A JSON document that remembers where in the text its members stand, so that a complaint about
/// one can say so. Members keep their order, and equal names are all kept.
struct PlacedJson {
  struct Member;
  using Members = std::vector<Member>;
  /// An integer, a text or an array of these (never empty of a value); members of an object;
  /// nothing for what no setting can be: null, true, false, other numbers.
  using Value = std::variant<std::monostate, PropertyListValue, Members>;

  Value value;
};

struct PlacedJson::Member {
  std::string name;
  std::string place;  ///< "line 3, column 5": where the name begins.
  Value value;
};

/// What came of reading a document.
struct PlacedJsonResult {
  std::optional<PlacedJson> document;
  std::string place;  ///< Without a document: where it stops being one.
  std::string fault;  ///< And why, as a sentence.
};

/// Reads a whole document. One that is nested deeper than a file of settings can be is refused. Any
/// thread.
PlacedJsonResult readPlacedJson(std::string_view text);
