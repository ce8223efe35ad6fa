#include <array>

#include "examples/emergency/EmergencyCardCell.h"
#include "examples/emergency/EmergencyCardController.h"

namespace {

constexpr std::array<const ClassDescription*, 2> kClasses{
    &EmergencyCardController::classObject,
    &EmergencyCardCell::classObject,
};

}  // namespace

/// The one name that a program looks up in the module.
extern "C" __attribute__((visibility("default"))) const ClassTable quietDialPreferencesClasses;
extern "C" constexpr ClassTable quietDialPreferencesClasses{kClasses};
