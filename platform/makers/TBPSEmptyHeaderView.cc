#include "platform/makers/TBPSEmptyHeaderView.h"

constexpr ClassDescription TBPSEmptyHeaderView::classObject{
    "TBPSEmptyHeaderView", &UIView::classObject, &allocObject<TBPSEmptyHeaderView>, {}};
