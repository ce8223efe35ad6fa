#include <QBuffer>
#include <QImageReader>
#include <memory>

#include <benchmark/benchmark.h>

#include "animated/FLAnimatedImageView.h"
#include "bench/gif/Animations.h"
#include "headless/ManualClock.h"
#include "headless/ManualDisplayRefresh.h"
#include "headless/drainAllQueues.h"
#include "platform/services.h"
#include "platform/uikit/UIWindow.h"

// What the main thread does at the refreshes of an animation of 60 frames of 580 x 420: with frames
// decoded ahead, and beside it the toolkit's reader, decoding when a frame is due.

namespace {

constexpr unsigned kFrames = 60;

const animations::Data& data() {
  static const auto kData = animations::interface(580, 420, kFrames);
  return kData;
}

void refreshWithFramesDecodedAhead(benchmark::State& state) {
  const auto screen = std::make_shared<ManualDisplayRefresh>();
  Services services;
  services.clock = std::make_shared<ManualClock>();
  services.displayRefresh = screen;
  installServices(services);
  const auto window = allocInit<UIWindow>();
  const auto bytes = NSData::dataWithBytes(*data());
  std::shared_ptr<FLAnimatedImageView> view;
  for (auto _ : state) {
    if (!view || !view->isAnimating()) {
      state.PauseTiming();
      if (view) {
        view->removeFromSuperview();
      }
      view = allocInit<FLAnimatedImageView>();
      view->setAnimatedImage(FLAnimatedImage::animatedImageWithGIFData(bytes));
      window->addSubview(view);
      state.ResumeTiming();
    }
    // A little more than the delay, which counts in single precision.
    screen->refresh(view->animatedImage()->delayTimes()[view->currentFrameIndex()] + 1e-6);
    view->layer().displayIfNeeded();
    state.PauseTiming();
    drainAllQueues();
    state.ResumeTiming();
  }
}

void frameWithTheToolkitsReader(benchmark::State& state) {
  QByteArray bytes(reinterpret_cast<const char*>(data()->data()),
                   static_cast<qsizetype>(data()->size()));
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  std::unique_ptr<QImageReader> reader;
  QImage frame;
  for (auto _ : state) {
    if (!reader || !reader->canRead()) {
      state.PauseTiming();
      buffer.seek(0);
      reader = std::make_unique<QImageReader>(&buffer, "gif");
      state.ResumeTiming();
    }
    reader->read(&frame);
    benchmark::DoNotOptimize(frame.constBits());
  }
}

BENCHMARK(refreshWithFramesDecodedAhead)->Unit(benchmark::kMicrosecond);
BENCHMARK(frameWithTheToolkitsReader)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
