#include "settings/sheets/MailModel.h"

#include <QSignalSpy>
#include <atomic>
#include <future>

#include "tests/unit/window/SheetsFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Takes a mail for as long as it is told to, and answers as it is told.
class HeldMail : public MailService {
 public:
  bool canSend() override { return true; }
  bool send(const MailMessage& message) override {
    ++mails;
    const bool isSent = answer.get_future().get();
    sent = message;
    return isSent;
  }
  std::optional<std::string> saveDraft(const MailMessage& message) override {
    drafts.push_back(message);
    return draft;
  }

  std::atomic<int> mails = 0;
  std::promise<bool> answer;
  MailMessage sent;  // once the answer is there
  std::vector<MailMessage> drafts;
  std::optional<std::string> draft = "/root/Drafts/mail.eml";
};

PropertyListData bytes(std::size_t count) {
  return PropertyListData(count, static_cast<std::byte>('x'));
}

class MailModelTest : public SheetsFixture {
 protected:
  MailModelTest() {
    auto all = ::services();
    all.mail = service;
    installServices(all);
    sheet = presentMail();
  }

  MailModel& model() { return *shown->mail(); }
  void send(bool succeeds) {
    model().send();
    service->answer.set_value(succeeds);
    EXPECT_TRUE(runWhatComes());
    service->answer = {};
  }
  static SheetListener::End end(MFMailComposeResult result,
                                std::optional<MFMailComposeErrorCode> error = {}) {
    return {result, error};
  }

  std::shared_ptr<HeldMail> service = std::make_shared<HeldMail>();
  std::shared_ptr<MFMailComposeViewController> sheet;
};

TEST_F(MailModelTest, ItHoldsWhatTheSheetWasGiven) {
  sheet->setToRecipients({"a@b.example", "c@d.example"});
  EXPECT_EQ(model().recipients(), QStringLiteral("a@b.example, c@d.example"));
  EXPECT_EQ(model().subject(), QStringLiteral("QuietDial"));
  EXPECT_EQ(model().body(), QStringLiteral("Hello"));
  EXPECT_THAT(model().attachments(), IsEmpty());
  EXPECT_EQ(model().complaint(), QString());
  EXPECT_FALSE(model().isSending());
}

TEST_F(MailModelTest, EachAttachmentHasItsNameAndSize) {
  sheet->addAttachmentDataMimeTypeFileName(bytes(999), "text/plain", "a.txt");
  sheet->addAttachmentDataMimeTypeFileName(bytes(1500), "text/plain", "b.txt");
  EXPECT_EQ(model().attachments(), QStringList({"a.txt", "b.txt"}));
  EXPECT_EQ(model().sizes(), QStringList({"999 bytes", "1.5 kB"}));
}

TEST_F(MailModelTest, AnAttachmentIsReadWhileItIsOpen) {
  sheet->addAttachmentDataMimeTypeFileName(bytes(1), "text/plain", "a.txt");
  sheet->addAttachmentDataMimeTypeFileName(bytes(2), "text/plain", "b.txt");
  const QSignalSpy changes(&model(), &MailModel::readingChanged);
  EXPECT_EQ(model().reading(), -1);
  EXPECT_EQ(model().attachmentText(), QString());
  model().setReading(1);
  model().setReading(1);
  EXPECT_EQ(model().attachmentText(), QStringLiteral("xx"));
  EXPECT_EQ(changes.count(), 1);
  model().setReading(2);
  EXPECT_EQ(model().attachmentText(), QString());
}

TEST_F(MailModelTest, WhatIsTypedGoesIntoTheMail) {
  sheet->setMessageBodyIsHTML("<b>Hello</b>", true);
  model().editSubject(QStringLiteral("Größer"));
  model().editBody(QStringLiteral("Grüße"));
  EXPECT_EQ(sheet->message().subject, "Größer");
  EXPECT_EQ(sheet->message().body, "Grüße");
  EXPECT_TRUE(sheet->message().isHTML);
}

