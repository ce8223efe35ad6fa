#include <random>
#include <thread>

#include "extras/QDPromotionController.h"
#include "platform/foundation/MainQueue.h"
#include "root/QDPreferencesListController.h"
#include "root/tweakCatalogue.h"
#include "tests/support/PaneTest.h"

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

using testing::ElementsAre;
using testing::Pointee;
using Value = PropertyListValue;

class CatalogueBadgeTest : public PaneTest {
 protected:
  static constexpr int kRow = 1;

  CatalogueBadgeTest() {
    NSBundle::load(kBundle, quietDialPreferencesClasses);
    files->dictionaries[std::string(kBundle) + "/quietDialPreferences.plist"] = {
        {"items", PropertyListArray{
                      PropertyListDictionary{{"cell", "PSLinkCell"}, {"label", "Other"}},
                      PropertyListDictionary{{"cell", "PSLinkCell"},
                                             {"label", "More Tweaks"},
                                             {"id", "QDPromotionCell"},
                                             {"detail", "QDPromotionController"}},
                  }}};
  }

  void answer(const std::string& list) { web->setText(catalogueListURL(), list); }

  // The pane after its fetch has ended and the row was reloaded.
  std::shared_ptr<QDPreferencesListController> openAndSettle() {
    auto pane = open<QDPreferencesListController>();
    settle();
    return pane;
  }

  void appearAgain(QDPreferencesListController& pane) {
    pane.viewWillAppear(false);
    settle();
  }

  static std::optional<std::string> badge(const QDPreferencesListController& pane) {
    return pane.specifierForID("QDPromotionCell")->textForKey("badgeString");
  }
};

TEST_F(CatalogueBadgeTest, CountsWhatIsNotSeenAndKeepsItInTheServersOrder) {
  answer("a|b|c");
  store("seen_tweaks", PropertyListArray{"b"});
  const auto pane = openAndSettle();
  EXPECT_EQ(badge(*pane), "2");
  EXPECT_THAT(availableTweaks.tweaks(), Pointee(ElementsAre("a", "b", "c")));
  EXPECT_THAT(unseenTweaks.tweaks(), Pointee(ElementsAre("a", "c")));
}

TEST_F(CatalogueBadgeTest, TheListIsFetchedFromTheCataloguesAddress) {
  openAndSettle();
  EXPECT_THAT(web->asked(),
              ElementsAre("http://tweaks.tallowbyte.example/tweaks/tweaks.php?id=me.orlanvey."
                          "quietdial&list=1"));
}

TEST_F(CatalogueBadgeTest, WithEverythingSeenTheBadgeIsEmptyAndNotShown) {
  answer("a|b");
  store("seen_tweaks", PropertyListArray{"b", "a", "gone"});
  const auto pane = openAndSettle();
  EXPECT_EQ(badge(*pane), "");
  EXPECT_THAT(unseenTweaks.tweaks(), Pointee(testing::IsEmpty()));
  EXPECT_EQ(cellAt(*pane, kRow)->contentView()->subviews().size(),
            cellAt(*pane, 0)->contentView()->subviews().size());
}

TEST_F(CatalogueBadgeTest, WithoutSeenTweaksTheBadgeIsTheNumberOfPieces) {
  answer("a|b|c|a|");
  EXPECT_EQ(badge(*openAndSettle()), "5");
}

TEST_F(CatalogueBadgeTest, AnEmptyAnswerIsOneUnseenTweak) {
  answer("");
  EXPECT_EQ(badge(*openAndSettle()), "1");
  EXPECT_THAT(availableTweaks.tweaks(), Pointee(ElementsAre("")));
}

TEST_F(CatalogueBadgeTest, AnEmptyAnswerIsNothingNewOnceTheEmptyTextIsSeen) {
  answer("");
  store("seen_tweaks", PropertyListArray{""});
  EXPECT_EQ(badge(*openAndSettle()), "");
}

TEST_F(CatalogueBadgeTest, OnAFreshStartWithoutTheServerThereIsNoBadgeAndNoList) {
  const auto pane = openAndSettle();
  EXPECT_EQ(badge(*pane), std::nullopt);
  EXPECT_EQ(availableTweaks.tweaks(), nullptr);
  EXPECT_EQ(unseenTweaks.tweaks(), nullptr);
}

TEST_F(CatalogueBadgeTest, AServerThatIsGoneLeavesBadgeAndListsAsTheyWere) {
  answer("a|b");
  const auto pane = openAndSettle();
  const auto available = availableTweaks.tweaks();
  const auto unseen = unseenTweaks.tweaks();
  const auto cell = cellAt(*pane, kRow);
  web->clear();
  store("seen_tweaks", PropertyListArray{"a"});
  appearAgain(*pane);
  EXPECT_EQ(badge(*pane), "2");
  EXPECT_EQ(availableTweaks.tweaks(), available);
  EXPECT_EQ(unseenTweaks.tweaks(), unseen);
  EXPECT_EQ(cellAt(*pane, kRow), cell);
}

TEST_F(CatalogueBadgeTest, EachAppearanceCountsAnew) {
  answer("a|b");
  const auto pane = openAndSettle();
  store("seen_tweaks", PropertyListArray{"a", "b"});
  appearAgain(*pane);
  EXPECT_EQ(badge(*pane), "");
  answer("a|b|c");
  appearAgain(*pane);
  EXPECT_EQ(badge(*pane), "1");
  EXPECT_THAT(unseenTweaks.tweaks(), Pointee(ElementsAre("c")));
}

