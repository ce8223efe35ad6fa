#pragma once

#include <memory>
#include <optional>

#include "platform/api.h"
#include "platform/foundation/NSURLRequest.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIScrollView.h"
#include "platform/uikit/UIView.h"

class UIWebView;

/// Told how a web view's loads end. Main thread.
class PLATFORM_API UIWebViewDelegate {
 public:
  virtual ~UIWebViewDelegate();
  /// The page has been loaded. Not called for a load that failed, took too long or was answered
  /// with a status other than 2xx.
  virtual void webViewDidFinishLoad(UIWebView& webView) = 0;
};

/// Loads a web page, and shows it unless it is hidden. The page is loaded and drawn by the machine;
/// its content size is known once it has been loaded, and follows the view's width. Main thread.
class PLATFORM_API UIWebView : public Subclass<UIWebView, UIView> {
 public:
  static const ClassOf<UIWebView> classObject;

  /// The content of a longer page ends here, in points: what is as high as its page takes memory in
  /// proportion, and the page comes from elsewhere.
  static constexpr CGFloat kGreatestContentHeight = 20'000;

  bool initWithFrame(CGRect frame) override;

  /// Held weakly.
  void setDelegate(const std::shared_ptr<UIWebViewDelegate>& delegate) { delegate_ = delegate; }
  /// Its content size is that of the page, as far as it is shown.
  const std::shared_ptr<UIScrollView>& scrollView() const { return scrollView_; }

  /// Starts loading; a load that is under way is given up.
  void loadRequest(NSURLRequest request);
  /// What was last asked for; nothing before the first load.
  const std::optional<NSURLRequest>& request() const { return request_; }
  bool isLoading() const { return loading_; }

  /// For the host: the number of the last load, counted from 1. What is told of an earlier load, or
  /// of one that has ended, changes nothing.
  int loadNumber() const { return loadNumber_; }
  /// For the host: the page is there, and this is its whole size at the view's width.
  void finishLoad(int loadNumber, CGSize contentSize);
  /// For the host: the page will not come.
  void failLoad(int loadNumber);
  /// For the host: the loaded page's size has changed, for example with the view's width. The
  /// superview is laid out anew, since a row may be as high as the page.
  void setContentSize(int loadNumber, CGSize contentSize);

 private:
  std::weak_ptr<UIWebViewDelegate> delegate_;
  std::shared_ptr<UIScrollView> scrollView_;
  std::optional<NSURLRequest> request_;
  int loadNumber_ = 0;
  bool loading_ = false;
};
