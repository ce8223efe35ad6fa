#include "settings/navigation/Navigation.h"

#include "platform/uikit/UITextField.h"

namespace {

constexpr int kPageRole = Qt::UserRole;

}  // namespace

Navigation::Navigation()
    : window_(allocInit<UIWindow>()),
      outer_(allocInit<UINavigationController>()),
      inner_(allocInit<UINavigationController>()) {
  outer_->pushViewControllerAnimated(inner_, false);
  window_->setRootViewController(outer_);
  inner_->setObserver(this);
}

Navigation::~Navigation() {
  inner_->setObserver(nullptr);
}

QString Navigation::title() const {
  return top_ < 0 ? QString() : pages_[top_]->title();
}

void Navigation::back() {
  if (top_ > 0) {
    inner_->popViewControllerAnimated(true);
  }
}

void Navigation::slideEnded() {
  dropLeftPages();
}

void Navigation::endEditing() {
  if (const auto field = UITextField::firstResponder()) {
    field->resignFirstResponder();
  }
}

void Navigation::refresh() {
  const QString former = title();
  for (const auto& page : pages_) {
    page->refresh();
  }
  if (title() != former) {
    emit titleChanged();
  }
}

int Navigation::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(pages_.size());
}

QVariant Navigation::data(const QModelIndex& index, int role) const {
  const bool there = index.row() >= 0 && index.row() < rowCount();
  return there && role == kPageRole ? QVariant::fromValue(pages_[index.row()].get()) : QVariant();
}

QHash<int, QByteArray> Navigation::roleNames() const {
  return {{kPageRole, "page"}};
}

void Navigation::didPush(UIViewController& controller, bool animated) {
  dropLeftPages();
  const QString backTitle = title();
  const int row = rowCount();
  beginInsertRows({}, row, row);
  pages_.push_back(
      std::make_unique<Page>(cast<UIViewController>(controller.shared_from_this()), backTitle));
  endInsertRows();
  top_ = row;
  emit topChanged(animated && animated_);
  emit titleChanged();
}

void Navigation::didPop(UIViewController& /*controller*/, bool animated) {
  dropLeftPages();
  --top_;
  emit topChanged(animated && animated_);
  emit titleChanged();
  if (!animated || !animated_) {
    dropLeftPages();
  }
}

void Navigation::dropLeftPages() {
  const int kept = top_ + 1;
  if (kept >= rowCount()) {
    return;
  }
  beginRemoveRows({}, kept, rowCount() - 1);
  std::vector<std::unique_ptr<Page>> left;
  while (rowCount() > kept) {
    left.push_back(std::move(pages_.back()));
    pages_.pop_back();
  }
  endRemoveRows();
}
