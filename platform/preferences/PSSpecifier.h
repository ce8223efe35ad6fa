#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/Subclass.h"

class PSSpecifier;

/// The rows of a pane in order, group headers among them.
using PSSpecifiers = std::vector<std::shared_ptr<PSSpecifier>>;

/// The kind of cell that shows a row where no class is named. The numbers are the platform's.
enum class PSCellType {
  kDefault = -1,
  kGroup = 0,
  kLink = 1,
  kListItem = 3,
  kTitleValue = 4,
  kEditText = 8,
  kButton = 13,
};

/// What a row property may hold: a property-list value, a class, or an object such as an image.
using PSPropertyValue =
    std::variant<PropertyListValue, const ClassDescription*, std::shared_ptr<NSObject>>;

/// One row of a pane: a bag of named properties, and how its value is got and set.
///
/// The bag may be read and written from any thread, one property at a time; everything else belongs
/// to the main thread. The target is held weakly.
class PLATFORM_API PSSpecifier : public Subclass<PSSpecifier, NSObject> {
 public:
  static const ClassOf<PSSpecifier> classObject;

  /// A group, which begins with the row after it; the name is its header's text, empty for none.
  static std::shared_ptr<PSSpecifier> groupSpecifierWithName(std::string name);

  /// A row. `set` and `get` are selectors of the target, `detail` and `edit` the names of pane
  /// classes; empty for none.
  static std::shared_ptr<PSSpecifier> preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      std::string name, const std::shared_ptr<NSObject>& target, std::string_view set,
      std::string_view get, std::string_view detail, PSCellType cell, std::string_view edit);

  const std::string& name() const { return name_; }
  PSCellType cellType() const { return cellType_; }
  std::shared_ptr<NSObject> target() const { return target_.lock(); }
  /// Class name of the pane that the row leads to; empty for none.
  const std::string& detail() const { return detail_; }

  /// The text of the property `id`, else the name.
  std::string identifier() const;

  /// Selector that a tap on the row sends to the target, with the row as sender; empty for none.
  const std::string& action() const { return action_; }
  void setAction(std::string_view action) { action_ = action; }
  /// True when somebody answered for the action.
  bool performAction();
  using NSObject::performAction;

  /// What the getter gives; nothing when the row has none.
  std::optional<PropertyListValue> value();
  /// Hands a value to the setter, if the row has one.
  void setValue(const PropertyListValue& value);

  /// The property; nothing where it is absent.
  std::optional<PSPropertyValue> propertyForKey(std::string_view key) const;
  /// Sets or replaces the property. A cell that is shown follows when its row is reloaded.
  void setPropertyForKey(PSPropertyValue value, std::string_view key);
  /// A copy of the bag as it stands.
  std::map<std::string, PSPropertyValue, std::less<>> properties() const;

  /// The property as a property-list value; nothing where it is absent or of another kind.
  std::optional<PropertyListValue> plistForKey(std::string_view key) const;
  /// The property as a text; nothing where it is absent or of another kind.
  std::optional<std::string> textForKey(std::string_view key) const;
  /// The property as a class, given itself or by name; null where there is none of that name.
  const ClassDescription* classForKey(std::string_view key) const;

 protected:
  void configure(std::string name, const std::shared_ptr<NSObject>& target, std::string_view set,
                 std::string_view get, std::string_view detail, PSCellType cell,
                 std::string_view edit);

 private:
  std::string name_;
  std::weak_ptr<NSObject> target_;
  std::string setter_;
  std::string getter_;
  std::string detail_;
  std::string edit_;
  std::string action_;
  PSCellType cellType_ = PSCellType::kDefault;
  mutable std::mutex mutex_;
  std::map<std::string, PSPropertyValue, std::less<>> properties_;  // guarded by mutex_
};
