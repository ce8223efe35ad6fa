#include "tools/drive/report.h"

#include <string>

#include "platform/uikit/UIActivityIndicatorView.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UISegmentedControl.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UIWebView.h"

namespace {

Json textOrNull(const std::string& text) {
  return text.empty() ? Json(nullptr) : Json(text);
}

const char* nameOf(NSTextAlignment alignment) {
  switch (alignment) {
    case NSTextAlignment::kLeft:
      return "left";
    case NSTextAlignment::kCenter:
      return "center";
    case NSTextAlignment::kRight:
      return "right";
    case NSTextAlignment::kNatural:
      break;
  }
  return "natural";
}

const char* nameOf(UITableViewCellAccessoryType type) {
  switch (type) {
    case UITableViewCellAccessoryType::kDisclosureIndicator:
      return "disclosure";
    case UITableViewCellAccessoryType::kCheckmark:
      return "checkmark";
    case UITableViewCellAccessoryType::kNone:
      break;
  }
  return "none";
}

Json reportImage(const std::shared_ptr<UIImage>& image) {
  if (!image) {
    return nullptr;
  }
  return {{"file", textOrNull(image->name())},
          {"template", image->renderingMode() == UIImageRenderingMode::kAlwaysTemplate},
          {"width", image->size().width},
          {"height", image->size().height}};
}

Json reportBarButton(const UIBarButtonItem& item) {
  return {{"image", item.image() ? Json(item.image()->name()) : Json(nullptr)},
          {"action", item.action()}};
}

// The height that the table gave the row or the group's header.
CGFloat laidOutHeight(PSListController& pane, int index) {
  if (const auto indexPath = pane.indexPathForIndex(index)) {
    const auto cell = pane.table()->cellForRowAtIndexPath(*indexPath);
    return cell ? cell->frame().size.height : 0;
  }
  const auto header = pane.table()->headerViewForSection(pane.sectionForIndex(index).value_or(-1));
  return header ? header->frame().size.height : 0;
}

Json reportRow(PSListController& pane, int index) {
  const auto specifier = pane.specifierAtIndex(index);
  const auto indexPath = pane.indexPathForIndex(index);
  Json properties = Json::object();
  for (const auto& [key, property] : specifier->properties()) {
    properties[key] = toJson(property);
  }
  return {{"index", index},
          {"section", pane.sectionForIndex(index).value_or(0)},
          {"row", indexPath ? indexPath->row : -1},
          {"kind", std::string(PSTableCell::stringFromCellType(specifier->cellType()))},
          {"title", specifier->name()},
          {"id", specifier->identifier()},
          {"action", textOrNull(specifier->action())},
          {"detail", textOrNull(specifier->detail())},
          {"value", toJson(specifier->value())},
          {"height", laidOutHeight(pane, index)},
          {"properties", std::move(properties)}};
}

void describeLabel(Json& report, const UILabel& label) {
  report["text"] = label.text();
  report["textColor"] = toJson(label.textColor());
  report["fontSize"] = label.font().pointSize;
  report["alignment"] = nameOf(label.textAlignment());
  report["lines"] = label.numberOfLines();
}

// The bundle's class answers by the names of its properties.
void describeAnimation(Json& report, UIImageView& view) {
  if (view.respondsToSelector("setAnimatedImage:")) {
    report["frames"] = toJson(view.valueForKey("frameCount"));
    report["frameIndex"] = toJson(view.valueForKey("currentFrameIndex"));
    report["animating"] = view.isAnimating();
    report["loopCountdown"] = toJson(view.valueForKey("loopCountdown"));
  }
}

void describeField(Json& report, const UITextField& field) {
  report["text"] = field.text();
  report["textColor"] = toJson(field.textColor());
  report["fontSize"] = field.font().pointSize;
  report["placeholder"] = field.placeholder();
}

void describeCell(Json& report, const UITableViewCell& cell) {
  report["text"] = cell.textLabel()->text();
  report["detail"] = cell.detailTextLabel() ? Json(cell.detailTextLabel()->text()) : Json(nullptr);
  report["accessory"] = nameOf(cell.accessoryType());
  if (cell.accessoryView()) {
    report["accessoryView"] = toJson(cell.accessoryView()->frame());
  }
  if (cell.separatorInset()) {
    report["separatorInset"] = toJson(*cell.separatorInset());
  }
  if (cell.layoutMargins()) {
    report["layoutMargins"] = toJson(*cell.layoutMargins());
  }
  if (cell.preservesSuperviewLayoutMargins()) {
    report["preservesSuperviewLayoutMargins"] = *cell.preservesSuperviewLayoutMargins();
  }
}

}  // namespace

Json reportPane(PSListController& pane) {
  Json report{{"pane", std::string(pane.classDescription().name)}, {"title", pane.title()}};
  if (const auto titleView = cast<UIImageView>(pane.navigationItem()->titleView())) {
    report["titleView"] = titleView->image() ? Json(titleView->image()->name()) : Json(nullptr);
  }
  Json bars = Json::object();
  if (const auto& right = pane.navigationItem()->rightBarButtonItem()) {
    bars["right"] = reportBarButton(*right);
  }
  report["bars"] = std::move(bars);
  Json rows = Json::array();
  const int count = static_cast<int>(pane.specifiers().size());
  for (int index = 0; index < count; ++index) {
    rows.push_back(reportRow(pane, index));
  }
  report["rows"] = std::move(rows);
  return report;
}

Json reportView(UIView& view) {
  Json report{{"class", std::string(view.classDescription().name)},
              {"frame", toJson(view.frame())}};
  if (view.isHidden()) {
    report["hidden"] = true;
  }
  if (view.backgroundColor()) {
    report["background"] = toJson(*view.backgroundColor());
  }
  if (const auto* label = dynamic_cast<const UILabel*>(&view)) {
    describeLabel(report, *label);
  } else if (const auto* field = dynamic_cast<const UITextField*>(&view)) {
    describeField(report, *field);
  } else if (const auto* segments = dynamic_cast<const UISegmentedControl*>(&view)) {
    report["segments"] = segments->titles();
    report["selected"] = segments->selectedSegmentIndex();
  } else if (const auto* button = dynamic_cast<const UIButton*>(&view)) {
    report["image"] = reportImage(button->image());
    report["tint"] = toJson(button->tintColor());
  } else if (auto* picture = dynamic_cast<UIImageView*>(&view)) {
    report["image"] = reportImage(picture->image());
    report["tint"] = toJson(picture->tintColor());
    describeAnimation(report, *picture);
  } else if (const auto* page = dynamic_cast<const UIWebView*>(&view)) {
    report["url"] = page->request() ? Json(page->request()->url) : Json(nullptr);
    report["loading"] = page->isLoading();
  } else if (const auto* wheel = dynamic_cast<const UIActivityIndicatorView*>(&view)) {
    report["animating"] = wheel->isAnimating();
  } else if (const auto* cell = dynamic_cast<const UITableViewCell*>(&view)) {
    describeCell(report, *cell);
  }
  Json children = Json::array();
  for (const auto& child : view.subviews()) {
    children.push_back(reportView(*child));
  }
  report["children"] = std::move(children);
  return report;
}
