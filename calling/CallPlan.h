#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Why a call is not placed.
enum class Refusal {
  kNotANumber,
  kCode,
  kContext,
  kShows,
  kNoPrefix,
  kBadPrefix,
  kNoSettings,
  kNeedsRegion,
  kInCall,
  kNoLine,
  kLastCheck,
};

/// What the user is told beside the outcome.
enum class Notice {
  kEmergency,
  kRestNotDialled,
  kMayShow,
  kRoaming,
  kPremium,
};

/// How the network is asked to hide the number.
enum class Hiding {
  kNo,
  kPrefix,  ///< By what is dialled in front.
  kLine,    ///< By the line, which is told so.
};

struct CallRequest {
  std::string text;  ///< A number or a `tel:` or `callto:` address, UTF-8.
  bool isAnonymous = true;
  bool isAsIs = false;  ///< Dialling codes are neither refused nor taken off.
};

/// What a call would be. Where it is refused there is nothing to dial.
struct CallPlan {
  std::string number;  ///< As read: ASCII, without separators. Empty where it is none.
  std::optional<Refusal> refusal;
  std::string dial;
  Hiding hiding = Hiding::kNo;
  std::string prefix;  ///< Where it is by a prefix.
  bool isEmergency = false;
  std::string line;
  std::string region;
  std::vector<Notice> notices;
};

/// As programs read them: "not-a-number", "rest-not-dialled", "prefix".
std::string_view codeOf(Refusal refusal);
std::string_view codeOf(Notice notice);
std::string_view codeOf(Hiding hiding);

/// As people read them: one or two sentences.
std::string_view sentenceOf(Refusal refusal);
std::string_view sentenceOf(Notice notice);
