#pragma once

#include <memory>
#include <optional>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"

/// The pane of the system-wide call screen: how it offers the anonymous call, and the two questions
/// that it asks. Its first row stores its choice itself. Main thread.
class QDSystemwideStyleSelectionController
    : public Subclass<QDSystemwideStyleSelectionController, PSListController> {
 public:
  static const ClassOf<QDSystemwideStyleSelectionController> classObject;

  /// Building the rows loads the view, too: from then on a tap anywhere in it ends editing.
  const PSSpecifiers& specifiers() override;
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;

  /// Ends editing in the pane, whichever field has the keyboard.
  void dismissKeyboard();

  /// Getter of the fields: what is stored under the row's `key`, or nothing.
  std::optional<PropertyListValue> readPreferenceValue(const PSSpecifier& specifier);
  /// Setter of the fields: stores the value, even when it is stored already.
  void setPreferenceValueSpecifier(const PropertyListValue& value, const PSSpecifier& specifier);

 private:
  void endEditingOnTap();
  std::shared_ptr<PSSpecifier> makeField(const char* placeholder, const char* key);
};
