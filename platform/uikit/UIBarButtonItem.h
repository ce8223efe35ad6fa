#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIImage.h"

/// The numbers are the platform's.
enum class UIBarButtonItemStyle { kPlain = 0, kDone = 2 };

/// A button of the navigation bar. It holds its target weakly. Main thread.
class PLATFORM_API UIBarButtonItem : public Subclass<UIBarButtonItem, NSObject> {
 public:
  static const ClassOf<UIBarButtonItem> classObject;

  /// A null image leaves a button without a picture. `action` is a selector of the target.
  bool initWithImageStyleTargetAction(const std::shared_ptr<UIImage>& image,
                                      UIBarButtonItemStyle style,
                                      const std::shared_ptr<NSObject>& target,
                                      std::string_view action);

  const std::shared_ptr<UIImage>& image() const { return image_; }
  UIBarButtonItemStyle style() const { return style_; }
  const std::string& action() const { return action_; }
  bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled) { enabled_ = enabled; }
  /// What assistive technology calls the button; a picture has no text of its own.
  const std::string& accessibilityLabel() const { return accessibilityLabel_; }
  void setAccessibilityLabel(std::string label) { accessibilityLabel_ = std::move(label); }

  /// For the host: the user has tapped the button. Nothing while it is disabled.
  void press();

 private:
  std::shared_ptr<UIImage> image_;
  std::weak_ptr<NSObject> target_;
  std::string action_;
  std::string accessibilityLabel_;
  UIBarButtonItemStyle style_ = UIBarButtonItemStyle::kPlain;
  bool enabled_ = true;
};
