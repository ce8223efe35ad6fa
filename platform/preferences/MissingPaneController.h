#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/ExplanationController.h"

/// Why a page cannot be opened: no class has the name, the class is no page, or its init failed.
enum class MissingPaneReason { kNoSuchClass, kNoPane, kNotMade };

/// Stands in for a page that cannot be opened and says which class is concerned and why, so that a
/// row never leads nowhere. Main thread.
class PLATFORM_API MissingPaneController
    : public Subclass<MissingPaneController, ExplanationController> {
 public:
  static const ClassOf<MissingPaneController> classObject;

  /// The page for a class of that name, titled as the row that led here (null for none). Never
  /// null.
  static std::shared_ptr<MissingPaneController> forClass(
      const std::string& className, MissingPaneReason reason,
      const std::shared_ptr<PSSpecifier>& specifier);
};
