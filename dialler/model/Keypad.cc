#include "dialler/model/Keypad.h"

#include <QClipboard>
#include <QGuiApplication>
#include <utility>

#include "calling/NumberReader.h"

Keypad::Keypad(Settings settings)
    : readSettings_(std::move(settings)), settings_(readSettings_().keypad) {}

void Keypad::type(const QString& sign) {
  static const QString kSigns = QStringLiteral("0123456789*#+");
  if (sign.size() == 1 && kSigns.contains(sign) && number_.size() < kMostSigns) {
    number_ += sign;
    remark_.clear();
    emit changed();
  }
}

void Keypad::erase() {
  number_.chop(1);
  remark_.clear();
  emit changed();
}

void Keypad::clear() {
  number_.clear();
  remark_.clear();
  emit changed();
}

void Keypad::paste() {
  paste(QGuiApplication::clipboard()->text());
}

void Keypad::paste(const QString& text) {
  const auto read = readNumber(text.trimmed().toStdString(), {});
  if (!read || !read->context.empty()) {
    setRemark(tr("What was copied is no phone number."));
    return;
  }
  number_ = QString::fromStdString(read->number);
  remark_ = read->hasRest ? tr("What follows the number was left out.") : QString();
  emit changed();
}

void Keypad::callAnonymously() {
  want(true);
}

void Keypad::call() {
  want(false);
}

void Keypad::want(bool isAnonymous) {
  if (!number_.isEmpty()) {
    setRemark({});
    emit callWanted(number_, isAnonymous);
  }
}

void Keypad::setRemark(const QString& remark) {
  remark_ = remark;
  emit changed();
}

void Keypad::readSettings() {
  settings_ = readSettings_().keypad;
  emit changed();
}
