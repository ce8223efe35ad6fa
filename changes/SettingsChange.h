#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "core/settingsTable.h"
#include "platform/foundation/PropertyList.h"
#include "prefix/prefixes.h"

/// One key's difference; nothing for absent.
struct SettingsDifference {
  const settings::Setting* setting;
  std::optional<PropertyListValue> before;
  std::optional<PropertyListValue> after;
};

/// Where two contents of the settings file differ, in the order of the table.
std::vector<SettingsDifference> differencesBetween(const PropertyListDictionary& before,
                                                   const PropertyListDictionary& after);

/// A change of the settings as a whole, which takes along what goes together: a mode or a button
/// and its text, a country and its prefix, the user's own prefix and the one in force while the row
/// for it is chosen. Keys that are not QuietDial's stay. Nothing is written here. Any thread, one
/// at a time.
class SettingsChange {
 public:
  /// The change of nothing in what is stored.
  explicit SettingsChange(PropertyListDictionary stored);

  /// Stores a value that the setting accepts. Not for one that follows another (`leaderOf`); a
  /// country has to be a row of the table or the custom row.
  void set(const settings::Setting& setting, const PropertyListValue& value);

  /// Chooses a row of the table of countries.
  void chooseCountry(const CountryPrefix& row);
  /// Chooses the row for the user's own prefix, with the one that is stored or with a new one.
  void chooseCustom();
  void chooseCustom(std::string_view prefix);

  /// Takes the setting back to its default, by leaving it out with what follows it; nothing where
  /// it has its default. Not for one that follows another.
  void reset(const settings::Setting& setting);
  void resetAll();

  const PropertyListDictionary& before() const { return before_; }
  const PropertyListDictionary& after() const { return after_; }
  bool isEmpty() const { return before_ == after_; }
  std::vector<SettingsDifference> differences() const {
    return differencesBetween(before_, after_);
  }

 private:
  void storeText(const settings::Setting& setting, std::string_view text);
  bool hasStaleWords(const settings::Setting& setting) const;
  void updateWords(const settings::Setting& setting);
  bool isCustomChosen() const;

  PropertyListDictionary before_;
  PropertyListDictionary after_;
};
