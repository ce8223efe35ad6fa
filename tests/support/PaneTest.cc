#include "tests/support/PaneTest.h"

#include "headless/RecordingFiles.h"
#include "headless/RecordingLog.h"
#include "headless/RecordingNotifications.h"
#include "headless/RecordingProcesses.h"
#include "headless/RecordingWebViews.h"
#include "headless/StandInDevice.h"
#include "headless/TableTextMeasurer.h"
#include "platform/classes.h"
#include "platform/foundation/MainQueue.h"
#include "platform/preferences/PSEditableTableCell.h"

PaneTest::PaneTest() {
  installServices({
      .clock = clock,
      .files = std::make_shared<RecordingFiles>(files, recorder),
      .notifications = std::make_shared<RecordingNotifications>(recorder, nullptr),
      .processes = std::make_shared<RecordingProcesses>(recorder, nullptr),
      .addresses = addresses,
      .text = std::make_shared<TableTextMeasurer>(),
      .pictures = pictures,
      .sheets = sheets,
      .mail = mail,
      .device = std::make_shared<StandInDevice>(),
      .fetches = web,
      .webViews = std::make_shared<RecordingWebViews>(
          [web = web](const NSURLRequest& request) { return web->heightOfPage(request); },
          recorder),
      .displayRefresh = displayRefresh,
      .log = std::make_shared<RecordingLog>(recorder, nullptr),
  });
  registerClasses(platformClasses());
  const auto stacks = NavigationStacks::make();
  window = stacks.window;
  outer = stacks.outer;
  inner = stacks.inner;
}

std::string PaneTest::bundleFile(const std::string& name) {
  std::string path = kBundle;
  path += '/';
  return path += name;
}

void PaneTest::layOut() {
  if (const auto pane = inner->topViewController()) {
    pane->view()->setFrame(CGRectMake(0, 0, width, 568));
    pane->view()->layoutIfNeeded();
  }
}

void PaneTest::settle() {
  do {
    GlobalQueue::shared().waitUntilIdle();
    MainQueue::shared().drain();
    layOut();
    // In this order: once the background is idle nobody else adds to the main queue.
  } while (!GlobalQueue::shared().isIdle() || !MainQueue::shared().isIdle());
}

std::shared_ptr<UITableViewCell> PaneTest::cellAt(PSListController& pane, int index) {
  return pane.table()->cellForRowAtIndexPath(
      pane.indexPathForIndex(index).value_or(NSIndexPath{-1, -1}));
}

void PaneTest::type(PSListController& pane, int index, const std::string& text) {
  const auto field = cast<PSEditableTableCell>(cellAt(pane, index))->textField();
  field->becomeFirstResponder();
  field->edit(text);
  field->pressReturn();
}

std::optional<PropertyListValue> PaneTest::stored(const std::string& key) const {
  const auto file = files->dictionaries.find(kSettings);
  if (file == files->dictionaries.end()) {
    return std::nullopt;
  }
  const auto entry = file->second.find(key);
  return entry == file->second.end() ? std::nullopt : std::optional(entry->second);
}

void PaneTest::store(const std::string& key, const PropertyListValue& value) {
  files->dictionaries[kSettings].insert_or_assign(key, value);
}

std::vector<std::string> PaneTest::takePosts() {
  std::vector<std::string> names;
  for (const auto& event : take()) {
    if (const auto* post = std::get_if<PostEvent>(&event)) {
      names.push_back(post->name);
    }
  }
  return names;
}
