#pragma once

#include <memory>
#include <string>

#include "platform/foundation/NSData.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UIViewController.h"

/// A page that plays one animated picture in its middle, at its own size or as large as the page
/// is. The classes that play it are a bundle's, which must have been loaded. Main thread.
class AnimationController : public Subclass<AnimationController, UIViewController> {
 public:
  static const ClassOf<AnimationController> classObject;

  /// Null where the data makes no animated picture, or no bundle plays such.
  static std::shared_ptr<AnimationController> withData(const std::shared_ptr<NSData>& data,
                                                       const std::string& title);

 protected:
  std::shared_ptr<UIView> loadView() override;

 private:
  std::shared_ptr<UIImageView> player_;
};
