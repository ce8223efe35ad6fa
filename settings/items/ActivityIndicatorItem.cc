#include "settings/items/ActivityIndicatorItem.h"

#include "platform/uikit/UIActivityIndicatorView.h"

void ActivityIndicatorItem::takeOverLook() {
  animating_ = viewAs<UIActivityIndicatorView>()->isAnimating();
}