TEST_F(MailModelTest, AMailThatWasTakenEndsTheSheet) {
  model().editSubject(QStringLiteral("Another"));
  send(true);
  EXPECT_EQ(service->sent, sheet->message());
  EXPECT_EQ(service->sent.subject, "Another");
  EXPECT_THAT(listener->ends, ElementsAre(end(MFMailComposeResult::kSent)));
  EXPECT_FALSE(shown->mail());
}

TEST_F(MailModelTest, WhileItIsOnItsWayItCanNeitherBeCancelledNorSentAgain) {
  const QSignalSpy changes(&model(), &MailModel::sendingChanged);
  model().send();
  EXPECT_TRUE(model().isSending());
  model().send();
  model().cancel();
  shown->cancel();
  EXPECT_TRUE(shown->mail());
  EXPECT_THAT(listener->ends, IsEmpty());
  EXPECT_EQ(changes.count(), 1);
  service->answer.set_value(true);
  EXPECT_TRUE(runWhatComes());
  EXPECT_FALSE(shown->mail());
  EXPECT_EQ(service->mails, 1);
}

TEST_F(MailModelTest, AMailThatComesBackStaysWithAComplaintAndCanBeSentAgain) {
  send(false);
  ASSERT_TRUE(shown->mail());
  EXPECT_EQ(model().complaint(),
            QStringLiteral("The mail could not be sent. You can try again or save it as a draft."));
  EXPECT_FALSE(model().isSending());
  EXPECT_THAT(listener->ends, IsEmpty());
  send(true);
  EXPECT_THAT(listener->ends, ElementsAre(end(MFMailComposeResult::kSent)));
}

TEST_F(MailModelTest, CancellingSaysWhatFailedBefore) {
  send(false);
  model().cancel();
  EXPECT_THAT(listener->ends,
              ElementsAre(end(MFMailComposeResult::kFailed, MFMailComposeErrorCode::kSendFailed)));
}

TEST_F(MailModelTest, CancellingSendsAndKeepsNothing) {
  model().cancel();
  EXPECT_THAT(listener->ends, ElementsAre(end(MFMailComposeResult::kCancelled)));
  EXPECT_EQ(service->mails, 0);
  EXPECT_THAT(service->drafts, IsEmpty());
}

TEST_F(MailModelTest, ADraftIsKeptAndAnAlertTellsWhere) {
  model().editBody(QStringLiteral("Later"));
  model().saveDraft();
  EXPECT_THAT(service->drafts, ElementsAre(sheet->message()));
  EXPECT_THAT(listener->ends, ElementsAre(end(MFMailComposeResult::kSaved)));
  EXPECT_FALSE(shown->mail());
  ASSERT_TRUE(shown->alert());
  EXPECT_EQ(shown->alert()->title(), QStringLiteral("Draft saved"));
  EXPECT_EQ(shown->alert()->message(),
            QStringLiteral("Mail programs open it from this file:\n/root/Drafts/mail.eml"));
}

TEST_F(MailModelTest, ADraftThatCannotBeWrittenIsComplainedOf) {
  service->draft.reset();
  const QSignalSpy complaints(&model(), &MailModel::complaintChanged);
  model().saveDraft();
  EXPECT_EQ(model().complaint(), QStringLiteral("The draft could not be saved."));
  EXPECT_EQ(complaints.count(), 1);
  EXPECT_FALSE(shown->alert());
  model().cancel();
  EXPECT_THAT(listener->ends,
              ElementsAre(end(MFMailComposeResult::kFailed, MFMailComposeErrorCode::kSaveFailed)));
}

TEST_F(MailModelTest, AnAnswerThatComesAfterTheSheetHasGoneIsNobodysConcern) {
  model().send();
  sheet->finish(MFMailComposeResult::kCancelled);
  turn();
  service->answer.set_value(false);
  EXPECT_TRUE(runWhatComes());
  EXPECT_THAT(listener->ends, ElementsAre(end(MFMailComposeResult::kCancelled)));
  EXPECT_FALSE(shown->isShowing());
}

}  // namespace
