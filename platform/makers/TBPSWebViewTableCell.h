#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/UIWebView.h"

/// A row that loads and shows the page at its `url`, over its whole area; without one it is empty.
/// Main thread.
class PLATFORM_API TBPSWebViewTableCell : public Subclass<TBPSWebViewTableCell, PSTableCell> {
 public:
  static const ClassOf<TBPSWebViewTableCell> classObject;

  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;
  void layoutSubviews() override;

 private:
  std::shared_ptr<UIWebView> webView_;
};
