#include "extras/QDSupportListController.h"

#include "platform/makers/addresses.h"
#include "tests/support/PaneTest.h"

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::VariantWith;

constexpr const char* kBody =
    "\n\n---------------------------------------\nWe attached some information about your Quiet "
    "Dial Preferences and your device here. This will help us solve your problem more quickly.";

class SupportPaneTest : public PaneTest {
 protected:
  SupportPaneTest() {
    NSBundle::load(kBundle, quietDialPreferencesClasses);
    files->dictionaries[bundleFile("quietDialSupportPreferences.plist")] = {
        {"title", "Support"},
        {"items",
         PropertyListArray{PropertyListDictionary{
             {"cell", "PSButtonCell"}, {"label", "Write"}, {"action", "sendSupportEmail"}}}}};
    files->dictionaries[bundleFile("Info.plist")] = {
        {"CFBundleName", "QuietDial"},
        {"CFBundleShortVersionString", "1.0.0"},
        {"TBSupportPreferenceKeys", PropertyListArray{"customPrefix"}}};
  }

  static void tap(QDSupportListController& pane) { pane.selectSpecifier(pane.specifierAtIndex(0)); }

  std::shared_ptr<MFMailComposeViewController> shownMail() const {
    const auto* top = sheets->top();
    const auto* mail =
        top ? std::get_if<std::shared_ptr<MFMailComposeViewController>>(top) : nullptr;
    return mail ? *mail : nullptr;
  }
};

TEST_F(SupportPaneTest, WithoutAMailAccountATapShowsTheAlertAndNothingElse) {
  mail->setCanSend(false);
  const auto pane = open<QDSupportListController>();
  take();
  tap(*pane);
  EXPECT_THAT(take(), ElementsAre(AlertEvent{"No mail accounts are set up.",
                                             "Please go to the Mail settings to add a new account.",
                                             "OK"}));
  EXPECT_THAT(files->lastSerialized, IsEmpty()) << "no support information is gathered";
  EXPECT_EQ(outer->presentedViewController(), nullptr);
}

TEST_F(SupportPaneTest, TheMailHasOneRecipientOneAttachmentAndThePlainText) {
  tap(*open<QDSupportListController>());
  const auto events = take();
  ASSERT_EQ(events.size(), 1U);
  const auto* event = std::get_if<PresentMailEvent>(&events[0]);
  ASSERT_TRUE(event);
  const auto& message = event->message;
  EXPECT_THAT(message.recipients, ElementsAre(std::string(addresses::kSupportMail)));
  EXPECT_EQ(message.subject, "QuietDial 1.0.0 (me.orlanvey.quietdial)");
  EXPECT_EQ(message.body, kBody);
  EXPECT_FALSE(message.isHTML);
  ASSERT_EQ(message.attachments.size(), 1U);
  EXPECT_EQ(message.attachments[0].fileName, "Information.plist");
  EXPECT_EQ(message.attachments[0].mimeType, "application/x-plist");
  EXPECT_FALSE(message.attachments[0].data.empty());
}

TEST_F(SupportPaneTest, TheMailIsPresentedByTheNavigationControllerAroundThePanesOwn) {
  const auto pane = open<QDSupportListController>();
  tap(*pane);
  const auto events = take();
  EXPECT_EQ(std::get<PresentMailEvent>(events.at(0)).from, Presenter::kOuter);
  EXPECT_EQ(outer->presentedViewController(), shownMail());
  EXPECT_EQ(pane->presentedViewController(), nullptr);
  EXPECT_EQ(inner->presentedViewController(), nullptr);
}

TEST_F(SupportPaneTest, TheAttachmentIsMadeFromTheSettingsFile) {
  store("customPrefix", "*31#");
  store("another", "of someone else");
  tap(*open<QDSupportListController>());
  EXPECT_EQ(files->lastSerialized.at("Settings"),
            PropertyListValue(PropertyListDictionary{{"customPrefix", "*31#"}}));
}

TEST_F(SupportPaneTest, WithoutASettingsFileTheMailIsComposedAllTheSame) {
  tap(*open<QDSupportListController>());
  EXPECT_TRUE(shownMail());
  EXPECT_FALSE(files->lastSerialized.contains("Settings"));
}

TEST_F(SupportPaneTest, CancellingTakesTheMailAwayAndLeavesThePaneAsItWas) {
  const auto pane = open<QDSupportListController>();
  const auto rows = pane->specifiers();
  const auto cell = cellAt(*pane, 0);
  tap(*pane);
  take();
  shownMail()->finish(MFMailComposeResult::kCancelled);
  settle();
  EXPECT_THAT(take(), ElementsAre(DismissEvent{SheetKind::kMail}));
  EXPECT_EQ(sheets->top(), nullptr);
  EXPECT_EQ(outer->presentedViewController(), nullptr);
  EXPECT_EQ(inner->topViewController(), pane);
  EXPECT_EQ(pane->specifiers(), rows);
  EXPECT_EQ(cellAt(*pane, 0), cell);
}

TEST_F(SupportPaneTest, WhateverCameOfTheMailThePaneTakesItAwayWithoutAMessage) {
  const auto pane = open<QDSupportListController>();
  for (const auto result : {MFMailComposeResult::kSent, MFMailComposeResult::kSaved,
                            MFMailComposeResult::kFailed, MFMailComposeResult::kCancelled}) {
    tap(*pane);
    take();
    const auto error = result == MFMailComposeResult::kFailed
                           ? std::optional(MFMailComposeErrorCode::kSendFailed)
                           : std::nullopt;
    pane->mailComposeControllerDidFinishWithResultError(*shownMail(), result, error);
    EXPECT_THAT(take(), ElementsAre(DismissEvent{SheetKind::kMail}));
    EXPECT_EQ(outer->presentedViewController(), nullptr);
  }
}

TEST_F(SupportPaneTest, EachMailIsANewOneAndDoesNotOutliveItsSheet) {
  const auto pane = open<QDSupportListController>();
  tap(*pane);
  const std::weak_ptr<MFMailComposeViewController> first = shownMail();
  shownMail()->finish(MFMailComposeResult::kSent);
  settle();
  EXPECT_TRUE(first.expired());
  tap(*pane);
  EXPECT_TRUE(shownMail());
}

TEST_F(SupportPaneTest, RowsAreLoadedOnceAndKept) {
  const auto pane = open<QDSupportListController>();
  const auto first = pane->specifiers();
  EXPECT_EQ(pane->title(), "Support");
  files->dictionaries.clear();
  EXPECT_EQ(pane->specifiers(), first);
}

TEST_F(SupportPaneTest, ADynamicRowIsAsHighAsItsCellWants) {
  files->dictionaries[bundleFile("quietDialSupportPreferences.plist")] = {
      {"items", PropertyListArray{PropertyListDictionary{{"label", "a"},
                                                         {"cellClass", "TBPSSubtitleTableCell"},
                                                         {"detailText", "b\nc\nd\ne"},
                                                         {"dynamicHeight", true}}}}};
  const auto pane = open<QDSupportListController>();
  const auto cell = cast<PSTableCell>(cellAt(*pane, 0));
  EXPECT_GT(cell->frame().size.height, 44);
  EXPECT_EQ(cell->frame().size.height, cell->preferredHeightForWidth(320));
}

}  // namespace
