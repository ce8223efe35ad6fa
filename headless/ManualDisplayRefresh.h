#pragma once

#include "platform/quartzcore/CADisplayLink.h"
#include "platform/services.h"

/// A screen that is refreshed by hand. Main thread.
class ManualDisplayRefresh : public DisplayRefresh {
 public:
  void setWanted(bool wanted) override { wanted_ = wanted; }
  bool isWanted() const { return wanted_; }

  /// One refresh, `duration` seconds after the last; nothing happens while none is wanted.
  void refresh(double duration) const {
    if (wanted_) {
      CADisplayLink::screenDidRefresh(duration);
    }
  }

 private:
  bool wanted_ = false;
};
