#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QSet>
#include <QString>
#include <optional>

/// Follows what the user prefers in the whole desktop and tells Appearance: dark or light, full or
/// reduced motion. Asked for over the session bus from the desktop's portal
/// (org.freedesktop.portal.Settings) without waiting for the answer; where nobody answers the
/// toolkit's palette tells dark from light. Main thread.
class DesktopPreferences : public QObject {
  Q_OBJECT

 public:
  DesktopPreferences();
  ~DesktopPreferences() override;
  Q_DISABLE_COPY_MOVE(DesktopPreferences)

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Q_SLOT void settingChanged(const QDBusMessage& message);
  void ask(const QString& group, const QString& key);
  void take(const QString& group, const QString& key, const QVariant& value);
  void tell() const;

  QSet<QString> told_;  // groups and keys that the portal has told by itself
  std::optional<bool> prefersDark_;
  bool reducesMotion_ = false;
  bool animates_ = true;
};
