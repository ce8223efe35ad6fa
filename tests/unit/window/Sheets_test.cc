#include "settings/sheets/Sheets.h"

#include <QPointer>
#include <QSignalSpy>

#include "tests/unit/window/SheetsFixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SheetsTest : public SheetsFixture {
 protected:
  QString alertTitle() const { return shown->alert() ? shown->alert()->title() : QString(); }

  QSignalSpy changes{shown.get(), &Sheets::changed};
};

TEST_F(SheetsTest, NothingIsShownAtFirst) {
  EXPECT_FALSE(shown->isShowing());
  shown->cancel();
  shown->closeAlert();
  EXPECT_EQ(changes.count(), 0);
}

TEST_F(SheetsTest, AnAlertSaysWhatItIsMadeWith) {
  showAlert("Title");
  ASSERT_TRUE(shown->alert());
  EXPECT_EQ(shown->alert()->title(), QStringLiteral("Title"));
  EXPECT_EQ(shown->alert()->message(), QStringLiteral("Message"));
  EXPECT_EQ(shown->alert()->button(), QStringLiteral("OK"));
}

TEST_F(SheetsTest, AlertsAreAnsweredOneAfterTheOther) {
  showAlert("first");
  showAlert("second");
  EXPECT_EQ(alertTitle(), QStringLiteral("first"));
  shown->closeAlert();
  EXPECT_EQ(alertTitle(), QStringLiteral("second"));
  shown->closeAlert();
  EXPECT_FALSE(shown->isShowing());
  EXPECT_EQ(changes.count(), 4);
}

TEST_F(SheetsTest, AnAlertMayBeClosedFromWithin) {
  showAlert("Title");
  const QPointer<AlertModel> model(shown->alert());
  shown->closeAlert();
  EXPECT_TRUE(model);
  turn();
  EXPECT_FALSE(model);
}

TEST_F(SheetsTest, ASheetStaysUntilItIsDismissedAndMayEndFromWithin) {
  presentCompose();
  presentMail();  // the one sheet of this page is up already
  EXPECT_TRUE(shown->compose());
  EXPECT_FALSE(shown->mail());
  const QPointer<ComposeModel> compose(shown->compose());
  shown->compose()->cancel();
  EXPECT_FALSE(shown->isShowing());
  EXPECT_TRUE(compose);
  turn();
  EXPECT_FALSE(compose);

  presentMail();
  const QPointer<MailModel> mailModel(shown->mail());
  ASSERT_TRUE(mailModel);
  shown->mail()->cancel();
  EXPECT_FALSE(shown->isShowing());
  EXPECT_TRUE(mailModel);
  turn();
  EXPECT_FALSE(mailModel);
}

TEST_F(SheetsTest, AnotherSheetThatGoesTakesNoneAway) {
  presentMail();
  changes.clear();
  shown->dismiss(*allocInit<MFMailComposeViewController>());
  shown->dismiss(*allocInit<UIViewController>());
  EXPECT_TRUE(shown->mail());
  EXPECT_EQ(changes.count(), 0);
}

TEST_F(SheetsTest, EscapeTakesAwayWhatStandsOnTop) {
  const auto compose =
      SLComposeViewController::composeViewControllerForServiceType(SLServiceTypeTwitter);
  outer->presentViewControllerAnimatedCompletion(compose, true, {});
  presentMail();
  showAlert("Title");
  shown->cancel();
  EXPECT_FALSE(shown->alert());
  EXPECT_TRUE(shown->mail());
  shown->cancel();
  EXPECT_FALSE(shown->mail());
  EXPECT_TRUE(shown->compose());
  shown->cancel();
  EXPECT_FALSE(shown->isShowing());
}

TEST_F(SheetsTest, ASheetThatCannotBeShownIsDismissedAndToldOf) {
  testing::internal::CaptureStderr();
  listener->presentViewControllerAnimatedCompletion(allocInit<UIViewController>(), true, {});
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              HasSubstr("a sheet of the class UIViewController cannot be shown"));
  EXPECT_FALSE(shown->isShowing());
  EXPECT_TRUE(listener->presentedViewController());
  turn();
  EXPECT_FALSE(listener->presentedViewController());
}

}  // namespace
