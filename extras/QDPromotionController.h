#pragma once

#include <memory>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"
#include "platform/uikit/UIWebView.h"

/// The page about the maker's other tweaks. A hidden web view loads it to learn its height while a
/// spinner row is shown; then one row of that height takes the spinner's place, and everything that
/// the catalogue lists counts as seen. A page that never comes leaves the spinner. Main thread.
class QDPromotionController : public Subclass<QDPromotionController, PSListController>,
                              public UIWebViewDelegate {
 public:
  static const ClassOf<QDPromotionController> classObject;

  void webViewDidFinishLoad(UIWebView& webView) override;
  const PSSpecifiers& specifiers() override;
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;

  /// Null until the rows have been built.
  const std::shared_ptr<UIWebView>& sizeCalculationView() const { return sizeCalculationView_; }
  void setSizeCalculationView(const std::shared_ptr<UIWebView>& view) {
    sizeCalculationView_ = view;
  }
  /// The spinner row while it is shown, else null.
  const std::shared_ptr<PSSpecifier>& loadingSpecifier() const { return loadingSpecifier_; }
  void setLoadingSpecifier(const std::shared_ptr<PSSpecifier>& row) { loadingSpecifier_ = row; }

 private:
  std::shared_ptr<PSSpecifier> makeWebRow();

  std::shared_ptr<UIWebView> sizeCalculationView_;
  std::shared_ptr<PSSpecifier> loadingSpecifier_;
};
