#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>

// Preloaded into a program that is to trust a test's server: the system's certificates are those of
// the file that QUIETDIAL_TRUSTED names.

namespace {

constexpr const char* kSystemsCertificates = "/etc/ssl/certs/ca-certificates.crt";

FILE* openInstead(const char* function, const char* path, const char* mode) {
  const char* trusted = std::getenv("QUIETDIAL_TRUSTED");
  const bool isReplaced = trusted && std::strcmp(path, kSystemsCertificates) == 0;
  using Open = FILE*(const char*, const char*);
  return reinterpret_cast<Open*>(dlsym(RTLD_NEXT, function))(isReplaced ? trusted : path, mode);
}

}  // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED FILE* fopen(const char* path, const char* mode) {
  return openInstead("fopen", path, mode);
}

EXPORTED FILE* fopen64(const char* path, const char* mode) {
  return openInstead("fopen64", path, mode);
}
