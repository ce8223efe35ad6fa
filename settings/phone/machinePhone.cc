#include "settings/phone/machinePhone.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <chrono>
#include <utility>
#include <vector>

#include "linux/callSettings.h"
#include "linux/desktopProgram.h"
#include "linux/lines/PhoneLinks.h"

namespace {

constexpr std::chrono::seconds kPatience(20);
constexpr std::size_t kLongestAnswer = std::size_t{1} << 20;
// Any number: only what goes with it is of interest.
constexpr const char* kSomeNumber = "5550123";

QJsonDocument ask(const std::vector<std::string>& command) {
  const auto answer = outputOfDesktopProgram(command, kPatience, kLongestAnswer);
  return answer ? QJsonDocument::fromJson(QByteArray::fromStdString(*answer)) : QJsonDocument();
}

std::string textOf(const QJsonObject& object, const char* key) {
  return object.value(QLatin1String(key)).toString().toStdString();
}

std::string titleOfTheLine(const std::string& program) {
  for (const auto& line : ask({program, "lines", "--json"}).array()) {
    if (line.toObject().value(QLatin1String("auto")).toBool()) {
      return textOf(line.toObject(), "title");
    }
  }
  return {};
}

std::string whatACallWouldDo(const std::string& program, const DevicePaths& paths, bool isTrial) {
  const std::string line = titleOfTheLine(program);
  if (line.empty()) {
    return isTrial ? "No phone here: the keypad shows what would be dialled."
                   : "No call can be placed: nothing here can place calls.";
  }
  const auto plan =
      ask({program, "call", "--dry-run", "--json", "--root", paths.root(), kSomeNumber}).object();
  const auto refused = textOf(plan, "sentence");
  if (!refused.empty() && textOf(plan, "refused") != "in-call") {
    return refused;
  }
  if (textOf(plan, "hide") == "line") {
    return "An anonymous call would go through " + line + ", which asks the network by itself.";
  }
  return "An anonymous call would be dialled with " + readCallSettings(paths).prefix + " through " +
         line + ".";
}

}  // namespace

PhoneController::Phone machinePhone(std::shared_ptr<const DevicePaths> paths,
                                    const std::string& programs, bool isTrial, bool allowRoot) {
  const PhoneLinks links(programs + "/quietdial-dialler");
  const auto look = [=] {
    PhoneController::Status status;
    const std::string handler = links.handler();
    status.areOurs = handler == PhoneLinks::kOwnEntry;
    const auto nameOf = [](const std::string& entry) {
      return entry.empty() ? std::string() : PhoneLinks::nameOf(entry);
    };
    status.handler = nameOf(handler);
    status.former = status.areOurs ? nameOf(links.handlerBesidesOurs()) : "";
    status.call = whatACallWouldDo(programs + "/quietdial", *paths, isTrial);
    return status;
  };
  const auto openKeypad = [=] {
    std::vector<std::string> command{programs + "/quietdial-dialler", "--root", paths->root()};
    if (isTrial) {
      command.emplace_back("--try-out");
    }
    if (allowRoot) {
      command.emplace_back("--allow-root");
    }
    startDesktopProgram(command);
  };
  return {look, [links] { return links.take(); }, [links] { return links.giveBack(); }, openKeypad};
}
