#pragma once

#include <memory>

#include "platform/preferences/PSSpecifier.h"

/// A row without a name that is drawn by that class and as high as its cell asks for.
std::shared_ptr<PSSpecifier> makeStyleRow(const std::shared_ptr<NSObject>& pane,
                                          const ClassDescription& cellClass);

/// A group with an empty header.
std::shared_ptr<PSSpecifier> makeStyleGroup();
