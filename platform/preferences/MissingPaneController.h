#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/preferences/PSListController.h"

enum class MissingPaneReason { kNoSuchClass, kNoPane, kNotMade };

/// Stands in for a page that cannot be opened and says which class is concerned and why, so that a
/// row never leads nowhere. Main thread.
class PLATFORM_API MissingPaneController : public PSListController {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  static std::shared_ptr<MissingPaneController> forClass(
      const std::string& className, MissingPaneReason reason,
      const std::shared_ptr<PSSpecifier>& specifier);

  const PSSpecifiers& specifiers() override;

 private:
  std::string explanation_;
};
