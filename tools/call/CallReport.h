#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "calling/CallPlan.h"

/// A plan in words: "Calling 01715550134 with #31# through GNOME Calls. Asked to hide your number;
/// the network decides.", and a sentence for each notice. `lineTitle` is the line's.
std::string sentencesOf(const CallPlan& plan, const std::string& lineTitle);

/// The same for programs. `sentence` says why nothing was placed; empty where something was.
nlohmann::ordered_json jsonOf(const CallPlan& plan, const std::string& sentence);
