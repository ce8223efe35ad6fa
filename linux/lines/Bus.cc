#include "linux/lines/Bus.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string_view>

#include <systemd/sd-bus.h>

namespace {

constexpr const char* kBusService = "org.freedesktop.DBus";
constexpr const char* kBusPath = "/org/freedesktop/DBus";
constexpr const char* kPropertiesInterface = "org.freedesktop.DBus.Properties";

// Deeper than any answer of those that place calls.
constexpr int kDeepest = 16;

std::optional<PropertyListValue> readValue(sd_bus_message* message, int depth);

std::string textFor(const PropertyListValue& key) {
  const auto* text = key.get<std::string>();
  return text ? *text : std::to_string(key.integerValue().value_or(0));
}

std::optional<PropertyListArray> readElements(sd_bus_message* message, int depth) {
  PropertyListArray elements;
  while (sd_bus_message_at_end(message, 0) == 0) {
    auto element = readValue(message, depth + 1);
    if (!element) {
      return std::nullopt;
    }
    elements.push_back(std::move(*element));
  }
  return elements;
}

// Entries of dictionaries come as lists of two.
PropertyListDictionary dictionaryOf(const PropertyListArray& entries) {
  PropertyListDictionary dictionary;
  for (const auto& entry : entries) {
    const auto* pair = entry.get<PropertyListArray>();
    if (pair && pair->size() == 2) {
      dictionary.insert_or_assign(textFor(pair->front()), pair->back());
    }
  }
  return dictionary;
}

std::optional<PropertyListValue> readContainer(sd_bus_message* message, char type,
                                               const char* contents, int depth) {
  const bool isDictionary = type == SD_BUS_TYPE_ARRAY && *contents == SD_BUS_TYPE_DICT_ENTRY_BEGIN;
  if (depth >= kDeepest || sd_bus_message_enter_container(message, type, contents) < 0) {
    return std::nullopt;
  }
  auto elements = readElements(message, depth);
  if (!elements || sd_bus_message_exit_container(message) < 0) {
    return std::nullopt;
  }
  if (type == SD_BUS_TYPE_VARIANT) {
    return elements->empty() ? std::nullopt : std::optional(elements->front());
  }
  return isDictionary ? PropertyListValue(dictionaryOf(*elements))
                      : PropertyListValue(std::move(*elements));
}

template <class Number>
std::optional<PropertyListValue> readNumber(sd_bus_message* message, char type) {
  Number number{};
  return sd_bus_message_read_basic(message, type, &number) > 0
             ? std::optional(PropertyListValue(number))
             : std::nullopt;
}

std::optional<PropertyListValue> readValue(sd_bus_message* message, int depth) {
  char type = 0;
  const char* contents = nullptr;
  if (sd_bus_message_peek_type(message, &type, &contents) <= 0) {
    return std::nullopt;
  }
  switch (type) {
    case SD_BUS_TYPE_BOOLEAN: {
      int flag = 0;
      return sd_bus_message_read_basic(message, type, &flag) > 0
                 ? std::optional(PropertyListValue(flag != 0))
                 : std::nullopt;
    }
    case SD_BUS_TYPE_BYTE:
      return readNumber<std::uint8_t>(message, type);
    case SD_BUS_TYPE_INT16:
      return readNumber<std::int16_t>(message, type);
    case SD_BUS_TYPE_UINT16:
      return readNumber<std::uint16_t>(message, type);
    case SD_BUS_TYPE_INT32:
      return readNumber<std::int32_t>(message, type);
    case SD_BUS_TYPE_UINT32:
      return readNumber<std::uint32_t>(message, type);
    case SD_BUS_TYPE_INT64:
      return readNumber<std::int64_t>(message, type);
    case SD_BUS_TYPE_UINT64:
      return readNumber<std::uint64_t>(message, type);
    case SD_BUS_TYPE_DOUBLE:
      return readNumber<double>(message, type);
    case SD_BUS_TYPE_STRING:
    case SD_BUS_TYPE_OBJECT_PATH:
    case SD_BUS_TYPE_SIGNATURE: {
      const char* text = nullptr;
      return sd_bus_message_read_basic(message, type, &text) > 0
                 ? std::optional(PropertyListValue(text))
                 : std::nullopt;
    }
    case SD_BUS_TYPE_ARRAY:
    case SD_BUS_TYPE_VARIANT:
    case SD_BUS_TYPE_STRUCT:
    case SD_BUS_TYPE_DICT_ENTRY:
      return readContainer(message, type, contents, depth);
    default:
      return std::nullopt;
  }
}

// What the library, or the bus for a program that has gone, says where no answer came.
bool isSilence(std::string_view error) {
  constexpr std::array<std::string_view, 5> kSilent{
      SD_BUS_ERROR_NO_REPLY, SD_BUS_ERROR_TIMEOUT, SD_BUS_ERROR_DISCONNECTED,
      "org.freedesktop.DBus.Error.TimedOut", SD_BUS_ERROR_IO_ERROR};
  for (const auto silent : kSilent) {
    if (error == silent) {
      return true;
    }
  }
  return error.starts_with("System.Error.");
}

const PropertyListDictionary& nothing() {
  static const PropertyListDictionary kNothing;
  return kNothing;
}

}  // namespace

