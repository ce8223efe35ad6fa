#pragma once

#include <optional>

#include <nlohmann/json.hpp>

#include "headless/Event.h"
#include "platform/preferences/PSSpecifier.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIView.h"

/// How the script protocol writes values. Members keep the order in which they are added.
using Json = nlohmann::ordered_json;

/// Integers as integers of up to 64 bits, reals so that they read back as the same double ("nan",
/// "inf" and "-inf" as {"real": …}), data as {"data": BASE64}, dates as {"date": ISO 8601}.
Json toJson(const PropertyListValue& value);
Json toJson(const PropertyListDictionary& dictionary);
/// Null for nothing.
Json toJson(const std::optional<PropertyListValue>& value);
/// Classes and colours by name, images as {"image": FILE NAME}.
Json toJson(const PSPropertyValue& property);
Json toJson(const Event& event);
Json toJson(UIColor color);
Json toJson(CGRect rectangle);
Json toJson(UIEdgeInsets insets);
