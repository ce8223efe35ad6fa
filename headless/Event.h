#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/foundation/PropertyList.h"
#include "platform/messageui/MailMessage.h"
#include "platform/services.h"

/// One thing that the panes asked of the machine.

struct WriteEvent {
  std::string path;  // device path
  PropertyListDictionary settings;
  bool ok = false;
  bool operator==(const WriteEvent&) const = default;
};

/// The settings that are not in their file because a write has failed are now these.
struct UnsavedEvent {
  std::vector<std::string> keys;
  std::string reason;  // why the latest of them is not, as the system words it
  bool operator==(const UnsavedEvent&) const = default;
};

struct PostEvent {
  NotificationCall call = NotificationCall::kCFNotificationCenter;
  std::string name;
  bool operator==(const PostEvent&) const = default;
};

struct SpawnEvent {
  std::string path;
  std::vector<std::string> arguments;
  std::optional<std::vector<std::string>> environment;
  bool operator==(const SpawnEvent&) const = default;
};

struct WaitEvent {
  int options = 0;
  bool operator==(const WaitEvent&) const = default;
};

struct FetchEvent {
  std::string url;
  bool ok = false;
  bool operator==(const FetchEvent&) const = default;
};

/// A web view starts loading.
struct LoadStartEvent {
  std::string url;
  double timeout = 0;  // seconds
  bool operator==(const LoadStartEvent&) const = default;
};

/// It has ended loading.
struct LoadFinishEvent {
  std::string url;
  bool ok = false;
  bool operator==(const LoadFinishEvent&) const = default;
};

struct CanOpenEvent {
  std::string url;
  bool answer = false;
  bool operator==(const CanOpenEvent&) const = default;
};

struct OpenEvent {
  std::string url;
  bool operator==(const OpenEvent&) const = default;
};

struct AlertEvent {
  std::string title;
  std::string message;
  std::string button;
  bool operator==(const AlertEvent&) const = default;
};

/// Who presented a sheet: a pane, the navigation controller around it, or the one around that.
enum class Presenter { kPane, kInner, kOuter };

struct PresentComposeEvent {
  std::string service;
  std::string text;
  std::size_t images = 0;
  Presenter from = Presenter::kPane;
  bool operator==(const PresentComposeEvent&) const = default;
};

struct PresentMailEvent {
  MailMessage message;
  Presenter from = Presenter::kPane;
  bool operator==(const PresentMailEvent&) const = default;
};

enum class SheetKind { kCompose, kMail };

struct DismissEvent {
  SheetKind sheet = SheetKind::kCompose;
  bool operator==(const DismissEvent&) const = default;
};

struct LogEvent {
  std::string line;
  bool operator==(const LogEvent&) const = default;
};

using Event = std::variant<WriteEvent, UnsavedEvent, PostEvent, SpawnEvent, WaitEvent, FetchEvent,
                           LoadStartEvent, LoadFinishEvent, CanOpenEvent, OpenEvent, AlertEvent,
                           PresentComposeEvent, PresentMailEvent, DismissEvent, LogEvent>;
