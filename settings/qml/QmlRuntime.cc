#include "settings/qml/QmlRuntime.h"

#include <array>

// Written by the toolkit's build for the module's types.
extern void qml_register_types_QuietDial_Settings();

namespace {

// What the first page is made of.
constexpr std::array kFirst{"Main",  "TableView", "TableCell", "HeaderFooter",
                            "Label", "ImageView", "PlainView"};

}  // namespace

QmlRuntime::QmlRuntime() {
  // The linker takes from a library only what something names.
  [[maybe_unused]] const volatile auto registration = &qml_register_types_QuietDial_Settings;
  for (const char* type : kFirst) {
    components_.push_back(std::make_unique<QQmlComponent>(
        &engine_, source(QString::fromLatin1(type)), QQmlComponent::Asynchronous));
  }
}

QUrl QmlRuntime::source(const QString& type) {
  return {QStringLiteral("qrc:/QuietDial/Settings/%1.qml").arg(type)};
}
