#include <QGenericPlugin>

#include "tests/window/touchscreen/TouchScreen.h"

/// Gives a program of the toolkit a TouchScreen: QT_QPA_GENERIC_PLUGINS=touchscreen:PIPE.
class TouchScreenPlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "touchscreen.json")

 public:
  QObject* create(const QString& /*name*/, const QString& pipe) override {
    return new TouchScreen(pipe);  // the caller keeps it
  }
};

#include "TouchScreenPlugin.moc"
