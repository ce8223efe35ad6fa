#include "settings/phone/PhoneController.h"

#include <mutex>
#include <utility>

#include "platform/foundation/GlobalQueue.h"
#include "platform/foundation/MainQueue.h"
#include "platform/foundation/method.h"

namespace {

constexpr auto kMethods =
    methods<PhoneController>(method<&PhoneController::toggleLinks>("toggleLinks"),
                             method<&PhoneController::openKeypad>("openKeypad"));

std::string linksSentence(const PhoneController::Status& status) {
  std::string text;
  if (status.isRefused) {
    text = "That could not be changed. ";
  }
  if (status.areOurs) {
    return text + "QuietDial opens phone links: it shows each one and asks before it calls." +
           (status.former.empty() ? "" : " Before, " + status.former + " did.");
  }
  text += status.handler.empty() ? "Nothing opens phone links now."
                                 : "Phone links are opened with " + status.handler + " now.";
  return text + " Until QuietDial opens them, the links of other programs go where they went.";
}

std::string linksButton(const PhoneController::Status& status) {
  if (!status.areOurs) {
    return "Open Phone Links with QuietDial";
  }
  return status.former.empty() ? "Stop Opening Phone Links"
                               : "Give Phone Links Back to " + status.former;
}

}  // namespace

constexpr ClassOf<PhoneController> PhoneController::classObject{"PhoneController", kMethods};

std::shared_ptr<PhoneController> PhoneController::withPhone(Phone phone) {
  auto page = allocInit<PhoneController>();
  page->phone_ = std::move(phone);
  page->setTitle("Phone");
  return page;
}

PSSpecifiers PhoneController::rows() {
  const auto group = [](const std::string& name, const std::string& footer) {
    auto row = PSSpecifier::groupSpecifierWithName(name);
    row->setPropertyForKey(PropertyListValue(footer), "footerText");
    return row;
  };
  const auto button = [this](const std::string& name, const char* action) {
    auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        name, shared_from_this(), "", "", "", PSCellType::kButton, "");
    row->setAction(action);
    return row;
  };
  PSSpecifiers rows;
  if (isKnown_) {
    rows.push_back(group("Phone Links", linksSentence(status_)));
    rows.push_back(button(linksButton(status_), "toggleLinks"));
    rows.push_back(group("Calls", status_.call));
  } else {
    rows.push_back(group("Calls", "One moment …"));
  }
  rows.push_back(button("Open Keypad", "openKeypad"));
  return rows;
}

const PSSpecifiers& PhoneController::specifiers() {
  if (!hasSpecifiers()) {
    setSpecifiers(rows());
  }
  return keptSpecifiers();
}

void PhoneController::viewWillAppear(bool animated) {
  Subclass::viewWillAppear(animated);
  work({});
}

void PhoneController::toggleLinks() {
  if (!isBusy_) {
    work(status_.areOurs ? phone_.giveLinksBack : phone_.takeLinks);
  }
}

void PhoneController::openKeypad() {
  phone_.openKeypad();
}

void PhoneController::work(std::function<bool()> change) {
  isBusy_ = true;
  const auto self = std::static_pointer_cast<PhoneController>(shared_from_this());
  GlobalQueue::shared().async([self, look = phone_.look, change = std::move(change), turn = turn_] {
    const std::lock_guard lock(*turn);
    const bool isRefused = change && !change();
    auto status = look();
    status.isRefused = isRefused;
    MainQueue::shared().async([self, status] { self->show(status); });
  });
}

void PhoneController::show(const Status& status) {
  isBusy_ = false;
  isKnown_ = true;
  status_ = status;
  setSpecifiers(rows());
}
