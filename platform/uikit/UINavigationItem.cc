#include "platform/uikit/UINavigationItem.h"

constexpr ClassOf<UINavigationItem> UINavigationItem::classObject{"UINavigationItem"};
