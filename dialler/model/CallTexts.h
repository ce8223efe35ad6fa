#pragma once

#include <QString>

#include "linux/lines/CallDesk.h"

/// What the call screen says. Numbers read from left to right in texts of either direction.
namespace call_texts {

/// A text that holds a number, to stand in a sentence.
QString isolated(const QString& number);

/// What the buttons would do, and what is to be known of it: under the buttons, in lines.
QString details(const CallOffer& offer);

/// Beside the country's own name where the number is of another one.
QString country(const CallOffer& offer);

/// Why nothing can be called.
QString refusal(Refusal refusal);

/// While a call is on its way to the line.
QString placing(const CallPlan& plan);

/// What came of it; empty where the line's own program shows the call.
QString outcome(const CallResult& result, const CallPlan& plan);

}  // namespace call_texts
