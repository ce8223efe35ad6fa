#include "platform/foundation/NSProxy.h"

constexpr ClassDescription NSProxy::classObject{
    "NSProxy", &NSObject::classObject, &allocObject<NSProxy>, {}};
