#include "settings/program/AnimationController.h"

#include <algorithm>

#include "platform/foundation/Subclass.h"

constexpr ClassOf<AnimationController> AnimationController::classObject{"AnimationController"};

namespace {

// Keeps its one subview in the middle.
class Stage : public Subclass<Stage, UIView> {
 public:
  static const ClassOf<Stage> classObject;

  void layoutSubviews() override {
    UIView::layoutSubviews();
    const auto& player = subviews().front();
    const CGSize room = bounds().size;
    const CGSize size = player->intrinsicContentSize();
    const CGFloat scale = std::min({1.0, room.width / size.width, room.height / size.height});
    const CGFloat width = size.width * scale;
    const CGFloat height = size.height * scale;
    player->setFrame(
        CGRectMake((room.width - width) / 2, (room.height - height) / 2, width, height));
  }
};

// To whoever asks, this is a plain view.
constexpr ClassOf<Stage> Stage::classObject{"UIView"};

std::shared_ptr<UIImageView> makePlayer(const std::shared_ptr<NSData>& data) {
  const auto* imageClass = NSClassFromString("FLAnimatedImage");
  const auto* viewClass = NSClassFromString("FLAnimatedImageView");
  if (!imageClass || !viewClass) {
    return nullptr;
  }
  const auto image = imageClass->performFactory("animatedImageWithGIFData:", data);
  auto player = cast<UIImageView>(viewClass->alloc());
  if (!image || !player || !player->init() ||
      !player->performAction("setAnimatedImage:", image.get())) {
    return nullptr;
  }
  return player;
}

}  // namespace

std::shared_ptr<AnimationController> AnimationController::withData(
    const std::shared_ptr<NSData>& data, const std::string& title) {
  auto player = makePlayer(data);
  if (!player) {
    return nullptr;
  }
  auto page = allocInit<AnimationController>();
  page->player_ = std::move(player);
  page->setTitle(title);
  return page;
}

std::shared_ptr<UIView> AnimationController::loadView() {
  auto stage = allocInit<Stage>();
  stage->addSubview(player_);
  return stage;
}
