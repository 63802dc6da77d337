#include "desktop/toolkit/Display.h"

#include <QByteArray>
#include <QString>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "adapters/system/TemporaryFolder.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// The toolkit's own off-screen display is 800 x 800, too small for a counting.
constexpr const char* kScreens = R"({
  "synchronousWindowSystemEvents": false,
  "windowFrameMargins": true,
  "screens": [{"name": "memory", "x": 0, "y": 0, "width": 1600, "height": 1000,
               "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]
})";

/// The off-screen platform warns of everything that only a real screen supports.
void DropPlatformWarnings(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (text.startsWith(QLatin1String("This plugin does not support"))) return;
  std::cerr << text.toStdString() << std::endl;
  if (type == QtFatalMsg) std::abort();
}

}  // namespace

bool HasDisplay() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

OffscreenDisplay::OffscreenDisplay() : folder_(std::make_unique<TemporaryFolder>()) {
  const std::string file = (folder_->Path() / "screens.json").string();
  std::ofstream stream(file);
  stream << kScreens;
  stream.close();
  if (!stream) throw InputError("پروندة موقت نوشته نشد: " + LeftToRight(file));
  qInstallMessageHandler(DropPlatformWarnings);
  qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString("offscreen:configfile=" + file));
}

OffscreenDisplay::~OffscreenDisplay() = default;

}  // namespace koru
