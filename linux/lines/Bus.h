#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "platform/foundation/PropertyList.h"

struct sd_bus;
struct sd_bus_message;

/// A method of an object on a message bus.
struct BusMethod {
  std::string service;
  std::string path;
  std::string interface;
  std::string name;
};

/// What came of calling it.
struct BusAnswer {
  enum class Outcome {
    kAnswered,
    kRefused,  ///< An error came back, or the call could not be sent: nothing was done.
    kSilent,   ///< The call has left and no answer came: it may have been done.
  };

  Outcome outcome = Outcome::kRefused;
  PropertyListArray values;  ///< The arguments of the answer.
  std::string error;         ///< The D-Bus name of the error.

  bool isAnswered() const { return outcome == Outcome::kAnswered; }
  /// The first argument; an empty dictionary where there is none.
  PropertyListValue first() const;
};

/// A connection to a message bus, for questions that wait for their answers. Answers are not
/// trusted: what is not of the expected kind reads as nothing. One thread at a time.
class Bus {
 public:
  enum class Kind { kSession, kSystem };
  /// Appends the arguments to the message; sd-bus's result.
  using Arguments = std::function<int(sd_bus_message* message)>;

  static constexpr std::chrono::milliseconds kUsualPatience{5000};

  /// Without the bus there is nobody to answer.
  explicit Bus(Kind kind);

  BusAnswer call(const BusMethod& method, const Arguments& arguments = {},
                 std::chrono::milliseconds patience = kUsualPatience);

  /// Whether a program has the name.
  bool isRunning(const std::string& service);
  /// Whether the bus can start a program that takes the name.
  bool canBeStarted(const std::string& service);

  /// Every object below the service's manager: path, interface, property.
  PropertyListDictionary managedObjects(const std::string& service, const std::string& path);
  /// The properties of one interface of an object.
  PropertyListDictionary properties(const std::string& service, const std::string& path,
                                    const std::string& interface);

 private:
  struct CloseBus {
    void operator()(sd_bus* bus) const;
  };

  bool isOpen();

  std::unique_ptr<sd_bus, CloseBus> bus_;
};

/// The parts of an answer; the empty one where there is something else, or nothing.
const PropertyListDictionary& dictionaryIn(const PropertyListDictionary& values,
                                           std::string_view key);
std::string textIn(const PropertyListDictionary& values, std::string_view key);
std::vector<std::string> textsIn(const PropertyListDictionary& values, std::string_view key);
/// The number, or `otherwise`.
std::int64_t numberIn(const PropertyListDictionary& values, std::string_view key,
                      std::int64_t otherwise);
