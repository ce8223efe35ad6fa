#include "platform/messageui/MFMailComposeViewController.h"

#include "platform/foundation/Subclass.h"
#include "tests/support/PaneTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Delegate : public Subclass<Delegate, UIViewController>,
                 public MFMailComposeViewControllerDelegate {
 public:
  static const ClassOf<Delegate> classObject;

  void mailComposeControllerDidFinishWithResultError(
      MFMailComposeViewController& composer, MFMailComposeResult result,
      std::optional<MFMailComposeErrorCode> error) override {
    results.emplace_back(result, error);
    if (dismisses) {
      composer.dismissViewControllerAnimatedCompletion(true, {});
    }
  }
  bool dismisses = true;
  std::vector<std::pair<MFMailComposeResult, std::optional<MFMailComposeErrorCode>>> results;
};

constexpr ClassOf<Delegate> Delegate::classObject{"Delegate"};

class MailComposerTest : public PaneTest {
 protected:
  std::shared_ptr<MFMailComposeViewController> present(const std::shared_ptr<Delegate>& delegate) {
    auto composer = allocInit<MFMailComposeViewController>();
    composer->setMailComposeDelegate(delegate);
    outer->presentViewControllerAnimatedCompletion(composer, true, {});
    return composer;
  }
};

TEST_F(MailComposerTest, WhetherMailCanBeSentIsTheMachinesAnswer) {
  EXPECT_TRUE(MFMailComposeViewController::canSendMail());
  mail->setCanSend(false);
  EXPECT_FALSE(MFMailComposeViewController::canSendMail());
}

TEST_F(MailComposerTest, TheDelegateIsToldOnceWhatCameOfTheMail) {
  const auto delegate = allocInit<Delegate>();
  const auto composer = present(delegate);
  composer->finish(MFMailComposeResult::kFailed, MFMailComposeErrorCode::kSaveFailed);
  composer->finish(MFMailComposeResult::kSent);
  EXPECT_THAT(delegate->results,
              ElementsAre(std::pair(MFMailComposeResult::kFailed,
                                    std::optional(MFMailComposeErrorCode::kSaveFailed))));
}

TEST_F(MailComposerTest, AComposerThatNobodyTakesAwayGoesByItself) {
  for (const bool hasDelegate : {true, false}) {
    auto delegate = allocInit<Delegate>();
    delegate->dismisses = false;
    const auto composer = present(delegate);
    if (!hasDelegate) {
      delegate.reset();
    }
    composer->finish(MFMailComposeResult::kCancelled);
    EXPECT_EQ(outer->presentedViewController(), nullptr);
    EXPECT_EQ(sheets->top(), nullptr);
  }
}

TEST_F(MailComposerTest, APageDismissesWhatTheControllersAroundItPresent) {
  const auto page = open<PSListController>();
  const auto composer = present(nullptr);
  ASSERT_EQ(outer->presentedViewController(), composer);
  bool done = false;
  page->dismissViewControllerAnimatedCompletion(true, [&] { done = true; });
  EXPECT_EQ(outer->presentedViewController(), nullptr);
  EXPECT_TRUE(done);
}

TEST_F(MailComposerTest, DismissingWithNothingPresentedChangesNothing) {
  const auto page = open<PSListController>();
  take();
  page->dismissViewControllerAnimatedCompletion(true, {});
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(MailComposerTest, WhatTheUserTypesTakesThePlaceOfWhatWasThere) {
  const auto composer = allocInit<MFMailComposeViewController>();
  composer->setToRecipients({"a@b.example"});
  composer->setSubject("one");
  composer->setSubject("two");
  composer->setMessageBodyIsHTML("<p>", true);
  composer->setMessageBodyIsHTML("text", false);
  composer->addAttachmentDataMimeTypeFileName({std::byte{1}}, "a/b", "n");
  EXPECT_EQ(composer->message(),
            (MailMessage{{"a@b.example"}, "two", "text", false, {{{std::byte{1}}, "a/b", "n"}}}));
}

}  // namespace
