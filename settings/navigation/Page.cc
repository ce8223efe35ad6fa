#include "settings/navigation/Page.h"

#include <utility>

#include "platform/uikit/UIViewController.h"

Page::Page(std::shared_ptr<UIViewController> controller, QString backTitle)
    : controller_(std::move(controller)), backTitle_(std::move(backTitle)) {
  refresh();
}

ViewHandle Page::view() const {
  return controller_->view();
}

void Page::refresh() {
  const auto& item = controller_->navigationItem();
  rightButton_.show(item->rightBarButtonItem());
  const QString title = QString::fromStdString(item->title());
  if (title != title_ || item->titleView() != titleView_) {
    title_ = title;
    titleView_ = item->titleView();
    emit changed();
  }
}
