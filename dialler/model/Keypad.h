#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <qqmlintegration.h>

#include "linux/diallerSettings.h"

/// The number that is being typed, and what the keypad's buttons look like. Main thread.
class Keypad : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("the program's own")
  Q_PROPERTY(QString number READ number NOTIFY changed)
  /// What went wrong last; empty for nothing.
  Q_PROPERTY(QString remark READ remark NOTIFY changed)
  /// As a call screen's.
  Q_PROPERTY(int mode READ mode NOTIFY changed)
  Q_PROPERTY(int picture READ picture NOTIFY changed)

 public:
  using Settings = std::function<DiallerSettings()>;

  static constexpr qsizetype kMostSigns = 40;

  explicit Keypad(Settings settings);

  QString number() const { return number_; }
  QString remark() const { return remark_; }
  int mode() const { return static_cast<int>(settings_.mode); }
  int picture() const { return settings_.button; }

  /// One of `0-9*#+`; anything else does nothing.
  Q_INVOKABLE void type(const QString& sign);
  /// The last sign.
  Q_INVOKABLE void erase();
  Q_INVOKABLE void clear();
  /// A number from the clipboard, in whatever way it is written, in place of what was typed. Of a
  /// text that is none nothing is taken.
  Q_INVOKABLE void paste();
  void paste(const QString& text);
  Q_INVOKABLE void callAnonymously();
  Q_INVOKABLE void call();

  void setRemark(const QString& remark);
  /// The settings have changed.
  void readSettings();

 signals:
  void changed();
  void callWanted(const QString& number, bool isAnonymous);

 private:
  void want(bool isAnonymous);

  Settings readSettings_;
  DiallerSettings::Screen settings_;
  QString number_;
  QString remark_;
};
