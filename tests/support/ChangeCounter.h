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

/// How many changes of views the host is told of while that runs.
template <class Action>
int changesDuring(const Action& action) {
  const ChangeCounter counter;
  action();
  return counter.changes;
}
