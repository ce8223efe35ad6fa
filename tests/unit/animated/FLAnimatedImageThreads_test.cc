#include <chrono>
#include <random>
#include <thread>

#include "animated/FLAnimatedImageView.h"
#include "platform/foundation/MainQueue.h"
#include "platform/uikit/UIApplication.h"
#include "tests/unit/animated/AnimatedTest.h"

namespace {

// Images of the size of a preview; their frames take a while to decode.
class FLAnimatedImageThreadsTest : public AnimatedTest {
 protected:
  std::shared_ptr<NSData> bytes = data(frames(12, 320, 240));
  std::shared_ptr<NSData> largeBytes = data(twelveFramesOfWhichFiveAreKept());
  std::mt19937 random{6};
};

TEST_F(FLAnimatedImageThreadsTest, ImagesComeAndGoWhileTheirQueuesDecode) {
  std::vector<std::weak_ptr<FLAnimatedImage>> all;
  std::vector<std::thread> droppers;
  for (int i = 0; i < 200; ++i) {
    auto image = FLAnimatedImage::animatedImageWithGIFData(i % 4 == 0 ? largeBytes : bytes);
    ASSERT_NE(image, nullptr);
    all.push_back(image);
    const auto view = allocInit<FLAnimatedImageView>();
    view->setAnimatedImage(image);
    window->addSubview(view);
    for (int refresh = 0; refresh < 8; ++refresh) {
      MainQueue::shared().runTurn();
      displayRefresh->refresh(0.05);
      image->imageLazilyCachedAtIndex(random() % image->frameCount());
    }
    if (i % 7 == 0) {
      UIApplication::sharedApplication().didReceiveMemoryWarning();
    }
    if (i % 5 == 0) {
      clock->advance(0.7);
    }
    view->removeFromSuperview();
    view->setAnimatedImage(nullptr);
    // The last owner is this thread, another thread, or the queue that decodes.
    if (i % 2 == 0) {
      droppers.emplace_back([image = std::move(image)]() mutable {
        std::this_thread::yield();
        image.reset();
      });
    }
  }
  for (auto& dropper : droppers) {
    dropper.join();
  }
  drainAllQueues();
  for (const auto& image : all) {
    EXPECT_TRUE(image.expired());
  }
  // Nobody observes and nothing is due any more.
  EXPECT_FALSE(MainQueue::shared().nextDeadline());
  UIApplication::sharedApplication().didReceiveMemoryWarning();
  EXPECT_FALSE(MainQueue::shared().nextDeadline());
  EXPECT_FALSE(displayRefresh->isWanted());
}

// Everything of the main thread is torn down on it, wherever the last reference goes.
TEST_F(FLAnimatedImageThreadsTest, AnImageWhoseLastOwnerIsItsQueueIsTornDownOnTheMainThread) {
  for (int i = 0; i < 50; ++i) {
    auto image = FLAnimatedImage::animatedImageWithGIFData(bytes);
    UIApplication::sharedApplication().didReceiveMemoryWarning();
    image->imageLazilyCachedAtIndex(1);
    image.reset();
    UIApplication::sharedApplication().didReceiveMemoryWarning();
    drainAllQueues();
    EXPECT_FALSE(MainQueue::shared().nextDeadline());
  }
}

}  // namespace
