#include "styles/lastFrame.h"

#include <utility>

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/MainQueue.h"

void showLastFrame(const std::shared_ptr<FLAnimatedImageView>& view,
                   const std::shared_ptr<FLAnimatedImage>& image) {
  view->setImage(image->posterImage());
  // All frames up to the last have to be decoded: too long for the main thread.
  const std::weak_ptr<FLAnimatedImageView> weakView = view;
  const std::weak_ptr<FLAnimatedImage> weakImage = image;
  DispatchQueue::createSerial("last frame")->async([weakView, weakImage] {
    const auto source = weakImage.lock();
    auto frame = source ? source->predrawnImageAtIndex(source->frameCount() - 1) : nullptr;
    if (!frame) {
      return;
    }
    MainQueue::shared().async([weakView, frame = std::move(frame)] {
      if (const auto receiver = weakView.lock()) {
        receiver->setImage(frame);
      }
    });
  });
}
