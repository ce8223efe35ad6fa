#include "tools/call/CallReport.h"

std::string sentencesOf(const CallPlan& plan, const std::string& lineTitle) {
  std::string text = "Calling " + plan.dial.substr(plan.prefix.size());
  if (!plan.prefix.empty()) {
    text += " with " + plan.prefix;
  }
  text += " through " + lineTitle + ".";
  bool mayShow = false;
  std::string notices;
  for (const auto notice : plan.notices) {
    mayShow = mayShow || notice == Notice::kMayShow;
    notices.append(" ").append(sentenceOf(notice));
  }
  if (plan.hiding != Hiding::kNo && !mayShow) {
    text += " Asked to hide your number; the network decides.";
  }
  return text + notices;
}

nlohmann::ordered_json jsonOf(const CallPlan& plan, const std::string& sentence) {
  nlohmann::ordered_json object;
  object["number"] = plan.number;
  if (!plan.refusal) {
    object["dial"] = plan.dial;
  }
  object["hide"] = codeOf(plan.hiding);
  object["line"] = plan.line;
  object["region"] = plan.region;
  object["notices"] = nlohmann::ordered_json::array();
  for (const auto notice : plan.notices) {
    object["notices"].push_back(codeOf(notice));
  }
  if (plan.refusal) {
    object["refused"] = codeOf(*plan.refusal);
  }
  if (!sentence.empty()) {
    object["sentence"] = sentence;
  }
  return object;
}
