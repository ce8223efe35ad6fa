#pragma once

#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"

/// A page that stands in for another and says why: a heading with a text under it. Main thread.
class PLATFORM_API ExplanationController
    : public Subclass<ExplanationController, PSListController> {
 public:
  static const ClassOf<ExplanationController> classObject;

  const PSSpecifiers& specifiers() override;

 protected:
  /// Before the page is first shown.
  void explain(std::string heading, std::string explanation);

  /// Rows under the text; none unless a subclass has some.
  virtual PSSpecifiers rows() { return {}; }

 private:
  std::string heading_;
  std::string explanation_;
};
