#pragma once

#include "headless/Event.h"
#include "platform/preferences/PSSpecifier.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIView.h"
#include "tools/propertyListJson.h"

/// How the script protocol writes values.
///
/// Classes and colours by name, images as {"image": FILE NAME}.
Json toJson(const PSPropertyValue& property);
Json toJson(const Event& event);
Json toJson(UIColor color);
Json toJson(CGRect rectangle);
Json toJson(UIEdgeInsets insets);
