#include <QFile>
#include <QSaveFile>
#include <QSettings>
#include <cstdlib>
#include <dconf.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>

#include <benchmark/benchmark.h>
#include <sys/stat.h>

#include "linux/DeviceFileService.h"
#include "linux/propertylist/PropertyListSerialization.h"

// The settings file beside what a program of this desktop would use instead, and beside the floor
// of the same system calls. Run it on a private session bus, whose dconf then writes into a folder
// of its own too, and a folder on the disk that matters:
//   XDG_CONFIG_HOME=$(mktemp -d) QUIETDIAL_BENCH_DIR=DIR dbus-run-session build/bench/store_bench

namespace {

namespace fs = std::filesystem;

const fs::path& folder() {
  static const fs::path path = [] {
    const char* given = std::getenv("QUIETDIAL_BENCH_DIR");
    auto root = (given ? fs::path(given) : fs::temp_directory_path()) / "quietdial-bench";
    fs::create_directories(root);
    return root;
  }();
  return path;
}

PropertyListDictionary settings(std::int64_t keys) {
  PropertyListDictionary dictionary{{"selectedPrefix", "#31#"}};
  for (std::int64_t key = 1; key < keys; ++key) {
    const auto name = "someSettingsKey" + std::to_string(key);
    dictionary.emplace(name, key % 2 == 0 ? PropertyListValue(key) : PropertyListValue("Style 1"));
  }
  return dictionary;
}

constexpr const char* kPath = "/User/Library/Preferences/bench.plist";

fs::path hostPath() {
  return folder() / "User/Library/Preferences/bench.plist";
}

DeviceFileService& files() {
  static DeviceFileService service(std::make_shared<DevicePaths>(folder(), "/nowhere"));
  return service;
}

void require(benchmark::State& state, bool done) {
  if (!done) {
    state.SkipWithError("failed");
  }
}

void ReadFloor(benchmark::State& state) {
  files().writeToFileAtomically(settings(13), kPath);
  const auto path = hostPath().string();
  std::string buffer(4096, '\0');
  for (auto _ : state) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    benchmark::DoNotOptimize(read(file, buffer.data(), buffer.size()));
    close(file);
  }
}
BENCHMARK(ReadFloor);

void ReadOneKey(benchmark::State& state) {
  require(state, files().writeToFileAtomically(settings(state.range(0)), kPath));
  for (auto _ : state) {
    const auto dictionary = files().dictionaryWithContentsOfFile(kPath);
    benchmark::DoNotOptimize(dictionary->find("selectedPrefix")->second);
  }
}
BENCHMARK(ReadOneKey)->Arg(13)->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000);

// QSettings keeps what it parsed while the file's size and time stay the same, so the file changes.
void ReadOneKeyQSettingsChangedFile(benchmark::State& state) {
  const auto path = QString::fromStdString((folder() / "bench.ini").string());
  {
    QSettings writer(path, QSettings::IniFormat);
    for (const auto& [key, value] : settings(13)) {
      writer.setValue(
          QString::fromStdString(key),
          QString::fromStdString(value.get<std::string>() ? *value.get<std::string>() : "1"));
    }
  }
  const auto name = path.toStdString();
  std::int64_t second = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const timespec times[2] = {{++second, 0}, {second, 0}};
    utimensat(AT_FDCWD, name.c_str(), times, 0);
    state.ResumeTiming();
    const QSettings reader(path, QSettings::IniFormat);
    benchmark::DoNotOptimize(reader.value(QStringLiteral("selectedPrefix")));
  }
}
BENCHMARK(ReadOneKeyQSettingsChangedFile)->Iterations(20000);

void ReadOneKeyDConf(benchmark::State& state) {
  const std::unique_ptr<DConfClient, void (*)(gpointer)> client(dconf_client_new(), g_object_unref);
  dconf_client_write_sync(client.get(), "/quietdial/selectedPrefix", g_variant_new_string("#31#"),
                          nullptr, nullptr, nullptr);
  for (auto _ : state) {
    GVariant* value = dconf_client_read(client.get(), "/quietdial/selectedPrefix");
    benchmark::DoNotOptimize(value);
    if (!value) {
      state.SkipWithError("no value: is there a session bus?");
      break;
    }
    g_variant_unref(value);
  }
}
BENCHMARK(ReadOneKeyDConf);

void WriteFloor(benchmark::State& state) {
  const auto bytes = *bytesFromPropertyList(settings(13));
  const auto target = (folder() / "floor.plist").string();
  const auto temporary = target + ".tmp";
  for (auto _ : state) {
    const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    require(state, write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
    fsync(file);
    close(file);
    require(state, rename(temporary.c_str(), target.c_str()) == 0);
    const int parent = open(folder().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    fsync(parent);
    close(parent);
  }
}
BENCHMARK(WriteFloor)->UseRealTime();

void WriteOneKey(benchmark::State& state) {
  files().writeToFileAtomically(settings(state.range(0)), kPath);
  std::int64_t number = 0;
  for (auto _ : state) {
    auto merged = *files().dictionaryWithContentsOfFile(kPath);
    merged.insert_or_assign("selectedPrefix", "*6" + std::to_string(++number % 10));
    require(state, files().writeToFileAtomically(merged, kPath));
  }
}
BENCHMARK(WriteOneKey)->Arg(13)->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000)->UseRealTime();

void WriteQSaveFileSameBytes(benchmark::State& state) {
  const auto bytes = *bytesFromPropertyList(settings(13));
  const auto target = QString::fromStdString((folder() / "save.plist").string());
  for (auto _ : state) {
    QSaveFile file(target);
    const bool done = file.open(QIODevice::WriteOnly) &&
                      file.write(bytes.data(), static_cast<qint64>(bytes.size())) > 0 &&
                      file.flush() && file.commit();
    require(state, done);
  }
}
BENCHMARK(WriteQSaveFileSameBytes)->UseRealTime();

void WriteOneKeyQSettings(benchmark::State& state) {
  QSettings store(QString::fromStdString((folder() / "bench.ini").string()), QSettings::IniFormat);
  int number = 0;
  for (auto _ : state) {
    store.setValue(QStringLiteral("selectedPrefix"), ++number % 10);
    store.sync();
  }
}
BENCHMARK(WriteOneKeyQSettings)->UseRealTime();

void WriteOneKeyDConf(benchmark::State& state) {
  const std::unique_ptr<DConfClient, void (*)(gpointer)> client(dconf_client_new(), g_object_unref);
  int number = 0;
  for (auto _ : state) {
    const bool done =
        dconf_client_write_sync(client.get(), "/quietdial/selectedPrefix",
                                g_variant_new_int32(++number % 10), nullptr, nullptr, nullptr) != 0;
    require(state, done);
  }
}
BENCHMARK(WriteOneKeyDConf)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
