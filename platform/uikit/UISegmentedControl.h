#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIControl.h"

/// A row of segments of which at most one is selected. When the user chooses another one,
/// `kValueChanged` is sent. Main thread.
class PLATFORM_API UISegmentedControl : public Subclass<UISegmentedControl, UIControl> {
 public:
  static const ClassOf<UISegmentedControl> classObject;

  /// The selected index while no segment is selected.
  static constexpr int kNoSegment = -1;

  /// One segment a title, from left to right; none of them is selected.
  bool initWithItems(std::vector<std::string> titles);

  const std::vector<std::string>& titles() const { return titles_; }

  int selectedSegmentIndex() const { return selectedSegmentIndex_; }
  /// Sends nothing. An index without a segment selects none.
  void setSelectedSegmentIndex(std::int64_t index);

  /// For the host: the user has chosen that segment. Nothing happens where it is selected already,
  /// where there is none, and while the control is disabled.
  void chooseSegment(int index);

 private:
  std::vector<std::string> titles_;
  int selectedSegmentIndex_ = kNoSegment;
};
