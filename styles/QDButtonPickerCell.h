#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/UIButton.h"

/// Four pictures of the Call Anonymously button, of which the chosen one is blue. The row's `key`
/// names the setting, which counts from 1; both choices together are also kept as a text. Main
/// thread.
class QDButtonPickerCell : public Subclass<QDButtonPickerCell, PSTableCell> {
 public:
  static const ClassOf<QDButtonPickerCell> classObject;

  /// Shows the stored choice. An absent one becomes 1; one outside 1 to 4 becomes 1 too, but no
  /// picture is then shown as chosen.
  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;
  /// The reuse identifier is that of the dialler tab's cell.
  bool initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier);

  /// Action of the pictures: makes the sender the chosen one and stores it. Without a sender none
  /// is shown as chosen and 1 is stored.
  void buttonPressed(const std::shared_ptr<UIButton>& sender);

  /// The stored value, or nothing.
  std::optional<PropertyListValue> readPreferenceValue(std::string_view key);
  /// Stores the value unless it is stored already.
  void setPreferenceValueForKey(const PropertyListValue& value, std::string_view key);

  /// The four pictures, in order.
  std::array<std::shared_ptr<UIButton>, 4> buttons() const {
    return {_image1, _image2, _image3, _image4};
  }

  void layoutSubviews() override;
  CGFloat preferredHeightForWidth(CGFloat width) override;

 private:
  void makeButtons();
  std::shared_ptr<UIButton> storedChoice();

  std::string _key;
  std::shared_ptr<UIButton> _image1;
  std::shared_ptr<UIButton> _image2;
  std::shared_ptr<UIButton> _image3;
  std::shared_ptr<UIButton> _image4;
};
