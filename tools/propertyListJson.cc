#include "tools/propertyListJson.h"

#include <cmath>
#include <string>
#include <utility>

#include "linux/propertylist/Base64.h"
#include "linux/propertylist/PropertyListDateText.h"

namespace {

Json realToJson(double real) {
  if (std::isnan(real)) {
    return {{"real", "nan"}};
  }
  if (std::isinf(real)) {
    return {{"real", real > 0 ? "inf" : "-inf"}};
  }
  return real;
}

// Protocol dates are whole seconds; one that the calendar does not have is given as its number.
Json dateToJson(PropertyListDate date) {
  const double seconds = date.secondsSinceReferenceDate;
  const auto text = textFromDate({std::floor(seconds)});
  return {{"date", text ? Json(*text) : realToJson(seconds)}};
}

}  // namespace

Json toJson(const PropertyListValue& value) {
  if (const auto* boolean = value.get<bool>()) {
    return *boolean;
  }
  if (const auto* number = value.get<std::int64_t>()) {
    return *number;
  }
  if (const auto* number = value.get<std::uint64_t>()) {
    return *number;
  }
  if (const auto* real = value.get<double>()) {
    return realToJson(*real);
  }
  if (const auto* text = value.get<std::string>()) {
    return *text;
  }
  if (const auto* data = value.get<PropertyListData>()) {
    std::string letters;
    appendBase64(letters, *data);
    return {{"data", std::move(letters)}};
  }
  if (const auto* date = value.get<PropertyListDate>()) {
    return dateToJson(*date);
  }
  if (const auto* uid = value.get<PropertyListUID>()) {
    return {{"uid", uid->value}};
  }
  if (const auto* array = value.get<PropertyListArray>()) {
    Json list = Json::array();
    for (const auto& element : *array) {
      list.push_back(toJson(element));
    }
    return list;
  }
  return toJson(*value.get<PropertyListDictionary>());
}

Json toJson(const PropertyListDictionary& dictionary) {
  Json object = Json::object();
  for (const auto& [key, value] : dictionary) {
    object[key] = toJson(value);
  }
  return object;
}

Json toJson(const std::optional<PropertyListValue>& value) {
  return value ? toJson(*value) : Json(nullptr);
}

std::string printed(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}
