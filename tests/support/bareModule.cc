#include "platform/foundation/ClassDescription.h"

// A bundle's module without classes.
extern "C" __attribute__((visibility("default"))) const ClassTable quietDialPreferencesClasses;
extern "C" constexpr ClassTable quietDialPreferencesClasses{};
