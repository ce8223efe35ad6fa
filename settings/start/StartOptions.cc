#include "settings/start/StartOptions.h"

#include <QRegularExpression>
#include <vector>

#include "settings/start/arguments.h"

namespace {

constexpr int kSmallest = 200;
constexpr int kLargest = 4000;
constexpr double kSmallestScale = 0.5;
constexpr double kLargestScale = 8;
constexpr double kSlowestRefresh = 1;
constexpr double kFastestRefresh = 1000;

// Nothing where the text is no size, or one that no window has.
std::optional<QSize> sizeFrom(const std::string& text) {
  static const QRegularExpression kPattern(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
  const auto match = kPattern.match(QString::fromStdString(text));
  const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
  const auto fits = [](int length) { return length >= kSmallest && length <= kLargest; };
  return match.hasMatch() && fits(size.width()) && fits(size.height()) ? std::optional(size)
                                                                       : std::nullopt;
}

std::string checkSize(const std::string& text) {
  return sizeFrom(text) ? ""
                        : "has to be WIDTHxHEIGHT, each from " + std::to_string(kSmallest) +
                              " to " + std::to_string(kLargest);
}

std::string checkHost(const std::string& text) {
  return HostMap().add(text) ? "" : "has to be NAME=ADDRESS:PORT";
}

}  // namespace

void StartOptions::addTo(CLI::App& app) {
  addText(app, "--root", root,
          "The device root: /User and /Library of the device lie in it. Default: the program's own")
      ->type_name("DIR");
  app.add_option_function<std::string>(
         "--size", [this](const std::string& text) { size = sizeFrom(text).value_or(size); },
         "Size of the window in points. Default: 375x667")
      ->type_name("WxH")
      ->take_last()
      ->check(CLI::Validator(checkSize, "", "size"));
  addNumber(app, "--scale", scale, kSmallestScale, kLargestScale, "Pixels a point");
  addChoice<Renderer>(app, "--renderer", renderer,
                      {{"software", Renderer::kSoftware}, {"gpu", Renderer::kGPU}},
                      "How the window is drawn. Default: software");
  addChoice<Appearance::Direction>(app, "--direction", direction,
                                   {{"system", Appearance::Direction::kSystem},
                                    {"ltr", Appearance::Direction::kLeftToRight},
                                    {"rtl", Appearance::Direction::kRightToLeft}},
                                   "Where rows begin: by the locale (default), left or right");
  app.add_option_function<std::vector<std::string>>(
         "--map-host",
         [this](const std::vector<std::string>& mappings) {
           for (const auto& mapping : mappings) {
             hosts.add(mapping);
           }
         },
         "Connect to ADDRESS:PORT wherever NAME would be looked up. May be given again")
      ->type_name("NAME=ADDRESS:PORT")
      ->allow_extra_args(false)
      ->check(CLI::Validator(checkHost, "", "host"));
  app.add_flag("--allow-root", allowRoot, "Run even as root, with root's own settings");
  app.add_flag_callback(
      "--no-web-engine", [this] { webEngine = false; },
      "Show no web pages: in their place a button opens them in the browser");
}

void StartOptions::addLookTo(CLI::App& app) {
  addNumber(app, "--refresh-rate", refreshRate, kSlowestRefresh, kFastestRefresh,
            "Refreshes of the screen a second, where it does not know");
  addChoice<Appearance::Scheme>(app, "--appearance", scheme,
                                {{"system", Appearance::Scheme::kSystem},
                                 {"light", Appearance::Scheme::kLight},
                                 {"dark", Appearance::Scheme::kDark}},
                                "Colours. Default: as the desktop prefers; pictures are light");
  addChoice<UIContentSizeCategory>(
      app, "--text-size", textSize,
      {{"xs", UIContentSizeCategory::kExtraSmall},
       {"s", UIContentSizeCategory::kSmall},
       {"m", UIContentSizeCategory::kMedium},
       {"l", UIContentSizeCategory::kLarge},
       {"xl", UIContentSizeCategory::kExtraLarge},
       {"xxl", UIContentSizeCategory::kExtraExtraLarge},
       {"xxxl", UIContentSizeCategory::kExtraExtraExtraLarge},
       {"ax1", UIContentSizeCategory::kAccessibilityMedium},
       {"ax2", UIContentSizeCategory::kAccessibilityLarge},
       {"ax3", UIContentSizeCategory::kAccessibilityExtraLarge},
       {"ax4", UIContentSizeCategory::kAccessibilityExtraExtraLarge},
       {"ax5", UIContentSizeCategory::kAccessibilityExtraExtraExtraLarge}},
      "Size of the texts on rows. Default: l");
  addChoice<Appearance::Motion>(app, "--motion", motion,
                                {{"system", Appearance::Motion::kSystem},
                                 {"full", Appearance::Motion::kFull},
                                 {"reduced", Appearance::Motion::kReduced}},
                                "How pages come and go. Default: as the desktop prefers");
}
