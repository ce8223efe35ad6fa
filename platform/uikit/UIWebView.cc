#include "platform/uikit/UIWebView.h"

#include <algorithm>
#include <utility>

#include "platform/services.h"

constexpr ClassOf<UIWebView> UIWebView::classObject{"UIWebView"};

UIWebViewDelegate::~UIWebViewDelegate() = default;

bool UIWebView::initWithFrame(CGRect frame) {
  if (!UIView::initWithFrame(frame)) {
    return false;
  }
  scrollView_ = allocInit<UIScrollView>();
  addSubview(scrollView_);
  return true;
}

void UIWebView::loadRequest(NSURLRequest request) {
  request_ = std::move(request);
  loading_ = true;
  ++loadNumber_;
  setNeedsDisplay();
  services().webViews->load(*this);
}

void UIWebView::finishLoad(int loadNumber, CGSize contentSize) {
  if (!loading_ || loadNumber != loadNumber_) {
    return;
  }
  loading_ = false;
  setContentSize(loadNumber, contentSize);
  setNeedsDisplay();
  if (const auto delegate = delegate_.lock()) {
    const auto keptAlive = shared_from_this();
    delegate->webViewDidFinishLoad(*this);
  }
}

void UIWebView::failLoad(int loadNumber) {
  if (loading_ && loadNumber == loadNumber_) {
    loading_ = false;
    setNeedsDisplay();
  }
}

void UIWebView::setContentSize(int loadNumber, CGSize contentSize) {
  contentSize.height = std::min(contentSize.height, kGreatestContentHeight);
  if (loadNumber != loadNumber_ || contentSize == scrollView_->contentSize()) {
    return;
  }
  scrollView_->setContentSize(contentSize);
  if (const auto parent = superview()) {
    parent->setNeedsLayout();
  }
}
