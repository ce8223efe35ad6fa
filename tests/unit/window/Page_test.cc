#include "settings/navigation/Page.h"

#include <QSignalSpy>

#include "platform/foundation/method.h"
#include "platform/uikit/UIBarButtonItem.h"
#include "platform/uikit/UIViewController.h"
#include "tests/unit/window/WindowTest.h"

namespace {

class BarTarget : public Subclass<BarTarget, NSObject> {
 public:
  static const ClassOf<BarTarget> classObject;
  void share() { ++pressed; }
  int pressed = 0;
};

constexpr auto kBarTargetMethods = methods<BarTarget>(method<&BarTarget::share>("share"));
constexpr ClassOf<BarTarget> BarTarget::classObject{"BarTarget", kBarTargetMethods};

class PageTest : public WindowTest {
 protected:
  PageTest() { pictures->sizes["/Library/heart@2x.png"] = {40, 36}; }

  std::shared_ptr<UIBarButtonItem> giveButton(const std::shared_ptr<UIImage>& image) {
    auto button = alloc<UIBarButtonItem>();
    button->initWithImageStyleTargetAction(image, UIBarButtonItemStyle::kPlain, target, "share");
    controller->navigationItem()->setRightBarButtonItem(button);
    return button;
  }

  std::shared_ptr<BarTarget> target = allocInit<BarTarget>();
  std::shared_ptr<UIViewController> controller = allocInit<UIViewController>();
  Page page{controller, QStringLiteral("Settings")};
  QSignalSpy changes{&page, &Page::changed};
  QSignalSpy buttonChanges{page.rightButton(), &BarButton::changed};
};

TEST_F(PageTest, ATitleViewStandsInTheTitlesPlace) {
  EXPECT_FALSE(page.hasTitleView());
  const auto view = allocInit<UIView>();
  controller->navigationItem()->setTitleView(view);
  controller->setTitle("QuietDial");
  page.refresh();
  page.refresh();
  EXPECT_TRUE(page.hasTitleView());
  EXPECT_EQ(page.titleView(), view);
  EXPECT_EQ(page.title(), QStringLiteral("QuietDial"));
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(PageTest, WithoutAButtonThereIsNothingToPress) {
  EXPECT_FALSE(page.rightButton()->isPresent());
  EXPECT_FALSE(page.rightButton()->isEnabled());
  page.rightButton()->press();
  EXPECT_EQ(target->pressed, 0);
}

TEST_F(PageTest, ThePagesButtonIsShownAndPressed) {
  giveButton(UIImage::imageNamed("/Library/heart.png"));
  page.refresh();
  page.refresh();
  EXPECT_EQ(buttonChanges.count(), 1);
  const auto& button = *page.rightButton();
  EXPECT_TRUE(button.isPresent());
  EXPECT_TRUE(button.isEnabled());
  EXPECT_EQ(QSizeF(button.pictureWidth(), button.pictureHeight()), QSizeF(20, 18));
  EXPECT_EQ(button.picture().scheme(), QStringLiteral("image"));
  page.rightButton()->press();
  EXPECT_EQ(target->pressed, 1);
}

TEST_F(PageTest, AButtonIsCalledByItsLabelElseAfterItsPicture) {
  const auto button = giveButton(UIImage::imageNamed("/Library/heart.png"));
  page.refresh();
  EXPECT_EQ(page.rightButton()->name(), QStringLiteral("heart"));
  button->setAccessibilityLabel("Share");
  page.refresh();
  EXPECT_EQ(page.rightButton()->name(), QStringLiteral("Share"));
  giveButton(nullptr);
  page.refresh();
  EXPECT_EQ(page.rightButton()->name(), QString());
  EXPECT_TRUE(page.rightButton()->isPresent());
}

TEST_F(PageTest, AButtonThatIsDisabledIsNotPressed) {
  giveButton(nullptr)->setEnabled(false);
  page.refresh();
  EXPECT_FALSE(page.rightButton()->isEnabled());
  page.rightButton()->press();
  EXPECT_EQ(target->pressed, 0);
}

TEST_F(PageTest, AButtonThatIsTakenAwayIsGone) {
  giveButton(nullptr);
  page.refresh();
  controller->navigationItem()->setRightBarButtonItem(nullptr);
  page.refresh();
  EXPECT_FALSE(page.rightButton()->isPresent());
  EXPECT_EQ(buttonChanges.count(), 2);
}

}  // namespace
