#include "linux/propertylist/PropertyListBudget.h"

#include <algorithm>

namespace {

// A real like "-2.2250738585072014e-308".
constexpr std::size_t kLongestScalarText = 24;

}  // namespace

bool PropertyListBudget::covers(const PropertyListValue& value, int depth) {
  if (depth > kPropertyListDepthBound || !spendValue()) {
    return false;
  }
  if (const auto* text = value.get<std::string>()) {
    return spend(text->size());
  }
  if (const auto* data = value.get<PropertyListData>()) {
    return spend(data->size() / 3 * 4 + 4);  // as base64, in which a reader meets it
  }
  if (const auto* array = value.get<PropertyListArray>()) {
    return std::ranges::all_of(
        *array, [&](const PropertyListValue& element) { return covers(element, depth + 1); });
  }
  if (const auto* dictionary = value.get<PropertyListDictionary>()) {
    return std::ranges::all_of(*dictionary, [&](const auto& entry) {
      return spendValue() && spend(entry.first.size()) && covers(entry.second, depth + 1);
    });
  }
  return spend(kLongestScalarText);
}
