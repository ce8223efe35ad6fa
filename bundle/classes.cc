#include <array>

#include "animated/FLAnimatedImage.h"
#include "animated/FLAnimatedImageView.h"
#include "animated/FLWeakProxy.h"
#include "core/export.h"
#include "extras/QDCreditsListController.h"
#include "extras/QDPromotionController.h"
#include "extras/QDSoftwareCreditsController.h"
#include "extras/QDSupportListController.h"
#include "platform/foundation/ClassDescription.h"
#include "prefix/QDCountryPrefixController.h"
#include "prefix/prefixTableCell.h"
#include "root/QDPreferencesListController.h"
#include "styles/QDButtonPickerCell.h"
#include "styles/QDButtonStyleSelectionController.h"
#include "styles/QDDialerStyleSelectionController.h"
#include "styles/QDDialerTabStyleCell.h"
#include "styles/QDSystemwideStyleCell.h"
#include "styles/QDSystemwideStyleSelectionController.h"

namespace {

constexpr std::array<const ClassDescription*, 16> kClasses{
    &FLAnimatedImage::classObject,
    &FLAnimatedImageView::classObject,
    &FLWeakProxy::classObject,
    &QDPreferencesListController::classObject,
    &QDSupportListController::classObject,
    &QDCreditsListController::classObject,
    &QDSoftwareCreditsController::classObject,
    &QDCountryPrefixController::classObject,
    &prefixTableCell::classObject,
    &QDPromotionController::classObject,
    &QDDialerStyleSelectionController::classObject,
    &QDDialerTabStyleCell::classObject,
    &QDSystemwideStyleSelectionController::classObject,
    &QDSystemwideStyleCell::classObject,
    &QDButtonStyleSelectionController::classObject,
    &QDButtonPickerCell::classObject,
};

}  // namespace

/// The classes of the bundle that resources name; a program finds the first pane in it.
extern "C" QD_EXPORT const ClassTable quietDialPreferencesClasses;
extern "C" constexpr ClassTable quietDialPreferencesClasses{kClasses};
