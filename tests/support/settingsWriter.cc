#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string>
#include <unistd.h>

#include "linux/DeviceFileService.h"

// Writes generations of settings for tests that break or kill it: in each, every key has the
// generation's number. Ends with 0 when the last write succeeded, else with 3.
//   settings-writer DEVICE-ROOT FIRST LAST [FILLER-BYTES]
// A line follows each write: the number, or "failed" and the reason's number.

int main(int count, char** arguments) {
  if (count < 4) {
    return 2;
  }
  DeviceFileService files(std::make_shared<DevicePaths>(arguments[1], "/nowhere"));
  const int last = std::atoi(arguments[3]);
  const std::string filler(count > 4 ? std::strtoul(arguments[4], nullptr, 10) : 0, 'x');
  fcntl(-1, F_GETFD);  // from here on, calls count
  std::error_code error;
  for (int generation = std::atoi(arguments[2]); generation <= last; ++generation) {
    PropertyListDictionary settings{{"filler", filler}};
    for (int key = 0; key < 13; ++key) {
      settings.emplace("key" + std::to_string(key), generation);
    }
    error = files.replaceFile(settings, "/User/Library/Preferences/s.plist");
    const auto line =
        (error ? "failed " + std::to_string(error.value()) : std::to_string(generation)) + "\n";
    if (::write(STDOUT_FILENO, line.data(), line.size()) < 0) {
      return 4;
    }
  }
  return error ? 3 : 0;
}
