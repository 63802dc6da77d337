#include "host/ProgramConnector.h"

#include "adapters/log/LoggedConnector.h"
#include "adapters/provider/ConnectorByProvider.h"
#include "host/Environment.h"

namespace koru {

std::unique_ptr<DatabaseConnector> ProgramConnector() {
  return std::make_unique<LoggedConnector>(std::make_unique<ConnectorByProvider>(),
                                           LogSettingsOfEnvironment());
}

}  // namespace koru
