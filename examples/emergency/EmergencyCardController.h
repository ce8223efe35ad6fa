#pragma once

#include <optional>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"

/// The pane: whom to call in an emergency, and the card that says so. Main thread.
class EmergencyCardController : public Subclass<EmergencyCardController, PSListController> {
 public:
  static const ClassOf<EmergencyCardController> classObject;

  const PSSpecifiers& specifiers() override;

  /// What is stored under the row's `key`; nothing where nothing is.
  std::optional<PropertyListValue> readPreferenceValue(const PSSpecifier& row);
  /// Stores it, and shows it on the card.
  void setPreferenceValueSpecifier(const PropertyListValue& value, const PSSpecifier& row);

  /// What the card says; nothing until there are a name and a number.
  std::optional<PropertyListValue> cardText(const PSSpecifier& row);
  /// Action of the card: opens the number as a `tel:` address, if there is one.
  void call();
};
