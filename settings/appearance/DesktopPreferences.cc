#include "settings/appearance/DesktopPreferences.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

#include "settings/appearance/Appearance.h"

namespace {

constexpr QLatin1String kService("org.freedesktop.portal.Desktop");
constexpr QLatin1String kPath("/org/freedesktop/portal/desktop");
constexpr QLatin1String kInterface("org.freedesktop.portal.Settings");

constexpr QLatin1String kAppearance("org.freedesktop.appearance");
// 0 no preference, 1 dark, 2 light
constexpr QLatin1String kColorScheme("color-scheme");
// 0 no preference, 1 reduced
constexpr QLatin1String kReducedMotion("reduced-motion");

// Desktops that know no portal key for it keep this switch.
constexpr QLatin1String kGnomeInterface("org.gnome.desktop.interface");
constexpr QLatin1String kEnableAnimations("enable-animations");

bool isPaletteDark() {
  const QPalette palette = QGuiApplication::palette();
  return palette.color(QPalette::WindowText).lightness() >
         palette.color(QPalette::Window).lightness();
}

// The portal wraps what it is asked for in one variant more than what it tells by itself.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) {
    value = value.value<QDBusVariant>().variant();
  }
  return value;
}

}  // namespace

DesktopPreferences::DesktopPreferences() {
  tell();
  qApp->installEventFilter(this);
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) {
    return;
  }
  // The whole message: slots for its arguments are found only after the bus has met their types.
  bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
              SLOT(settingChanged(QDBusMessage)));
  ask(kAppearance, kColorScheme);
  ask(kAppearance, kReducedMotion);
  ask(kGnomeInterface, kEnableAnimations);
}

DesktopPreferences::~DesktopPreferences() {
  qApp->removeEventFilter(this);
}

void DesktopPreferences::ask(const QString& group, const QString& key) {
  auto message =
      QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
  message << group << key;
  auto* watcher =
      new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, group, key, watcher] {
    watcher->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    // What was told by itself in the meantime is newer than the answer.
    if (reply.isValid() && !told_.contains(group + key)) {
      take(group, key, reply.value().variant());
    }
  });
}

void DesktopPreferences::settingChanged(const QDBusMessage& message) {
  if (message.signature() != QLatin1String("ssv")) {
    return;
  }
  const auto arguments = message.arguments();
  const QString group = arguments[0].toString();
  const QString key = arguments[1].toString();
  told_.insert(group + key);
  take(group, key, arguments[2]);
}

void DesktopPreferences::take(const QString& group, const QString& key, const QVariant& value) {
  const QVariant plain = unwrapped(value);
  if (group == kAppearance && key == kColorScheme) {
    constexpr uint kDark = 1;
    constexpr uint kLight = 2;
    const uint scheme = plain.toUInt();
    prefersDark_ =
        scheme == kDark || scheme == kLight ? std::optional(scheme == kDark) : std::nullopt;
  } else if (group == kAppearance && key == kReducedMotion) {
    reducesMotion_ = plain.toUInt() == 1;
  } else if (group == kGnomeInterface && key == kEnableAnimations) {
    animates_ = plain.toBool();
  } else {
    return;
  }
  tell();
}

void DesktopPreferences::tell() const {
  auto& appearance = Appearance::shared();
  appearance.setDesktopDark(prefersDark_.value_or(isPaletteDark()));
  appearance.setDesktopReducesMotion(reducesMotion_ || !animates_);
}

bool DesktopPreferences::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange) {
    tell();
  }
  return QObject::eventFilter(watched, event);
}
