#pragma once

#include "platform/api.h"
#include "platform/foundation/ClassDescription.h"

/// The frameworks' own classes that resources may name. A program registers them before it loads
/// the first bundle.
PLATFORM_API const ClassTable& platformClasses();
