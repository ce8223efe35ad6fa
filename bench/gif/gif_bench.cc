#include <QBuffer>
#include <QImageReader>
#include <cstdlib>
#include <span>

#include <benchmark/benchmark.h>

#include "bench/gif/Animations.h"
#include "bench/gif/GiflibPlayer.h"
#include "platform/imageio/CGImageSource.h"

// Each figure beside giflib and Qt's image reader on the same bytes. Everything includes opening
// the file.

namespace {

using animations::Disposal;

struct Animation {
  const char* name;
  animations::Data data;
};

const Animation& animation(std::size_t index) {
  static const std::vector<Animation> all{
      {"interface 580x420, 60 frames", animations::interface(580, 420, 60)},
      {"interface 480x874, 60 frames", animations::interface(480, 874, 60)},
      {"photograph 320x240, 30 frames", animations::photograph(320, 240, 30)},
      {"sheet 480x874, disposal 2, 20 frames", animations::sheet(480, 874, 20, Disposal::clear)},
      {"sheet 480x874, disposal 3, 20 frames",
       animations::sheet(480, 874, 20, Disposal::restorePrevious)},
      {"single picture 580x420", animations::interface(580, 420, 1)},
      {"tiny 16x16, 10000 frames", animations::tiny(10000)},
  };
  return all[index];
}

constexpr int animationCount = 7;

void require(bool condition, benchmark::State& state, const char* what) {
  if (!condition) {
    state.SkipWithError(what);
  }
}

QByteArray bytesOf(const Animation& animation) {
  return QByteArray::fromRawData(reinterpret_cast<const char*>(animation.data->data()),
                                 static_cast<qsizetype>(animation.data->size()));
}

std::size_t compositeAll(const CGImageSource& source) {
  std::size_t count = 0;
  for (; count < source.count(); ++count) {
    benchmark::DoNotOptimize(source.createImageAtIndex(count)->pixels());
  }
  return count;
}

void allFramesOurs(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  for (auto _ : state) {
    benchmark::DoNotOptimize(compositeAll(*CGImageSource::createWithData(gif.data)));
  }
}

/// Steady play with a frame cache: again and again from one source, the last frames held while the
/// next are made.
void steadyPlayHoldingEightOurs(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  std::array<std::shared_ptr<const PixelBuffer>, 8> held;
  const auto source = CGImageSource::createWithData(gif.data);
  for (auto _ : state) {
    for (std::size_t i = 0; i < source->count(); ++i) {
      held[i % held.size()] = source->createImageAtIndex(i)->pixels();
    }
  }
}

void allFramesGiflib(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  std::vector<std::uint32_t> canvas;
  for (auto _ : state) {
    GiflibPlayer player(*gif.data);
    canvas.assign(player.pixelCount(), 0);
    while (player.next(canvas)) {
      benchmark::DoNotOptimize(canvas.data());
    }
  }
}

void allFramesQt(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  QByteArray bytes = bytesOf(gif);
  QImage image;
  for (auto _ : state) {
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "gif");
    while (reader.read(&image)) {
      benchmark::DoNotOptimize(image.constBits());
    }
  }
}

void firstFrameOurs(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  for (auto _ : state) {
    const auto source = CGImageSource::createWithData(gif.data);
    benchmark::DoNotOptimize(source->createImageAtIndex(0)->pixels());
  }
}

void firstFrameGiflib(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  std::vector<std::uint32_t> canvas;
  for (auto _ : state) {
    GiflibPlayer player(*gif.data);
    canvas.assign(player.pixelCount(), 0);
    require(player.next(canvas), state, "giflib has no frame");
    benchmark::DoNotOptimize(canvas.data());
  }
}

void firstFrameQt(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  QByteArray bytes = bytesOf(gif);
  QImage image;
  for (auto _ : state) {
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "gif");
    require(reader.read(&image), state, "Qt has no frame");
  }
}

void countAndDelaysOurs(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  for (auto _ : state) {
    const auto source = CGImageSource::createWithData(gif.data);
    double sum = 0;
    for (std::size_t i = 0; i < source->count(); ++i) {
      sum += source->copyPropertiesAtIndex(i)->gif.unclampedDelayTime.value_or(0);
    }
    benchmark::DoNotOptimize(sum);
  }
}

void countAndDelaysGiflib(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  for (auto _ : state) {
    GiflibPlayer player(*gif.data);
    unsigned delay = 0;
    unsigned sum = 0;
    while (player.skip(delay)) {
      sum += delay;
    }
    benchmark::DoNotOptimize(sum);
  }
}

/// Qt gives the count without decoding, but no delays.
void countQt(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  QByteArray bytes = bytesOf(gif);
  for (auto _ : state) {
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "gif");
    benchmark::DoNotOptimize(reader.imageCount());
  }
}

/// To the last frame and back to the first, so half of it is the jump; kept canvases are there.
void jumpToLastOurs(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  const auto source = CGImageSource::createWithData(gif.data);
  const std::size_t last = source->count() - 1;
  source->createImageAtIndex(last)->pixels();
  for (auto _ : state) {
    state.PauseTiming();
    source->createImageAtIndex(0)->pixels();
    state.ResumeTiming();
    benchmark::DoNotOptimize(source->createImageAtIndex(last)->pixels());
  }
}

/// The first jump of all, with nothing decoded before.
void firstJumpToLastOurs(benchmark::State& state) {
  const Animation& gif = animation(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(gif.name);
  for (auto _ : state) {
    const auto source = CGImageSource::createWithData(gif.data);
    benchmark::DoNotOptimize(source->createImageAtIndex(source->count() - 1)->pixels());
  }
}

BENCHMARK(allFramesOurs)->DenseRange(0, animationCount - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(steadyPlayHoldingEightOurs)
    ->DenseRange(0, animationCount - 1)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(allFramesGiflib)->DenseRange(0, animationCount - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(allFramesQt)->DenseRange(0, animationCount - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(firstFrameOurs)->DenseRange(0, animationCount - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(firstFrameGiflib)->DenseRange(0, animationCount - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(firstFrameQt)->DenseRange(0, animationCount - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(countAndDelaysOurs)->DenseRange(0, animationCount - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(countAndDelaysGiflib)->DenseRange(0, animationCount - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(countQt)->DenseRange(0, animationCount - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(jumpToLastOurs)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(firstJumpToLastOurs)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
