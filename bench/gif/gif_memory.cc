#include <QBuffer>
#include <QImageReader>
#include <cstdio>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <unistd.h>

#include <sys/resource.h>
#include <sys/wait.h>

#include "bench/gif/Animations.h"
#include "bench/gif/GiflibPlayer.h"
#include "platform/imageio/CGImageSource.h"

// How much memory playing an animation once takes at most above the file's bytes, in canvases of
// 32-bit pixels, each player in a process of its own. A frame is dropped before the next is asked
// for.

namespace {

using Player = std::function<void(const animations::Data&)>;

void playOurs(const animations::Data& data) {
  const auto source = CGImageSource::createWithData(data);
  for (std::size_t i = 0; i < source->count(); ++i) {
    source->createImageAtIndex(i)->pixels();
  }
}

void playGiflib(const animations::Data& data) {
  GiflibPlayer player(*data);
  std::vector<std::uint32_t> canvas(player.pixelCount(), 0);
  while (player.next(canvas)) {
  }
}

void playQt(const animations::Data& data) {
  QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data->data()),
                                             static_cast<qsizetype>(data->size()));
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer, "gif");
  QImage image;
  while (reader.read(&image)) {
  }
}

double residentBytes() {
  std::ifstream stream("/proc/self/statm");
  long total = 0;
  long resident = 0;
  stream >> total >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// In bytes; the child's highest mark less what it had when it began.
double peakOf(const Player& play, const animations::Data& data) {
  int ends[2];
  if (pipe(ends) != 0) {
    return -1;
  }
  const pid_t child = fork();
  if (child == 0) {
    play(animations::tiny(2));  // what a player sets up once is not counted
    malloc_trim(0);             // nor what building the animation left behind
    const double before = residentBytes();
    play(data);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const double peak = static_cast<double>(usage.ru_maxrss) * 1024 - before;
    _exit(write(ends[1], &peak, sizeof peak) == sizeof peak ? 0 : 1);
  }
  double peak = -1;
  if (read(ends[0], &peak, sizeof peak) != sizeof peak) {
    peak = -1;
  }
  close(ends[0]);
  close(ends[1]);
  waitpid(child, nullptr, 0);
  return peak;
}

void report(const char* name, std::size_t pixels, const animations::Data& data) {
  const double canvas = static_cast<double>(pixels) * 4;
  std::printf("%-40s ours %5.2f   giflib %5.2f   Qt %5.2f\n", name, peakOf(playOurs, data) / canvas,
              peakOf(playGiflib, data) / canvas, peakOf(playQt, data) / canvas);
  std::fflush(stdout);
}

}  // namespace

int main() {
  std::printf("peak memory in canvases\n");
  report("interface 1160x840, 30 frames", 1160UL * 840, animations::interface(1160, 840, 30));
  report("interface 960x1748, 30 frames", 960UL * 1748, animations::interface(960, 1748, 30));
  report("interface 960x1748, disposal 3", 960UL * 1748,
         animations::interface(960, 1748, 30, animations::Disposal::restorePrevious));
  report("photograph 1280x960, 4 frames", 1280UL * 960, animations::photograph(1280, 960, 4));
}
