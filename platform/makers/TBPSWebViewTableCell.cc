#include "platform/makers/TBPSWebViewTableCell.h"

#include <utility>

constexpr ClassOf<TBPSWebViewTableCell> TBPSWebViewTableCell::classObject{"TBPSWebViewTableCell"};

namespace {

constexpr double kPatience = 30;  // seconds

}  // namespace

bool TBPSWebViewTableCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle style, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                          specifier)) {
    return false;
  }
  webView_ = allocInit<UIWebView>();
  contentView()->addSubview(webView_);
  if (const auto url = specifier->textForKey("url")) {
    webView_->loadRequest({*url, kPatience});
  }
  return true;
}

void TBPSWebViewTableCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  webView_->setFrame(contentView()->bounds());
}
