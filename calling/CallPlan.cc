#include "calling/CallPlan.h"

std::string_view codeOf(Refusal refusal) {
  switch (refusal) {
    case Refusal::kNotANumber:
      return "not-a-number";
    case Refusal::kCode:
      return "code";
    case Refusal::kContext:
      return "context";
    case Refusal::kShows:
      return "shows";
    case Refusal::kNoPrefix:
      return "no-prefix";
    case Refusal::kBadPrefix:
      return "bad-prefix";
    case Refusal::kNoSettings:
      return "no-settings";
    case Refusal::kNeedsRegion:
      return "needs-region";
    case Refusal::kInCall:
      return "in-call";
    case Refusal::kNoLine:
      return "no-line";
    case Refusal::kLastCheck:
      return "last-check";
  }
  return "";
}

std::string_view codeOf(Notice notice) {
  switch (notice) {
    case Notice::kEmergency:
      return "emergency";
    case Notice::kRestNotDialled:
      return "rest-not-dialled";
    case Notice::kMayShow:
      return "may-show";
    case Notice::kRoaming:
      return "roaming";
    case Notice::kPremium:
      return "premium";
  }
  return "";
}

std::string_view codeOf(Hiding hiding) {
  switch (hiding) {
    case Hiding::kNo:
      return "no";
    case Hiding::kPrefix:
      return "prefix";
    case Hiding::kLine:
      return "line";
  }
  return "";
}

std::string_view sentenceOf(Refusal refusal) {
  switch (refusal) {
    case Refusal::kNotANumber:
      return "This is not a number that can be dialled.";
    case Refusal::kCode:
      return "This is a code for the network, or half of one, and not a number to call.";
    case Refusal::kContext:
      return "The address says where its number belongs in a way that gives no valid number.";
    case Refusal::kShows:
      return "The code in front of this number shows your number. Leave it out to have yours "
             "hidden.";
    case Refusal::kNoPrefix:
      return "The settings name no prefix that hides your number. Choose one under Hide Caller ID "
             "Prefix.";
    case Refusal::kBadPrefix:
      return "The prefix in the settings cannot be dialled, or would make this an emergency call. "
             "Choose another under Hide Caller ID Prefix.";
    case Refusal::kNoSettings:
      return "The settings are there, but they cannot be read, so the prefix is not known.";
    case Refusal::kNeedsRegion:
      return "How this international number is dialled behind the prefix depends on the country "
             "that you are in. Give it with --region, or dial the number as people there do.";
    case Refusal::kInCall:
      return "Another call is on. It would be ended or held by this one.";
    case Refusal::kNoLine:
      return "Nothing here can place this call.";
    case Refusal::kLastCheck:
      return "What would be dialled did not pass the last check. Please report this number's form.";
  }
  return "";
}

std::string_view sentenceOf(Notice notice) {
  switch (notice) {
    case Notice::kEmergency:
      return "This is an emergency number: it is dialled as it is, and your number is shown.";
    case Notice::kRestNotDialled:
      return "What follows the number is not dialled.";
    case Notice::kMayShow:
      return "On most networks this code shows your number.";
    case Notice::kRoaming:
      return "You are abroad: a prefix of your own country may mean something else here.";
    case Notice::kPremium:
      return "Calls to this number cost extra.";
  }
  return "";
}
