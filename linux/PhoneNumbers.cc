#include "linux/PhoneNumbers.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>

namespace {

constexpr const char* kModule = "libquietdial-phone-numbers.so";
constexpr const char* kFunction = "quietdialNumberingPlans";
// As the dynamic loader ends a program.
constexpr int kLibraryMissing = 127;

const NumberingPlans& loadPlans() {
  using Function = const NumberingPlans*();
  // Found where the program looks for its libraries.
  void* const module = dlopen(kModule, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  auto* const function = module ? reinterpret_cast<Function*>(dlsym(module, kFunction)) : nullptr;
  if (!function) {
    std::fprintf(stderr, "quietdial: %s\n", dlerror());
    std::_Exit(kLibraryMissing);
  }
  return *function();
}

const NumberingPlans& sharedPlans() {
  static const NumberingPlans& plans = loadPlans();
  return plans;
}

}  // namespace

PhoneNumbers::PhoneNumbers() : plans_(sharedPlans()) {}
