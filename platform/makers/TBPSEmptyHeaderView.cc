#include "platform/makers/TBPSEmptyHeaderView.h"

constexpr ClassOf<TBPSEmptyHeaderView> TBPSEmptyHeaderView::classObject{"TBPSEmptyHeaderView"};
