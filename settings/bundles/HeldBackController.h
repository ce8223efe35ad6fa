#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/ExplanationController.h"

/// Stands in for a page that was to be opened at the start and took the program down the last time,
/// says so, and offers to open it all the same. Main thread.
class HeldBackController : public Subclass<HeldBackController, ExplanationController> {
 public:
  static const ClassOf<HeldBackController> classObject;

  /// `specifier` is the row that leads to the page, or null; `open` opens the page in this one's
  /// place.
  static std::shared_ptr<HeldBackController> forPane(const std::string& className,
                                                     const std::shared_ptr<PSSpecifier>& specifier,
                                                     std::function<void()> open);

  /// Action of the button.
  void openAnyway();

 protected:
  PSSpecifiers rows() override;

 private:
  std::function<void()> open_;
};
