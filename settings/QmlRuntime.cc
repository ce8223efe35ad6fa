#include "settings/QmlRuntime.h"

#include <array>

namespace {

// What the first page is made of.
constexpr std::array kFirst{"Main",  "TableView", "TableCell", "HeaderFooter",
                            "Label", "ImageView", "PlainView"};

}  // namespace

QmlRuntime::QmlRuntime() {
  for (const char* type : kFirst) {
    components_.push_back(std::make_unique<QQmlComponent>(
        &engine_, source(QString::fromLatin1(type)), QQmlComponent::Asynchronous));
  }
}

QUrl QmlRuntime::source(const QString& type) {
  return {QStringLiteral("qrc:/QuietDial/Settings/%1.qml").arg(type)};
}
