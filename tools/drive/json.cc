#include "tools/drive/json.h"

#include <string>
#include <utility>

#include "linux/propertylist/Base64.h"

namespace {

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
  Json operator()(const UnsavedEvent& event) const {
    return {{"event", "unsaved"},
            {"keys", event.keys},
            {"reason", event.keys.empty() ? Json(nullptr) : Json(event.reason)}};
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
  Json operator()(const FetchEvent& event) const {
    return {{"event", "fetch"}, {"url", event.url}, {"ok", event.ok}};
  }
  Json operator()(const LoadStartEvent& event) const {
    return {{"event", "load"}, {"url", event.url}, {"timeout", event.timeout}};
  }
  Json operator()(const LoadFinishEvent& event) const {
    return {{"event", "load"}, {"url", event.url}, {"finish", true}, {"ok", event.ok}};
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
  Json operator()(const PresentMailEvent& event) const {
    const auto& message = event.message;
    Json attachments = Json::array();
    for (const auto& attachment : message.attachments) {
      std::string letters;
      appendBase64(letters, attachment.data);
      attachments.push_back({{"name", attachment.fileName},
                             {"type", attachment.mimeType},
                             {"data", std::move(letters)}});
    }
    return {{"event", "present"},         {"sheet", "mail"},           {"to", message.recipients},
            {"subject", message.subject}, {"body", message.body},      {"html", message.isHTML},
            {"attachments", attachments}, {"from", nameOf(event.from)}};
  }
  Json operator()(const DismissEvent& event) const {
    return {{"event", "dismiss"}, {"sheet", event.sheet == SheetKind::kMail ? "mail" : "compose"}};
  }
  Json operator()(const LogEvent& event) const { return {{"event", "log"}, {"line", event.line}}; }
};

}  // namespace

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
