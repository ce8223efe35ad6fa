#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/foundation/NSBundle.h"
#include "platform/preferences/PSSpecifier.h"

/// A specifier list resource as read: a property list with a `title` and the rows as `items`, each
/// a dictionary of row properties. docs/specifier-lists.md describes the format.
struct SpecifierList {
  std::string title;
  PSSpecifiers specifiers;
};

/// Reads "name.plist" of the bundle. Rows name selectors of `target`. A missing resource, or one
/// that is no list, gives no rows; an item that is no dictionary is passed over.
SpecifierList readSpecifierList(const NSBundle& bundle, std::string_view name,
                                const std::shared_ptr<NSObject>& target);
