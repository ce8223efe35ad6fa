#pragma once

#include <memory>
#include <string>

#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UIViewController.h"

class InstalledBundles;

/// A page that plays one animated picture in its middle, at its own size or as large as the page
/// is. The classes that play it are a bundle's. Main thread.
class AnimationController : public Subclass<AnimationController, UIViewController> {
 public:
  static const ClassOf<AnimationController> classObject;

  /// Null, and a sentence in `fault`, where the file cannot be played.
  static std::shared_ptr<AnimationController> withFile(const std::string& file,
                                                       const InstalledBundles& bundles,
                                                       std::string& fault);

 protected:
  std::shared_ptr<UIView> loadView() override;

 private:
  std::shared_ptr<UIImageView> player_;
};
