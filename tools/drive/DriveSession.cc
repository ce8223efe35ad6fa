#include "tools/drive/DriveSession.h"

#include <array>
#include <cmath>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "core/preferenceStore.h"
#include "headless/drainAllQueues.h"
#include "platform/foundation/GlobalQueue.h"
#include "platform/foundation/MainQueue.h"
#include "platform/preferences/PSEditableTableCell.h"
#include "platform/services.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UISegmentedControl.h"
#include "prefix/prefixes.h"
#include "root/TweakList.h"
#include "tools/drive/report.h"

namespace {

// Nothing scrolls in a script: the table is as high as its rows, and any height will do for the
// page.
constexpr CGFloat kPageHeight = 568;

// A request that cannot be carried out; the message is the reply's sentence.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

const Json& member(const Json& request, const char* name) {
  const auto found = request.find(name);
  if (found == request.end()) {
    throw Refusal("The request has no \"" + std::string(name) + "\".");
  }
  return *found;
}

std::string textMember(const Json& request, const char* name) {
  const auto& value = member(request, name);
  if (!value.is_string()) {
    throw Refusal("\"" + std::string(name) + "\" has to be a text.");
  }
  return value.get<std::string>();
}

int indexMember(const Json& request, const char* name) {
  const auto& value = member(request, name);
  constexpr std::int64_t kLargest = 1'000'000;
  if (!value.is_number_integer() || value.get<double>() < 0 || value.get<double>() > kLargest) {
    throw Refusal("\"" + std::string(name) + "\" has to be a whole number from 0.");
  }
  return value.get<int>();
}

double numberMember(const Json& request, const char* name, double least, double most) {
  const auto& value = member(request, name);
  const double number = value.is_number() ? value.get<double>() : NAN;
  if (!(number >= least && number <= most)) {
    throw Refusal("\"" + std::string(name) + "\" has to be a number from " + Json(least).dump() +
                  " to " + Json(most).dump() + ".");
  }
  return number;
}

// The views of that class below a view, in order.
template <class View>
void collect(const UIView& view, std::vector<std::shared_ptr<View>>& views) {
  for (const auto& child : view.subviews()) {
    if (auto found = cast<View>(child)) {
      views.push_back(std::move(found));
    }
    collect(*child, views);
  }
}

Json failure(const std::string& sentence) {
  return {{"ok", false}, {"error", sentence}};
}

Json success() {
  return {{"ok", true}};
}

}  // namespace

DriveSession::DriveSession(Options options, const BundleModule& module,
                           std::shared_ptr<ManualClock> clock, std::shared_ptr<Recorder> recorder,
                           std::shared_ptr<RecordingSheets> sheets,
                           std::shared_ptr<ManualDisplayRefresh> displayRefresh)
    : options_(std::move(options)),
      module_(module),
      clock_(std::move(clock)),
      recorder_(std::move(recorder)),
      sheets_(std::move(sheets)),
      displayRefresh_(std::move(displayRefresh)) {}

Json DriveSession::answer(const std::string& line) {
  const Json request = Json::parse(line, nullptr, /*allow_exceptions=*/false);
  if (!request.is_object()) {
    return failure("The line is not a JSON object.");
  }
  Json reply;
  try {
    const auto settles = request.find("settle");
    if (settles != request.end() && !settles->is_boolean()) {
      throw Refusal("\"settle\" has to be true or false.");
    }
    reply = carryOut(request);
    if (settles == request.end() || settles->get<bool>()) {
      settle();
    }
  } catch (const Refusal& refusal) {
    reply = failure(refusal.what());
  }
  if (const auto tag = request.find("tag"); tag != request.end()) {
    reply["tag"] = *tag;
  }
  return reply;
}

Json DriveSession::carryOut(const Json& request) {
  using Handler = Json (DriveSession::*)(const Json&);
  static constexpr std::array<std::pair<std::string_view, Handler>, 18> kHandlers{{
      {"push", &DriveSession::push},
      {"tap", &DriveSession::tap},
      {"pop", &DriveSession::pop},
      {"rows", &DriveSession::rows},
      {"views", &DriveSession::views},
      {"segment", &DriveSession::segment},
      {"press", &DriveSession::press},
      {"type", &DriveSession::type},
      {"bar", &DriveSession::bar},
      {"sheet", &DriveSession::sheet},
      {"resize", &DriveSession::resize},
      {"refresh", &DriveSession::refresh},
      {"advance", &DriveSession::advance},
      {"memory-warning", &DriveSession::memoryWarning},
      {"settings", &DriveSession::settings},
      {"events", &DriveSession::events},
      {"globals", &DriveSession::globals},
      {"quit", &DriveSession::quit},
  }};
  const auto name = textMember(request, "do");
  for (const auto& [known, handler] : kHandlers) {
    if (known == name) {
      return (this->*handler)(request);
    }
  }
  throw Refusal("Nothing is known by the name \"" + name + "\".");
}