TEST_F(CatalogueBadgeTest, TheRowGetsItsBadgeOnlyWhenTheMainQueueReloadsIt) {
  answer("a");
  const auto pane = open<QDPreferencesListController>();
  const auto before = cellAt(*pane, kRow);
  EXPECT_EQ(badge(*pane), "1");  // set in the background
  layOut();
  EXPECT_EQ(cellAt(*pane, kRow), before);
  settle();
  EXPECT_NE(cellAt(*pane, kRow), before);
  EXPECT_EQ(cast<UILabel>(cellAt(*pane, kRow)->contentView()->subviews().back())->text(), "1");
}

TEST_F(CatalogueBadgeTest, WithoutThePromotionRowTheListsAreStillUpdated) {
  files->dictionaries[std::string(kBundle) + "/quietDialPreferences.plist"] = {
      {"items", PropertyListArray{PropertyListDictionary{{"cell", "PSLinkCell"}}}}};
  answer("a|b");
  store("seen_tweaks", PropertyListArray{"a"});
  openAndSettle();
  EXPECT_THAT(availableTweaks.tweaks(), Pointee(ElementsAre("a", "b")));
  EXPECT_THAT(unseenTweaks.tweaks(), Pointee(ElementsAre("b")));
}

TEST_F(CatalogueBadgeTest, TheListsOutliveThePane) {
  answer("a");
  openAndSettle().reset();
  inner->popViewControllerAnimated(false);
  EXPECT_EQ(inner->topViewController(), nullptr);
  EXPECT_THAT(unseenTweaks.tweaks(), Pointee(ElementsAre("a")));
}

TEST_F(CatalogueBadgeTest, BeforeACatalogueWasFetchedThereAreNoUnseenTweaksToCompute) {
  EXPECT_EQ(allocInit<QDPreferencesListController>()->getUnseenTweaks(), nullptr);
  EXPECT_EQ(unseenTweaks.tweaks(), nullptr);
}

TEST_F(CatalogueBadgeTest, GetUnseenTweaksGivesWhatItStores) {
  availableTweaks.setTweaks(std::make_shared<const Tweaks>(Tweaks{"a", "b", "c", "b"}));
  store("seen_tweaks", PropertyListArray{"b"});
  const auto unseen = allocInit<QDPreferencesListController>()->getUnseenTweaks();
  EXPECT_THAT(unseen, Pointee(ElementsAre("a", "c")));
  EXPECT_EQ(unseenTweaks.tweaks(), unseen);
}

TEST_F(CatalogueBadgeTest, FetchingWritesNothingPostsNothingAndRestartsNothing) {
  answer("a|b");
  openAndSettle();
  EXPECT_THAT(take(), testing::IsEmpty());
}

// Answers with lists of different lengths, each after a moment of its own.
class SlowWeb : public FetchService {
 public:
  std::optional<std::string> stringWithContentsOfURL(const std::string& /*url*/) override {
    int number = 0;
    int delay = 0;
    {
      const std::lock_guard lock(mutex_);
      number = ++count_;
      delay = std::uniform_int_distribution<int>(0, 3000)(random_);
    }
    std::this_thread::sleep_for(std::chrono::microseconds(delay));
    std::string list = "t0";
    for (int tweak = 1; tweak < number; ++tweak) {
      list += "|t" + std::to_string(tweak);
    }
    return number % 5 == 0 ? std::nullopt : std::optional(list);
  }

 private:
  std::mutex mutex_;
  int count_ = 0;
  std::mt19937 random_{20240501};
};

TEST_F(CatalogueBadgeTest, OverlappingFetchesLeaveOneOfTheAnswersWhole) {
  Services slow = services();
  slow.fetches = std::make_shared<SlowWeb>();
  installServices(slow);
  auto pane = allocInit<QDPreferencesListController>();
  inner->pushViewControllerAnimated(pane, false);
  for (int appearance = 1; appearance < 10; ++appearance) {
    pane->viewWillAppear(false);
    MainQueue::shared().drain();
    layOut();
    // Code outside the bundle looks on while the lists change.
    const auto seen = availableTweaks.tweaks();
    EXPECT_TRUE(!seen || seen->front() == "t0");
  }
  settle();
  const auto available = availableTweaks.tweaks();
  ASSERT_NE(available, nullptr);
  for (std::size_t index = 0; index < available->size(); ++index) {
    EXPECT_EQ((*available)[index], "t" + std::to_string(index));
  }
  EXPECT_NE(badge(*pane), std::nullopt);
}

TEST_F(CatalogueBadgeTest, APaneThatIsLeftWhileItFetchesIsTakenDownOnTheMainQueue) {
  Services slow = services();
  slow.fetches = std::make_shared<SlowWeb>();
  installServices(slow);
  for (int round = 0; round < 10; ++round) {
    auto pane = allocInit<QDPreferencesListController>();
    inner->pushViewControllerAnimated(pane, false);
    layOut();
    const std::weak_ptr<NSObject> weak = pane;
    inner->popViewControllerAnimated(false);
    pane.reset();
    settle();
    EXPECT_TRUE(weak.expired());
  }
}

}  // namespace
