#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIViewController.h"

/// The one service that is known here.
inline constexpr std::string_view SLServiceTypeTwitter = "SLServiceTypeTwitter";

/// A sheet in which the user completes and posts a short text through a social service. Main
/// thread.
class PLATFORM_API SLComposeViewController
    : public Subclass<SLComposeViewController, UIViewController> {
 public:
  static const ClassOf<SLComposeViewController> classObject;

  static std::shared_ptr<SLComposeViewController> composeViewControllerForServiceType(
      std::string_view serviceType);

  const std::string& serviceType() const { return serviceType_; }
  const std::string& text() const { return text_; }
  /// Also for the host, as the user types.
  void setInitialText(std::string text) { text_ = std::move(text); }
  const std::vector<std::shared_ptr<UIImage>>& images() const { return images_; }
  void removeAllImages() { images_.clear(); }

  /// For the host: the user has posted or cancelled. The sheet dismisses itself.
  void finish();

 private:
  std::string serviceType_;
  std::string text_;
  std::vector<std::shared_ptr<UIImage>> images_;
};
