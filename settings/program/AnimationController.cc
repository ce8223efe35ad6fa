#include "settings/program/AnimationController.h"

#include <algorithm>
#include <filesystem>

#include "linux/readFile.h"
#include "platform/foundation/NSData.h"
#include "platform/foundation/Subclass.h"
#include "settings/bundles/InstalledBundles.h"

constexpr ClassOf<AnimationController> AnimationController::classObject{"AnimationController"};

namespace {

// As much as is played of a file that the terminal program describes.
constexpr std::size_t kMostFileBytes = std::size_t{256} << 20;

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

std::shared_ptr<AnimationController> AnimationController::withFile(const std::string& file,
                                                                   const InstalledBundles& bundles,
                                                                   std::string& fault) {
  const auto contents = readFile(AT_FDCWD, file, kMostFileBytes);
  if (contents.outcome != FileContents::Outcome::kRead) {
    fault = file + " cannot be read.";
    return nullptr;
  }
  bundles.load();
  auto player = makePlayer(NSData::dataWithBytes({contents.bytes.begin(), contents.bytes.end()}));
  if (!player) {
    fault = file + " is no animated picture that can be played.";
    return nullptr;
  }
  auto page = allocInit<AnimationController>();
  page->player_ = std::move(player);
  page->setTitle(std::filesystem::path(file).filename().string());
  return page;
}

std::shared_ptr<UIView> AnimationController::loadView() {
  auto stage = allocInit<Stage>();
  stage->addSubview(player_);
  return stage;
}
