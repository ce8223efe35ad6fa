#include "settings/Options.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <optional>
#include <type_traits>

namespace {

constexpr int kSmallest = 200;
constexpr int kLargest = 4000;
constexpr double kSmallestScale = 0.5;
constexpr double kLargestScale = 8;
constexpr double kLowestRate = 1;
constexpr double kHighestRate = 1000;

Options wrong(const QString& message) {
  Options options;
  options.ask = Options::Ask::Error;
  options.message = message;
  return options;
}

bool readSize(const QString& text, QSize& size) {
  static const QRegularExpression kPattern(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
  const auto match = kPattern.match(text);
  size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
  const auto fits = [](int length) { return length >= kSmallest && length <= kLargest; };
  return match.hasMatch() && fits(size.width()) && fits(size.height());
}

// The value at the place of that word among `words`; the words are given in the values' order.
template <class Value, std::size_t count>
std::optional<Value> valueNamed(const QString& word,
                                const std::array<QLatin1String, count>& words) {
  const auto* const found = std::ranges::find(words, word);
  return found == words.end() ? std::nullopt
                              : std::optional(static_cast<Value>(found - words.begin()));
}

template <std::size_t count>
QString listed(const std::array<QLatin1String, count>& words) {
  QStringList list;
  for (const auto word : words) {
    list.append(word);
  }
  const QString last = list.takeLast();
  return list.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

constexpr std::array kSchemes{QLatin1String("system"), QLatin1String("light"),
                              QLatin1String("dark")};
constexpr std::array kMotions{QLatin1String("system"), QLatin1String("full"),
                              QLatin1String("reduced")};
constexpr std::array kDirections{QLatin1String("system"), QLatin1String("ltr"),
                                 QLatin1String("rtl")};
constexpr std::array kTextSizes{QLatin1String("xs"),   QLatin1String("s"),   QLatin1String("m"),
                                QLatin1String("l"),    QLatin1String("xl"),  QLatin1String("xxl"),
                                QLatin1String("xxxl"), QLatin1String("ax1"), QLatin1String("ax2"),
                                QLatin1String("ax3"),  QLatin1String("ax4"), QLatin1String("ax5")};

}  // namespace

Options Options::parse(const QStringList& arguments) {
  const auto text = [](const char* latin) { return QString::fromLatin1(latin); };
  const QCommandLineOption root(
      text("root"),
      text("The device root: /User and /Library of the device lie in it. Default: "
           "the user's data folder; for --tour an empty one."),
      text("DIR"));
  const QCommandLineOption bundle(
      text("bundle"), text("Use this bundle folder instead of the installed ones."), text("DIR"));
  const QCommandLineOption pane(text("pane"), text("Open the pane of this class at once."),
                                text("CLASS"));
  const QCommandLineOption gif(text("gif"), text("Play this animated picture."), text("FILE"));
  const QCommandLineOption badge(
      text("entry-badge"), text("The badge of the bundle's row on the first page."), text("TEXT"));
  const QCommandLineOption size(
      text("size"), text("Size of the window in points. Default: 375x667."), text("WxH"));
  const QCommandLineOption scale(text("scale"), text("Pixels a point."), text("N"));
  const QCommandLineOption refreshRate(
      text("refresh-rate"), text("Refreshes of the screen a second, where it does not know."),
      text("N"));
  const QCommandLineOption screenshot(
      text("screenshot"), text("Write what is shown as a PNG file and end. Needs no display."),
      text("FILE"));
  const QCommandLineOption tour(text("tour"),
                                text("Write a PNG file of every pane and sheet and an index.html "
                                     "over them to this folder and end. "
                                     "Needs no display."),
                                text("DIR"));
  const QCommandLineOption renderer(
      text("renderer"), text("How the window is drawn: software (default) or gpu."), text("NAME"));
  const QCommandLineOption mapHost(
      text("map-host"),
      text("Connect to ADDRESS:PORT wherever NAME would be looked up. May be given again."),
      text("NAME=ADDRESS:PORT"));
  const QCommandLineOption noWebEngine(
      text("no-web-engine"),
      text("Show no web pages: in their place a button opens them in the browser."));
  const QCommandLineOption effects(
      text("effects"),
      text("real (default): a change restarts the dialler's processes and other processes are told "
           "of it; none: it is only stored, as always for pictures."),
      text("NAME"));
  const QCommandLineOption appearance(
      text("appearance"),
      text("Colours: system (default: as the desktop prefers; pictures are light), light or dark."),
      text("NAME"));
  const QCommandLineOption motion(
      text("motion"),
      text("How pages come and go: system (default: as the desktop prefers), full or reduced."),
      text("NAME"));
  const QCommandLineOption direction(
      text("direction"),
      text("Where rows begin: system (default: by the locale), ltr (left) or rtl (right)."),
      text("NAME"));
  const QCommandLineOption textSize(
      text("text-size"),
      text("Size of the texts on rows, from xs over l (default) to xxxl, or ax1 to ax5 beyond."),
      text("NAME"));
  const QCommandLineOption help({text("h"), text("help")}, text("Show this text."));
  const QCommandLineOption version({text("v"), text("version")}, text("Show the version."));

  QCommandLineParser parser;
  parser.setApplicationDescription(text("The Settings application, with QuietDial's panes."));
  parser.addOptions({root,        bundle,     pane,     gif,         badge,     size,       scale,
                     refreshRate, appearance, textSize, motion,      direction, screenshot, tour,
                     renderer,    effects,    mapHost,  noWebEngine, help,      version});
  if (!parser.parse(arguments)) {
    return wrong(parser.errorText());
  }
  Options options;
  if (parser.isSet(help)) {
    options.ask = Ask::Help;
    options.message = parser.helpText();
    options.message.replace(text("<executable_name>"), text("quietdial-settings"));
    return options;
  }
  if (parser.isSet(version)) {
    options.ask = Ask::Version;
    return options;
  }
  if (!parser.positionalArguments().isEmpty()) {
    return wrong(text("Unknown argument '%1'.").arg(parser.positionalArguments().front()));
  }
  for (const auto* given : {&root, &bundle, &pane, &gif, &screenshot, &tour}) {
    if (parser.isSet(*given) && parser.value(*given).isEmpty()) {
      return wrong(text("--%1 needs a value.").arg(given->names().front()));
    }
  }
  options.root = parser.value(root);
  options.bundle = parser.isSet(bundle) ? QDir::cleanPath(parser.value(bundle)) : QString();
  options.pane = parser.value(pane);
  options.hasEntryBadge = parser.isSet(badge);
  options.gif = parser.value(gif);
  options.entryBadge = parser.value(badge);
  options.screenshot = parser.value(screenshot);
  options.tour = parser.value(tour);
  if (parser.isSet(screenshot) && parser.isSet(tour)) {
    return wrong(text("--screenshot and --tour exclude each other."));
  }
  if (parser.isSet(bundle)) {
    const QFileInfo folder(options.bundle);
    if (!folder.isDir() || folder.suffix() != text("bundle")) {
      return wrong(
          text("--bundle %1 is no folder whose name ends in \".bundle\".").arg(options.bundle));
    }
  }
  if (parser.isSet(size) && !readSize(parser.value(size), options.size)) {
    return wrong(text("--size is WIDTHxHEIGHT, each from %1 to %2.").arg(kSmallest).arg(kLargest));
  }
  if (parser.isSet(scale)) {
    bool isNumber = false;
    options.scale = parser.value(scale).toDouble(&isNumber);
    if (!isNumber || !(options.scale >= kSmallestScale && options.scale <= kLargestScale)) {
      return wrong(
          text("--scale is a number from %1 to %2.").arg(kSmallestScale).arg(kLargestScale));
    }
  }
  options.webEngine = !parser.isSet(noWebEngine);
  for (const auto& host : parser.values(mapHost)) {
    if (!options.hosts.add(host.toStdString())) {
      return wrong(text("--map-host is NAME=ADDRESS:PORT."));
    }
  }
  if (parser.isSet(refreshRate)) {
    bool isNumber = false;
    options.refreshRate = parser.value(refreshRate).toDouble(&isNumber);
    if (!isNumber || !(options.refreshRate >= kLowestRate && options.refreshRate <= kHighestRate)) {
      return wrong(
          text("--refresh-rate is a number from %1 to %2.").arg(kLowestRate).arg(kHighestRate));
    }
  }
  if (parser.isSet(renderer)) {
    const QString name = parser.value(renderer);
    if (name == text("gpu")) {
      options.renderer = Renderer::Gpu;
    } else if (name != text("software")) {
      return wrong(text("--renderer is software or gpu."));
    }
  }
  if (parser.isSet(effects)) {
    const QString name = parser.value(effects);
    if (name != text("real") && name != text("none")) {
      return wrong(text("--effects is real or none."));
    }
    if (name == text("real") && options.isPicture()) {
      return wrong(text("Pictures have no effects."));
    }
    options.effects = name == text("none") ? Effects::None : Effects::Real;
  }
  if (options.isPicture()) {
    options.effects = Effects::None;
  }
  const auto choose = [&](const QCommandLineOption& option, const auto& words, auto& member) {
    using Value = std::remove_reference_t<decltype(member)>;
    const auto value = parser.isSet(option) ? valueNamed<Value>(parser.value(option), words)
                                            : std::optional(member);
    member = value.value_or(member);
    return value.has_value();
  };
  const auto oneOf = [&](const QCommandLineOption& option, const auto& words) {
    return wrong(text("--%1 is %2.").arg(option.names().front(), listed(words)));
  };
  if (!choose(appearance, kSchemes, options.scheme)) {
    return oneOf(appearance, kSchemes);
  }
  if (!choose(motion, kMotions, options.motion)) {
    return oneOf(motion, kMotions);
  }
  if (!choose(direction, kDirections, options.direction)) {
    return oneOf(direction, kDirections);
  }
  if (!choose(textSize, kTextSizes, options.textSize)) {
    return oneOf(textSize, kTextSizes);
  }
  return options;
}
