#pragma once

#include "platform/uikit/UIView.h"

/// Counts the changes of views that the host is told of, while it lives.
class ChangeCounter : public UIViewObserver {
 public:
  ChangeCounter() { UIView::setObserver(this); }
  ~ChangeCounter() override { UIView::setObserver(nullptr); }
  ChangeCounter(const ChangeCounter&) = delete;
  ChangeCounter& operator=(const ChangeCounter&) = delete;

  void viewChanged(UIView& /*view*/) override { ++changes; }
  void viewDestroyed(const UIView& /*view*/) override {}

  int changes = 0;
};
