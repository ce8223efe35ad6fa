#include "settings/program/Options.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr int kSmallest = 200;
constexpr int kLargest = 4000;
constexpr double kSmallestScale = 0.5;
constexpr double kLargestScale = 8;
constexpr double kLowestRate = 1;
constexpr double kHighestRate = 1000;

constexpr std::array kRenderers{QLatin1String("software"), QLatin1String("gpu")};
constexpr std::array kEffects{QLatin1String("real"), QLatin1String("none")};
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

struct Description {
  const char* name;
  const char* text;
  const char* value;  // null for an option without
};

constexpr std::array kDescriptions{
    Description{
        "root",
        "The device root: /User and /Library of the device lie in it. Default: the user's data "
        "folder; for --tour an empty one.",
        "DIR"},
    Description{"bundle", "Use this bundle folder instead of the installed ones.", "DIR"},
    Description{"pane", "Open the pane of this class at once.", "CLASS"},
    Description{"gif", "Play this animated picture.", "FILE"},
    Description{"entry-badge", "The badge of the bundle's row on the first page.", "TEXT"},
    Description{"size", "Size of the window in points. Default: 375x667.", "WxH"},
    Description{"scale", "Pixels a point.", "N"},
    Description{"refresh-rate", "Refreshes of the screen a second, where it does not know.", "N"},
    Description{
        "appearance",
        "Colours: system (default: as the desktop prefers; pictures are light), light or dark.",
        "NAME"},
    Description{
        "text-size",
        "Size of the texts on rows, from xs over l (default) to xxxl, or ax1 to ax5 beyond.",
        "NAME"},
    Description{"motion",
                "How pages come and go: system (default: as the desktop prefers), full or reduced.",
                "NAME"},
    Description{"direction",
                "Where rows begin: system (default: by the locale), ltr (left) or rtl (right).",
                "NAME"},
    Description{"screenshot", "Write what is shown as a PNG file and end. Needs no display.",
                "FILE"},
    Description{
        "tour",
        "Write a PNG file of every pane and sheet and an index.html over them to this folder and "
        "end. Needs no display.",
        "DIR"},
    Description{"renderer", "How the window is drawn: software (default) or gpu.", "NAME"},
    Description{
        "effects",
        "real (default): a change restarts the dialler's processes and other processes are told "
        "of it; none: it is only stored, as always for pictures.",
        "NAME"},
    Description{"map-host",
                "Connect to ADDRESS:PORT wherever NAME would be looked up. May be given again.",
                "NAME=ADDRESS:PORT"},
    Description{"allow-root", "Run even as root, with root's own settings.", nullptr},
    Description{"no-web-engine",
                "Show no web pages: in their place a button opens them in the browser.", nullptr},
};

