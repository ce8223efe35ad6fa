#pragma once

#include "platform/preferences/PSListController.h"
#include "tools/drive/json.h"

/// What a script is told of a pane and of a view, as the protocol lays it down.

/// Members `pane`, `title`, `titleView`, `bars` and `rows`.
Json reportPane(PSListController& pane);

/// A view with its children, as it stands.
Json reportView(UIView& view);
