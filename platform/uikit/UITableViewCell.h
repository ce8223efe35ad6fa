#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UIView.h"

/// The numbers are the platform's; cells and panes pass them.
enum class UITableViewCellStyle { kDefault = 0, kValue1 = 1 };
enum class UITableViewCellAccessoryType { kNone = 0, kDisclosureIndicator = 1, kCheckmark = 3 };

/// Where a row stands in its group; decides which separators it carries.
enum class UITableViewCellPosition { kSingle, kFirst, kMiddle, kLast };

/// One row of a table: a content view with icon, title and value, and an accessory at the right
/// end. Main thread.
class PLATFORM_API UITableViewCell : public Subclass<UITableViewCell, UIView> {
 public:
  static const ClassOf<UITableViewCell> classObject;

  virtual bool initWithStyleReuseIdentifier(UITableViewCellStyle style,
                                            std::string reuseIdentifier);

  const std::string& reuseIdentifier() const { return reuseIdentifier_; }
  const std::shared_ptr<UIView>& contentView() const { return contentView_; }
  const std::shared_ptr<UILabel>& textLabel() const { return textLabel_; }
  /// Null in the default style.
  const std::shared_ptr<UILabel>& detailTextLabel() const { return detailTextLabel_; }
  const std::shared_ptr<UIImageView>& imageView() const { return imageView_; }

  UITableViewCellAccessoryType accessoryType() const { return accessoryType_; }
  void setAccessoryType(UITableViewCellAccessoryType type);
  /// Takes the place of the accessory type. It stands at the right end of the row, in a view of its
  /// own, so that its frame stays as it was given.
  const std::shared_ptr<UIView>& accessoryView() const { return accessoryView_; }
  void setAccessoryView(const std::shared_ptr<UIView>& view);

  /// Distances of the separator from the cell's edges; the table's own unless set.
  const std::optional<UIEdgeInsets>& separatorInset() const { return separatorInset_; }
  void setSeparatorInset(UIEdgeInsets inset);
  const std::optional<UIEdgeInsets>& layoutMargins() const { return layoutMargins_; }
  void setLayoutMargins(UIEdgeInsets margins);
  const std::optional<bool>& preservesSuperviewLayoutMargins() const { return preservesMargins_; }
  void setPreservesSuperviewLayoutMargins(bool preserves);

  UITableViewCellPosition position() const { return position_; }
  void setPosition(UITableViewCellPosition position);

  /// The height of a row of that width that has no height of its own: the usual one at the usual
  /// text sizes, at larger ones what its texts need.
  CGFloat standardHeightForWidth(CGFloat width) const;

  void layoutSubviews() override;

 protected:
  /// The size of what a subclass shows behind title and value, the gap before it included.
  virtual CGSize trailingSize() const { return {}; }
  /// Gives that its place in the content view, as high as it is, but maybe not as wide.
  virtual void placeTrailing(CGRect /*room*/) {}

 private:
  /// Where the texts of a row of some width stand.
  struct TextPlaces {
    CGFloat left = 0;
    CGFloat right = 0;
    /// Whether title, value and the rest stand one below the other, for want of room.
    bool stacked = false;
    CGSize title;
    CGSize detail;
    CGSize trailing;
    /// Between title and value.
    CGFloat gap() const;
    CGFloat height() const;
  };

  CGFloat accessoryWidth() const;
  TextPlaces textPlacesForWidth(CGFloat width) const;
  void setStacked(bool stacked);
  void placeInLine(const TextPlaces& places, CGFloat height);
  void placeStacked(const TextPlaces& places, CGFloat height);

  std::string reuseIdentifier_;
  std::shared_ptr<UIView> contentView_;
  std::shared_ptr<UIImageView> imageView_;
  std::shared_ptr<UILabel> textLabel_;
  std::shared_ptr<UILabel> detailTextLabel_;
  std::shared_ptr<UIView> accessoryContainer_;
  std::shared_ptr<UIView> accessoryView_;
  std::optional<UIEdgeInsets> separatorInset_;
  std::optional<UIEdgeInsets> layoutMargins_;
  std::optional<bool> preservesMargins_;
  bool stacked_ = false;
  UITableViewCellAccessoryType accessoryType_ = UITableViewCellAccessoryType::kNone;
  UITableViewCellPosition position_ = UITableViewCellPosition::kSingle;
};
