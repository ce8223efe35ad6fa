#include "tools/drive/json.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

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

std::string base64(const PropertyListData& data) {
  constexpr std::string_view kLetters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((data.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < data.size(); at += 3) {
    const std::size_t here = std::min<std::size_t>(3, data.size() - at);
    std::uint32_t group = 0;
    for (std::size_t byte = 0; byte < 3; ++byte) {
      group = group << 8U | (byte < here ? static_cast<std::uint32_t>(data[at + byte]) : 0U);
    }
    for (std::size_t letter = 0; letter < 4; ++letter) {
      text += letter <= here ? kLetters[group >> (18U - 6U * letter) & 63U] : '=';
    }
  }
  return text;
}

// ISO 8601 in UTC; a fraction only where there is one.
std::string isoDate(PropertyListDate date) {
  const auto day = std::chrono::floor<std::chrono::days>(date);
  const std::chrono::year_month_day calendar(day);
  const std::chrono::hh_mm_ss time(date - day);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d",
                static_cast<int>(calendar.year()), static_cast<unsigned>(calendar.month()),
                static_cast<unsigned>(calendar.day()), static_cast<int>(time.hours().count()),
                static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
  std::string result = text.data();
  if (const auto micros = time.subseconds().count(); micros != 0) {
    std::snprintf(text.data(), text.size(), ".%06d", static_cast<int>(micros));
    result += text.data();
  }
  return result + "Z";
}

const char* nameOf(NotificationCall call) {
  return call == NotificationCall::kNotifyPost ? "notify" : "darwin";
}

const char* nameOf(Presenter presenter) {
  switch (presenter) {
    case Presenter::kInner:
      return "inner";
    case Presenter::kOuter:
      return "outer";
    case Presenter::kPane:
      break;
  }
  return "pane";
}

struct EventWriter {
  Json operator()(const WriteEvent& event) const {
    return {{"event", "write"},
            {"path", event.path},
            {"settings", toJson(event.settings)},
            {"ok", event.ok}};
  }
  Json operator()(const PostEvent& event) const {
    return {{"event", "post"}, {"centre", nameOf(event.call)}, {"name", event.name}};
  }
  Json operator()(const SpawnEvent& event) const {
    Json json{{"event", "spawn"}, {"path", event.path}, {"arguments", event.arguments}};
    json["environment"] = event.environment ? Json(*event.environment) : Json(nullptr);
    return json;
  }
  Json operator()(const WaitEvent& event) const {
    return {{"event", "wait"}, {"options", event.options}};
  }
  Json operator()(const CanOpenEvent& event) const {
    return {{"event", "can-open"}, {"url", event.url}, {"answer", event.answer}};
  }
  Json operator()(const OpenEvent& event) const { return {{"event", "open"}, {"url", event.url}}; }
  Json operator()(const AlertEvent& event) const {
    return {{"event", "alert"},
            {"title", event.title},
            {"message", event.message},
            {"button", event.button}};
  }
  Json operator()(const PresentComposeEvent& event) const {
    return {{"event", "present"}, {"sheet", "compose"},     {"service", event.service},
            {"text", event.text}, {"images", event.images}, {"from", nameOf(event.from)}};
  }
  Json operator()(const DismissEvent& /*event*/) const {
    return {{"event", "dismiss"}, {"sheet", "compose"}};
  }
};

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
    return {{"data", base64(*data)}};
  }
  if (const auto* date = value.get<PropertyListDate>()) {
    return {{"date", isoDate(*date)}};
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

Json toJson(const PSPropertyValue& property) {
  if (const auto* value = std::get_if<PropertyListValue>(&property)) {
    return toJson(*value);
  }
  if (const auto* const* description = std::get_if<const ClassDescription*>(&property)) {
    return std::string((*description)->name);
  }
  const auto& object = std::get<std::shared_ptr<NSObject>>(property);
  if (const auto image = cast<UIImage>(object)) {
    return {{"image", image->name()}};
  }
  return object ? Json(std::string(object->classDescription().name)) : Json(nullptr);
}

Json toJson(const Event& event) {
  return std::visit(EventWriter{}, event);
}

Json toJson(UIColor color) {
  return Json::array({color.red, color.green, color.blue, color.alpha});
}

Json toJson(CGRect rectangle) {
  return Json::array(
      {rectangle.origin.x, rectangle.origin.y, rectangle.size.width, rectangle.size.height});
}

Json toJson(UIEdgeInsets insets) {
  return Json::array({insets.top, insets.left, insets.bottom, insets.right});
}
