#pragma once

#include <memory>

#include "linux/DevicePaths.h"
#include "settings/phone/PhoneController.h"

/// The phone that this machine is, seen through the programs beside the running one: the terminal
/// program tells what a call would do, the dialler is started for the keypad. With `isTrial` the
/// dialler shows what it would dial where nothing can place calls.
PhoneController::Phone machinePhone(std::shared_ptr<const DevicePaths> paths,
                                    const std::string& programs, bool isTrial, bool allowRoot);
