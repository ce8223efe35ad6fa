#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/PropertyList.h"

/// RFC 4648 base64. Blanks between the characters are passed over; nothing when other characters
/// stand there, or when the end is cut or followed by more.
std::optional<PropertyListData> dataFromBase64(std::string_view text);

void appendBase64(std::string& text, const PropertyListData& data);
