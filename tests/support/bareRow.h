#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/preferences/PSSpecifier.h"

/// A row that asks and tells nobody: no target, getter or setter. `detail` is the class of the pane
/// that it leads to.
inline std::shared_ptr<PSSpecifier> bareRow(std::string name, PSCellType type,
                                            std::string_view detail = "") {
  return PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(std::move(name), nullptr,
                                                                         "", "", detail, type, "");
}
