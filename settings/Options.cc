#include "settings/Options.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr int kSmallest = 200;
constexpr int kLargest = 4000;
constexpr double kSmallestScale = 0.5;
constexpr double kLargestScale = 8;

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
  const QCommandLineOption badge(
      text("entry-badge"), text("The badge of the bundle's row on the first page."), text("TEXT"));
  const QCommandLineOption size(
      text("size"), text("Size of the window in points. Default: 375x667."), text("WxH"));
  const QCommandLineOption scale(text("scale"), text("Pixels a point."), text("N"));
  const QCommandLineOption screenshot(
      text("screenshot"), text("Write what is shown as a PNG file and end. Needs no display."),
      text("FILE"));
  const QCommandLineOption tour(
      text("tour"),
      text("Write a PNG file of every pane and an index.html over them to this folder and end. "
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
  const QCommandLineOption help({text("h"), text("help")}, text("Show this text."));
  const QCommandLineOption version({text("v"), text("version")}, text("Show the version."));

  QCommandLineParser parser;
  parser.setApplicationDescription(text("The Settings application, with QuietDial's panes."));
  parser.addOptions({root, bundle, pane, badge, size, scale, screenshot, tour, renderer, mapHost,
                     noWebEngine, help, version});
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
  for (const auto* given : {&root, &bundle, &pane, &screenshot, &tour}) {
    if (parser.isSet(*given) && parser.value(*given).isEmpty()) {
      return wrong(text("--%1 needs a value.").arg(given->names().front()));
    }
  }
  options.root = parser.value(root);
  options.bundle = parser.value(bundle);
  options.pane = parser.value(pane);
  options.hasEntryBadge = parser.isSet(badge);
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
  if (parser.isSet(renderer)) {
    const QString name = parser.value(renderer);
    if (name == text("gpu")) {
      options.renderer = Renderer::Gpu;
    } else if (name != text("software")) {
      return wrong(text("--renderer is software or gpu."));
    }
  }
  return options;
}
