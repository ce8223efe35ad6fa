#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"
#include "platform/preferences/PSListController.h"

/// A pane with the rows that it is given. It keeps the names of those that were pressed.
class RowsPane : public Subclass<RowsPane, PSListController> {
 public:
  static const ClassOf<RowsPane> classObject;

  using PSListController::setSpecifiers;

  /// A row of this pane's. Its value is its property "value".
  std::shared_ptr<PSSpecifier> row(std::string name, PSCellType type) {
    return PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        std::move(name), shared_from_this(), "", "valueOf:", "", type, "");
  }
  /// One that can be pressed.
  std::shared_ptr<PSSpecifier> button(std::string name, PSCellType type = PSCellType::kLink) {
    auto specifier = row(std::move(name), type);
    specifier->setAction("rowPressed:");
    return specifier;
  }
  PSSpecifiers buttons(const std::vector<std::string>& names) {
    PSSpecifiers rows;
    for (const auto& name : names) {
      rows.push_back(button(name));
    }
    return rows;
  }

  void rowPressed(const std::shared_ptr<PSSpecifier>& specifier) {
    pressed.push_back(specifier->name());
  }
  std::optional<PropertyListValue> valueOf(const PSSpecifier& specifier) {
    return specifier.plistForKey("value");
  }

  std::vector<std::string> pressed;
};

inline constexpr auto kRowsPaneMethods = methods<RowsPane>(
    method<&RowsPane::rowPressed>("rowPressed:"), method<&RowsPane::valueOf>("valueOf:"));
inline constexpr ClassOf<RowsPane> RowsPane::classObject{"RowsPane", kRowsPaneMethods};