Json DriveSession::push(const Json& request) {
  const auto className = textMember(request, "pane");
  const auto* description = NSClassFromString(className);
  if (!description || !description->isSubclassOf(PSListController::classObject)) {
    throw Refusal("There is no pane \"" + className + "\".");
  }
  const auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "", nullptr, "", "", className, PSCellType::kLink, "");
  if (options_.entryBadge) {
    row->setPropertyForKey(PropertyListValue(*options_.entryBadge), "badgeString");
  }
  stacks_.inner->pushViewControllerAnimated(makePane(className, row), true);
  layOut();
  return whereWeAre();
}

Json DriveSession::tap(const Json& request) {
  auto& pane = requireTopPane();
  pane.selectSpecifier(requireRow(pane, request));
  layOut();
  return whereWeAre();
}

Json DriveSession::pop(const Json& /*request*/) {
  if (!stacks_.inner->popViewControllerAnimated(true)) {
    throw Refusal("No pane is open.");
  }
  layOut();
  return whereWeAre();
}

Json DriveSession::rows(const Json& /*request*/) {
  Json reply = success();
  reply.update(reportPane(requireTopPane()));
  return reply;
}

Json DriveSession::views(const Json& request) {
  auto& pane = requireTopPane();
  Json reply = success();
  reply["view"] = reportView(*requireCell(pane, request));
  return reply;
}

Json DriveSession::segment(const Json& request) {
  auto& pane = requireTopPane();
  const auto cell = requireCell(pane, request);
  const int index = indexMember(request, "index");
  std::vector<std::shared_ptr<UISegmentedControl>> controls;
  collect(*cell, controls);
  if (controls.empty()) {
    throw Refusal("Row " + member(request, "row").dump() + " has no segmented control.");
  }
  const auto count = controls.front()->titles().size();
  if (std::cmp_greater_equal(index, count)) {
    throw Refusal("Row " + member(request, "row").dump() + " has " + std::to_string(count) +
                  " segments, counted from 0.");
  }
  controls.front()->chooseSegment(index);
  layOut();
  return success();
}

Json DriveSession::press(const Json& request) {
  auto& pane = requireTopPane();
  const auto cell = requireCell(pane, request);
  const auto number = static_cast<std::size_t>(indexMember(request, "button"));
  std::vector<std::shared_ptr<UIButton>> buttons;
  collect(*cell, buttons);
  if (number == 0 || number > buttons.size()) {
    throw Refusal("Row " + member(request, "row").dump() + " has " +
                  std::to_string(buttons.size()) + " buttons, counted from 1.");
  }
  buttons[number - 1]->sendActionsForControlEvents(UIControlEvent::kTouchUpInside);
  layOut();
  return success();
}

Json DriveSession::type(const Json& request) {
  auto& pane = requireTopPane();
  const auto cell = cast<PSEditableTableCell>(requireCell(pane, request));
  auto text = textMember(request, "text");
  if (!cell) {
    throw Refusal("Row " + member(request, "row").dump() + " has no text field.");
  }
  const auto field = cell->textField();
  field->becomeFirstResponder();
  field->edit(std::move(text));
  field->pressReturn();
  layOut();
  return success();
}

Json DriveSession::bar(const Json& request) {
  auto& pane = requireTopPane();
  if (textMember(request, "side") != "right") {
    throw Refusal(R"("side" has to be "right".)");
  }
  const auto item = pane.navigationItem()->rightBarButtonItem();
  if (!item) {
    throw Refusal("The pane has no right bar button.");
  }
  item->press();
  layOut();
  return success();
}

Json DriveSession::sheet(const Json& request) {
  const auto result = textMember(request, "result");
  const auto* top = sheets_->top();
  if (!top) {
    throw Refusal("No sheet or alert is shown.");
  }
  if (const auto* compose = std::get_if<std::shared_ptr<SLComposeViewController>>(top)) {
    if (result != "posted" && result != "cancelled") {
      throw Refusal(R"(The sheet on top ends with "posted" or "cancelled".)");
    }
    const auto sheet = *compose;
    sheet->finish();
  } else if (const auto* mail = std::get_if<std::shared_ptr<MFMailComposeViewController>>(top)) {
    const auto sheet = *mail;
    finishMail(*sheet, result);
  } else {
    if (result != "ok") {
      throw Refusal("The alert on top ends with \"ok\".");
    }
    sheets_->closeAlert();
  }
  layOut();
  return success();
}

