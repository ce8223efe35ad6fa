#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/ManualClock.h"
#include "headless/ManualDisplayRefresh.h"
#include "headless/RecordingAddresses.h"
#include "headless/RecordingMail.h"
#include "headless/RecordingSheets.h"
#include "platform/foundation/GlobalQueue.h"
#include "platform/preferences/PSListController.h"
#include "platform/uikit/NavigationStacks.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/MemoryPictures.h"
#include "tests/support/MemoryWeb.h"

/// A test over panes: recorded services, files in memory, a clock moved by hand, and two navigation
/// controllers, one inside the other.
class PaneTest : public testing::Test {
 protected:
  static constexpr const char* kSettings = "/User/Library/Preferences/me.orlanvey.quietDial.plist";
  static constexpr const char* kBundle = "/Library/PreferenceBundles/quietDialPreferences.bundle";

  PaneTest();

  /// Device path of a file of the bundle.
  static std::string bundleFile(const std::string& name);

  /// Brings a pane up as a tap on a row would, `width` points wide, and waits for what it does in
  /// the background; what that leaves for the main queue stays there.
  template <class Pane>
  std::shared_ptr<Pane> open(const std::shared_ptr<PSSpecifier>& row = nullptr) {
    auto pane = allocInit<Pane>();
    if (row) {
      pane->setSpecifier(row);
    }
    inner->pushViewControllerAnimated(pane, false);
    layOut();
    GlobalQueue::shared().waitUntilIdle();
    return pane;
  }

  /// Lays the top pane out at the width.
  void layOut();
  /// Lets background work finish, runs everything that is due, then lays out.
  void settle();

  /// The cell of a row, by its index in the flat list.
  static std::shared_ptr<UITableViewCell> cellAt(PSListController& pane, int index);
  /// Types into the row's field and commits.
  static void type(PSListController& pane, int index, const std::string& text);

  /// What is stored under the key, or nothing.
  std::optional<PropertyListValue> stored(const std::string& key) const;
  void store(const std::string& key, const PropertyListValue& value);

  /// The events of one kind since the last call of take().
  std::vector<Event> take() { return recorder->take(); }
  /// The notifications posted since the last call of take(), in order; other events are dropped.
  std::vector<std::string> takePosts();

  CGFloat width = 320;
  std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
  std::shared_ptr<MemoryFiles> files = std::make_shared<MemoryFiles>();
  std::shared_ptr<MemoryPictures> pictures = std::make_shared<MemoryPictures>();
  std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>();
  std::shared_ptr<MemoryWeb> web = std::make_shared<MemoryWeb>();
  std::shared_ptr<RecordingSheets> sheets = std::make_shared<RecordingSheets>(recorder);
  std::shared_ptr<RecordingAddresses> addresses =
      std::make_shared<RecordingAddresses>(recorder, std::set<std::string>{}, nullptr);
  std::shared_ptr<RecordingMail> mail = std::make_shared<RecordingMail>(true, nullptr);
  std::shared_ptr<ManualDisplayRefresh> displayRefresh = std::make_shared<ManualDisplayRefresh>();
  std::shared_ptr<UIWindow> window;
  std::shared_ptr<UINavigationController> outer;
  std::shared_ptr<UINavigationController> inner;
};
