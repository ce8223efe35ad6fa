#include <array>

#include "core/export.h"
#include "extras/QDPromotionController.h"
#include "platform/foundation/ClassDescription.h"
#include "prefix/QDCountryPrefixController.h"
#include "prefix/prefixTableCell.h"
#include "root/QDPreferencesListController.h"

namespace {

constexpr std::array<const ClassDescription*, 4> kClasses{
    &QDPreferencesListController::classObject,
    &QDCountryPrefixController::classObject,
    &prefixTableCell::classObject,
    &QDPromotionController::classObject,
};

}  // namespace

/// The classes of the bundle that resources name; a program finds the first pane in it.
extern "C" QD_EXPORT const ClassTable quietDialPreferencesClasses;
extern "C" constexpr ClassTable quietDialPreferencesClasses{kClasses};
