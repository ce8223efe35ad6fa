#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"

/// The pane in which the dial prefix is chosen by country or typed. The chosen country, the prefix
/// in force and the typed prefix are loaded once, when the pane is made; every change goes to the
/// property first and then to the file. A stored value keeps the type that it was stored with.
/// Main thread.
class QDCountryPrefixController : public Subclass<QDCountryPrefixController, PSListController> {
 public:
  static const ClassOf<QDCountryPrefixController> classObject;

  /// Loads the three settings; each one that is absent gets its default, which is written.
  bool init() override;
  const PSSpecifiers& specifiers() override;

  /// Getter of the rows: the typed prefix, whichever row asks.
  std::optional<PropertyListValue> getValueForSpecifier(const PSSpecifier& specifier);
  /// Setter of the rows: a new typed prefix, whichever row it comes from. While the custom row is
  /// the chosen one it is in force at once.
  void setValueForSpecifier(const PropertyListValue& value, const PSSpecifier& specifier);
  /// Action of the country rows and of the custom row.
  void cellSelected(const std::shared_ptr<PSSpecifier>& specifier);

  /// The stored value, or nothing.
  std::optional<PropertyListValue> readPreferenceValue(std::string_view key);
  /// Stores the value, even when it is stored already.
  void setPreferenceValueForKey(const PropertyListValue& value, std::string_view key);

  // The properties. Setting one changes it alone: nothing is stored, no row is changed or reloaded.
  /// The row with the check mark, or null.
  const std::shared_ptr<PSSpecifier>& selectedSpecifier() const { return selectedSpecifier_; }
  void setSelectedSpecifier(std::shared_ptr<PSSpecifier> specifier);
  /// The identifier of the chosen row.
  const PropertyListValue& selectedCountry() const { return selectedCountry_; }
  void setSelectedCountry(PropertyListValue country);
  /// The prefix in force.
  const PropertyListValue& selectedPrefix() const { return selectedPrefix_; }
  void setSelectedPrefix(PropertyListValue prefix);
  /// The text last committed in the field.
  const PropertyListValue& customPrefix() const { return customPrefix_; }
  void setCustomPrefix(PropertyListValue prefix);

 private:
  PropertyListValue storedOrDefault(std::string_view key, std::string_view otherwise);
  void addPrefixRow(PSSpecifiers& rows, const std::shared_ptr<PSSpecifier>& row);
  std::shared_ptr<PSSpecifier> makeField();

  std::shared_ptr<PSSpecifier> selectedSpecifier_;
  PropertyListValue selectedCountry_ = "";
  PropertyListValue selectedPrefix_ = "";
  PropertyListValue customPrefix_ = "";
};
