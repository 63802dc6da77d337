#include "host/Platform.h"

#include <QByteArray>
#include <QString>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// The toolkit's own screen in memory is 800 x 800, too small for a counting.
constexpr const char* kScreens = R"({
  "synchronousWindowSystemEvents": false,
  "windowFrameMargins": true,
  "screens": [{"name": "memory", "x": 0, "y": 0, "width": 1600, "height": 1000,
               "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]
})";

/// Half of what a real screen does makes the toolkit complain here.
void DropComplaintsOfThePlatform(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (text.startsWith(QLatin1String("This plugin does not support"))) return;
  std::cerr << text.toStdString() << std::endl;
  if (type == QtFatalMsg) std::abort();
}

}  // namespace

bool HasScreen() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

MemoryScreen::MemoryScreen() {
  const std::string file = (folder_.Path() / "screens.json").string();
  std::ofstream stream(file);
  stream << kScreens;
  stream.close();
  if (!stream) throw InputError("پروندة موقت نوشته نشد: " + LeftToRight(file));
  qInstallMessageHandler(DropComplaintsOfThePlatform);
  qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString("offscreen:configfile=" + file));
}

}  // namespace koru
