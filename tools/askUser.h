#pragma once

#include <string>

#include "tools/Command.h"

enum class Answer {
  kYes,
  kNo,
  kNobody,  ///< The input is no terminal.
};

/// Asks a question that "y" or "yes" answers.
Answer askUser(Streams streams, const std::string& question);
