#include "host/Environment.h"

#include <QCoreApplication>
#include <string_view>

namespace koru {

LogSettings LogSettingsOfEnvironment() {
  return {qgetenv("KORU_LOG").toStdString(), qgetenv("KORU_LOG_TEXTS") == "1",
          std::to_string(QCoreApplication::applicationPid())};
}

}  // namespace koru
