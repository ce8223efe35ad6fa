#include "platform/uikit/UINavigationItem.h"

constexpr ClassDescription UINavigationItem::classObject{
    "UINavigationItem", &NSObject::classObject, &allocObject<UINavigationItem>, {}};