template <std::size_t count>
QString listed(const std::array<QLatin1String, count>& words) {
  QStringList list;
  for (const auto word : words) {
    list.append(word);
  }
  const QString last = list.takeLast();
  return list.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

// Reads options one by one; what is wrong with the first bad one is kept.
class Reader {
 public:
  explicit Reader(const QCommandLineParser& parser) : parser_(parser) {}

  const QString& fault() const { return fault_; }
  void fail(const QString& fault) {
    if (fault_.isEmpty()) {
      fault_ = fault;
    }
  }

  bool isGiven(const char* name) const { return parser_.isSet(QString::fromLatin1(name)); }
  QString text(const char* name) const { return parser_.value(QString::fromLatin1(name)); }

  // A text that may not be empty.
  QString filled(const char* name) {
    QString value = text(name);
    if (isGiven(name) && value.isEmpty()) {
      fail(QStringLiteral("--%1 needs a value.").arg(QLatin1String(name)));
    }
    return value;
  }

  void number(const char* name, double lowest, double highest, double& member) {
    if (!isGiven(name)) {
      return;
    }
    bool isNumber = false;
    member = text(name).toDouble(&isNumber);
    if (!isNumber || !(member >= lowest && member <= highest)) {
      fail(QStringLiteral("--%1 is a number from %2 to %3.")
               .arg(QLatin1String(name))
               .arg(lowest)
               .arg(highest));
    }
  }

  void size(const char* name, QSize& member) {
    if (!isGiven(name)) {
      return;
    }
    static const QRegularExpression kPattern(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
    const auto match = kPattern.match(text(name));
    member = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    const auto fits = [](int length) { return length >= kSmallest && length <= kLargest; };
    if (!match.hasMatch() || !fits(member.width()) || !fits(member.height())) {
      fail(QStringLiteral("--%1 is WIDTHxHEIGHT, each from %2 to %3.")
               .arg(QLatin1String(name))
               .arg(kSmallest)
               .arg(kLargest));
    }
  }

  // One of the words; they are given in the order of the values of `Value`.
  template <class Value, std::size_t count>
  void choice(const char* name, const std::array<QLatin1String, count>& words, Value& member) {
    if (!isGiven(name)) {
      return;
    }
    const auto* const found = std::ranges::find(words, text(name));
    if (found == words.end()) {
      fail(QStringLiteral("--%1 is %2.").arg(QLatin1String(name), listed(words)));
      return;
    }
    member = static_cast<Value>(found - words.begin());
  }

 private:
  const QCommandLineParser& parser_;
  QString fault_;
};

}  // namespace

Options Options::parse(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("The Settings application, with QuietDial's panes."));
  for (const auto& option : kDescriptions) {
    parser.addOption({QString::fromLatin1(option.name), QString::fromLatin1(option.text),
                      QString::fromLatin1(option.value)});
  }
  const QString help = QStringLiteral("help");
  const QString version = QStringLiteral("version");
  parser.addOption({{QStringLiteral("h"), help}, QStringLiteral("Show this text.")});
  parser.addOption({{QStringLiteral("v"), version}, QStringLiteral("Show the version.")});

  Options options;
  if (!parser.parse(arguments)) {
    options.ask = Ask::Error;
    options.message = parser.errorText();
    return options;
  }
  if (parser.isSet(help)) {
    options.ask = Ask::Help;
    options.message = parser.helpText();
    options.message.replace(QStringLiteral("<executable_name>"),
                            QStringLiteral("quietdial-settings"));
    return options;
  }
  if (parser.isSet(version)) {
    options.ask = Ask::Version;
    return options;
  }
  Reader reader(parser);
  if (!parser.positionalArguments().isEmpty()) {
    reader.fail(QStringLiteral("Unknown argument '%1'.").arg(parser.positionalArguments().front()));
  }
  options.root = reader.filled("root");
  options.bundle = QDir::cleanPath(reader.filled("bundle"));
  options.pane = reader.filled("pane");
  options.gif = reader.filled("gif");
  options.screenshot = reader.filled("screenshot");
  options.tour = reader.filled("tour");
  options.hasEntryBadge = reader.isGiven("entry-badge");
  options.entryBadge = reader.text("entry-badge");
  options.allowRoot = reader.isGiven("allow-root");
  options.webEngine = !reader.isGiven("no-web-engine");
  reader.size("size", options.size);
  reader.number("scale", kSmallestScale, kLargestScale, options.scale);
  reader.number("refresh-rate", kLowestRate, kHighestRate, options.refreshRate);
  reader.choice("renderer", kRenderers, options.renderer);
  reader.choice("effects", kEffects, options.effects);
  reader.choice("appearance", kSchemes, options.scheme);
  reader.choice("motion", kMotions, options.motion);
  reader.choice("direction", kDirections, options.direction);
  reader.choice("text-size", kTextSizes, options.textSize);
  for (const auto& host : parser.values(QStringLiteral("map-host"))) {
    if (!options.hosts.add(host.toStdString())) {
      reader.fail(QStringLiteral("--map-host is NAME=ADDRESS:PORT."));
    }
  }
  const QFileInfo bundle(options.bundle);
  if (reader.isGiven("bundle") &&
      (!bundle.isDir() || bundle.suffix() != QStringLiteral("bundle"))) {
    reader.fail(QStringLiteral("--bundle %1 is no folder whose name ends in \".bundle\".")
                    .arg(options.bundle));
  }
  if (reader.isGiven("screenshot") && reader.isGiven("tour")) {
    reader.fail(QStringLiteral("--screenshot and --tour exclude each other."));
  }
  if (options.isPicture()) {
    if (reader.isGiven("effects") && options.effects == Effects::Real) {
      reader.fail(QStringLiteral("Pictures have no effects."));
    }
    options.effects = Effects::None;
  }
  if (!reader.fault().isEmpty()) {
    options.ask = Ask::Error;
    options.message = reader.fault();
  }
  return options;
}