void DriveSession::finishMail(MFMailComposeViewController& mail, const std::string& result) {
  if (result == "sent") {
    const bool sent = services().mail->send(mail.message());
    mail.finish(sent ? MFMailComposeResult::kSent : MFMailComposeResult::kFailed,
                sent ? std::nullopt : std::optional(MFMailComposeErrorCode::kSendFailed));
  } else if (result == "saved") {
    const bool saved = services().mail->saveDraft(mail.message()).has_value();
    mail.finish(saved ? MFMailComposeResult::kSaved : MFMailComposeResult::kFailed,
                saved ? std::nullopt : std::optional(MFMailComposeErrorCode::kSaveFailed));
  } else if (result == "failed") {
    mail.finish(MFMailComposeResult::kFailed, MFMailComposeErrorCode::kSendFailed);
  } else if (result == "cancelled") {
    mail.finish(MFMailComposeResult::kCancelled);
  } else {
    throw Refusal(R"(The mail on top ends with "sent", "saved", "cancelled" or "failed".)");
  }
}

Json DriveSession::resize(const Json& request) {
  options_.width = numberMember(request, "width", 1, 100'000);
  layOut();
  return success();
}

Json DriveSession::refresh(const Json& request) {
  const int count = indexMember(request, "count");
  const double duration = numberMember(request, "duration", 0, 3600);
  for (int refresh = 0; refresh < count; ++refresh) {
    settle();
    if (!displayRefresh_->isWanted()) {
      break;  // more of them would change nothing
    }
    displayRefresh_->refresh(duration);
  }
  return success();
}

Json DriveSession::advance(const Json& request) {
  clock_->advance(numberMember(request, "seconds", 0, 1e9));
  return success();
}

Json DriveSession::memoryWarning(const Json& /*request*/) {
  UIApplication::sharedApplication().didReceiveMemoryWarning();
  return success();
}

Json DriveSession::settings(const Json& /*request*/) {
  const std::string path(kSettingsPath);
  Json reply = success();
  reply["exists"] = services().files->dataWithContentsOfFile(path).has_value();
  reply["settings"] = toJson(
      services().files->dictionaryWithContentsOfFile(path).value_or(PropertyListDictionary{}));
  return reply;
}

Json DriveSession::events(const Json& /*request*/) {
  Json list = Json::array();
  for (const auto& event : recorder_->take()) {
    list.push_back(toJson(event));
  }
  Json reply = success();
  reply["events"] = std::move(list);
  return reply;
}

Json DriveSession::globals(const Json& /*request*/) {
  Json pairs = Json::array();
  if (const auto* table = module_.variable<decltype(prefixes)>("prefixes")) {
    for (const auto& [country, prefix] : *table) {
      pairs.push_back(Json::array({std::string(country), std::string(prefix)}));
    }
  }
  Json reply = success();
  for (const char* name : {"availableTweaks", "unseenTweaks"}) {
    const auto* list = module_.variable<TweakList>(name);
    const auto tweaks = list ? list->tweaks() : nullptr;
    reply[name] = tweaks ? Json(*tweaks) : Json(nullptr);
  }
  reply["prefixes"] = std::move(pairs);
  return reply;
}

Json DriveSession::quit(const Json& /*request*/) {
  ended_ = true;
  return success();
}

void DriveSession::settle() {
  if (options_.exchangeNotifications) {
    options_.exchangeNotifications();
  }
  // Laying out may load a page, which ends in the background.
  do {
    drainAllQueues();
    if (options_.exchangeNotifications) {
      options_.exchangeNotifications();
    }
    layOut();
    // In this order: once the background is idle nobody else adds to the main queue.
  } while (!GlobalQueue::shared().isIdle() || !MainQueue::shared().isIdle());
}

void DriveSession::layOut() {
  const auto pane = topPane();
  if (!pane) {
    return;
  }
  pane->view()->setFrame(CGRectMake(0, 0, options_.width, kPageHeight));
  pane->view()->layoutIfNeeded();
}

Json DriveSession::whereWeAre() const {
  const auto pane = stacks_.inner->topViewController();
  Json reply = success();
  reply["pane"] = pane ? Json(std::string(pane->classDescription().name)) : Json(nullptr);
  reply["depth"] = stacks_.inner->viewControllers().size();
  return reply;
}

std::shared_ptr<PSListController> DriveSession::topPane() const {
  return cast<PSListController>(stacks_.inner->topViewController());
}

PSListController& DriveSession::requireTopPane() const {
  const auto pane = topPane();
  if (!pane) {
    throw Refusal("No pane is open.");
  }
  return *pane;
}

std::shared_ptr<PSSpecifier> DriveSession::requireRow(PSListController& pane,
                                                      const Json& request) const {
  const int index = indexMember(request, "row");
  auto row = pane.specifierAtIndex(index);
  if (!row) {
    throw Refusal("There is no row " + std::to_string(index) + ".");
  }
  return row;
}

std::shared_ptr<UITableViewCell> DriveSession::requireCell(PSListController& pane,
                                                           const Json& request) const {
  requireRow(pane, request);
  const int index = indexMember(request, "row");
  const auto indexPath = pane.indexPathForIndex(index);
  auto cell = indexPath ? pane.table()->cellForRowAtIndexPath(*indexPath) : nullptr;
  if (!cell) {
    throw Refusal("Row " + std::to_string(index) + " is a group and has no cell.");
  }
  return cell;
}
