#include "tools/drive/TemporaryRoot.h"

#include <cstdlib>
#include <string>
#include <system_error>

TemporaryRoot::TemporaryRoot() {
  std::string name = (std::filesystem::temp_directory_path() / "quietdial-XXXXXX").string();
  if (mkdtemp(name.data())) {
    path_ = name;
  }
}

TemporaryRoot::~TemporaryRoot() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}
