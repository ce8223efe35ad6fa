#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"

/// The page about the phone: who opens phone links, what a call would do, and the way to the
/// keypad. What it tells is asked for in the background each time it appears. Main thread.
class PhoneController : public Subclass<PhoneController, PSListController> {
 public:
  /// What the page tells of.
  struct Status {
    std::string handler;     ///< Who opens phone links, as people call it; empty for nobody.
    std::string former;      ///< Who did before this system's dialler; empty for nobody.
    bool areOurs = false;    ///< Whether the dialler opens them.
    bool isRefused = false;  ///< What was asked for last did not come into force.
    std::string call;        ///< What a call would do, or why none can be placed: a sentence.
  };

  /// What the page asks of the machine. The first three wait for others: they are called on a
  /// worker, one at a time.
  struct Phone {
    std::function<Status()> look;
    std::function<bool()> takeLinks;
    std::function<bool()> giveLinksBack;
    std::function<void()> openKeypad;
  };

  static const ClassOf<PhoneController> classObject;

  static std::shared_ptr<PhoneController> withPhone(Phone phone);

  const PSSpecifiers& specifiers() override;
  void viewWillAppear(bool animated) override;

  void toggleLinks();
  void openKeypad();

 private:
  void work(std::function<bool()> change);
  void show(const Status& status);
  PSSpecifiers rows();

  Phone phone_;
  std::shared_ptr<std::mutex> turn_ = std::make_shared<std::mutex>();
  Status status_;
  bool isKnown_ = false;
  bool isBusy_ = false;
};
