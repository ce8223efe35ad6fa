#pragma once

#include <QString>

#include "platform/foundation/PropertyList.h"

/// What a file holds, for somebody to read: a property list entry by entry, another text as it is,
/// else how many bytes. Very long texts are cut.
QString readableText(const PropertyListData& data);