PropertyListValue BusAnswer::first() const {
  return values.empty() ? PropertyListValue(PropertyListDictionary()) : values.front();
}

void Bus::CloseBus::operator()(sd_bus* bus) const {
  sd_bus_close_unref(bus);
}

Bus::Bus(Kind kind) {
  sd_bus* bus = nullptr;
  const int result = kind == Kind::kSession ? sd_bus_open_user(&bus) : sd_bus_open_system(&bus);
  if (result >= 0) {
    bus_.reset(bus);
  }
}

bool Bus::isOpen() {
  // The end of a bus is seen only when it is read from.
  while (bus_ && sd_bus_process(bus_.get(), nullptr) > 0) {
  }
  return bus_ && sd_bus_is_open(bus_.get()) > 0;
}

BusAnswer Bus::call(const BusMethod& method, const Arguments& arguments,
                    std::chrono::milliseconds patience) {
  BusAnswer answer;
  sd_bus_message* message = nullptr;
  if (!isOpen() || sd_bus_message_new_method_call(bus_.get(), &message, method.service.c_str(),
                                                  method.path.c_str(), method.interface.c_str(),
                                                  method.name.c_str()) < 0) {
    return answer;
  }
  const std::unique_ptr<sd_bus_message, decltype(&sd_bus_message_unref)> question(
      message, &sd_bus_message_unref);
  if (arguments && arguments(message) < 0) {
    return answer;
  }
  sd_bus_error error{nullptr, nullptr, 0};
  sd_bus_message* reply = nullptr;
  const int result = sd_bus_call(
      bus_.get(), message, static_cast<std::uint64_t>(std::chrono::microseconds(patience).count()),
      &error, &reply);
  if (result >= 0) {
    if (auto values = readElements(reply, 0)) {
      answer.values = std::move(*values);
    }
    answer.outcome = BusAnswer::Outcome::kAnswered;
  } else {
    answer.error = error.name ? error.name : "";
    answer.outcome =
        isSilence(answer.error) ? BusAnswer::Outcome::kSilent : BusAnswer::Outcome::kRefused;
  }
  sd_bus_error_free(&error);
  sd_bus_message_unref(reply);
  return answer;
}

bool Bus::isRunning(const std::string& service) {
  const auto answer =
      call({kBusService, kBusPath, kBusService, "NameHasOwner"}, [&](sd_bus_message* message) {
        return sd_bus_message_append(message, "s", service.c_str());
      });
  return answer.isAnswered() && answer.first().boolValue();
}

bool Bus::canBeStarted(const std::string& service) {
  const auto answer = call({kBusService, kBusPath, kBusService, "ListActivatableNames"});
  const auto names = answer.first();
  const auto* list = names.get<PropertyListArray>();
  return list && std::ranges::find(*list, PropertyListValue(service)) != list->end();
}

PropertyListDictionary Bus::managedObjects(const std::string& service, const std::string& path) {
  const auto objects =
      call({service, path, "org.freedesktop.DBus.ObjectManager", "GetManagedObjects"}).first();
  const auto* dictionary = objects.get<PropertyListDictionary>();
  return dictionary ? *dictionary : nothing();
}

PropertyListDictionary Bus::properties(const std::string& service, const std::string& path,
                                       const std::string& interface) {
  const auto values =
      call({service, path, kPropertiesInterface, "GetAll"}, [&](sd_bus_message* message) {
        return sd_bus_message_append(message, "s", interface.c_str());
      }).first();
  const auto* dictionary = values.get<PropertyListDictionary>();
  return dictionary ? *dictionary : nothing();
}

const PropertyListDictionary& dictionaryIn(const PropertyListDictionary& values,
                                           std::string_view key) {
  const auto found = values.find(key);
  const auto* dictionary =
      found == values.end() ? nullptr : found->second.get<PropertyListDictionary>();
  return dictionary ? *dictionary : nothing();
}

std::string textIn(const PropertyListDictionary& values, std::string_view key) {
  const auto found = values.find(key);
  const auto* text = found == values.end() ? nullptr : found->second.get<std::string>();
  return text ? *text : std::string();
}

std::vector<std::string> textsIn(const PropertyListDictionary& values, std::string_view key) {
  std::vector<std::string> texts;
  const auto found = values.find(key);
  const auto* list = found == values.end() ? nullptr : found->second.get<PropertyListArray>();
  for (const auto& element : list ? *list : PropertyListArray()) {
    if (const auto* text = element.get<std::string>()) {
      texts.push_back(*text);
    }
  }
  return texts;
}

std::int64_t numberIn(const PropertyListDictionary& values, std::string_view key,
                      std::int64_t otherwise) {
  const auto found = values.find(key);
  return found == values.end() ? otherwise : found->second.integerValue().value_or(otherwise);
}
