#include "platform/uikit/UISegmentedControl.h"

#include <utility>

constexpr ClassOf<UISegmentedControl> UISegmentedControl::classObject{"UISegmentedControl"};

bool UISegmentedControl::initWithItems(std::vector<std::string> titles) {
  titles_ = std::move(titles);
  return initWithFrame(CGRectZero);
}

void UISegmentedControl::setSelectedSegmentIndex(std::int64_t index) {
  const bool exists = index >= 0 && std::cmp_less(index, titles_.size());
  selectedSegmentIndex_ = exists ? static_cast<int>(index) : kNoSegment;
  setNeedsDisplay();
}

void UISegmentedControl::chooseSegment(int index) {
  if (index == selectedSegmentIndex_ || index < 0 ||
      std::cmp_greater_equal(index, titles_.size()) || !isEnabled()) {
    return;
  }
  setSelectedSegmentIndex(index);
  sendActionsForControlEvents(UIControlEvent::kValueChanged);
}
