#include "settings/qml/QmlRuntime.h"

#include <array>

// Written by the toolkit's build for the module's types.
extern void qml_register_types_QuietDial_Settings();

namespace {

// What the first page is made of.
constexpr std::array kFirst{"Main",  "TableView", "TableCell", "HeaderFooter",
                            "Label", "ImageView", "PlainView"};

}  // namespace

QmlRuntime::QmlRuntime(const QList<QUrl>& first) {
  // The linker takes from a library only what something names.
  [[maybe_unused]] const volatile auto registration = &qml_register_types_QuietDial_Settings;
  // Where one module finds another.
  engine_.addImportPath(QStringLiteral("qrc:/"));
  for (const auto& source : first) {
    components_.push_back(
        std::make_unique<QQmlComponent>(&engine_, source, QQmlComponent::Asynchronous));
  }
}

QList<QUrl> QmlRuntime::firstPage() {
  QList<QUrl> sources;
  for (const char* type : kFirst) {
    sources.append(source(QString::fromLatin1(type)));
  }
  return sources;
}

QUrl QmlRuntime::source(const QString& type) {
  return {QStringLiteral("qrc:/QuietDial/Settings/%1.qml").arg(type)};
}
