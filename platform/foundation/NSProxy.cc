#include "platform/foundation/NSProxy.h"

constexpr ClassOf<NSProxy> NSProxy::classObject{"NSProxy"};
