#pragma once

#include <QString>

/// How a text is to be read out: a dial code ("#31#") sign by sign, "hash three one hash"; any
/// other text as it is.
QString spokenText(const QString& text);
