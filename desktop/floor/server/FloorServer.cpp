#include "desktop/floor/server/FloorServer.h"

#include <utility>

namespace koru {

class FloorServer::Service {
 public:
  Service(FloorSession& session, FloorServerSettings settings)
      : session_(session), settings_(std::move(settings)) {}

  FloorSession& session_;
  FloorServerSettings settings_;
  bool isSecure_ = false;
};

FloorServer::FloorServer(FloorSession& session, FloorServerSettings settings)
    : service_(std::make_unique<Service>(session, std::move(settings))) {}

FloorServer::~FloorServer() = default;

void FloorServer::OpenSecure() { service_->isSecure_ = true; }
bool FloorServer::IsSecure() const { return service_->isSecure_; }
std::uint16_t FloorServer::Port() const { return service_->settings_.port; }
std::uint16_t FloorServer::SecurePort() const { return IsSecure() ? service_->settings_.securePort : 0; }
const std::vector<std::string>& FloorServer::Addresses() const { return service_->settings_.addresses; }

std::string FloorServer::Url(int count, const std::string& address, bool secure) const {
  return std::string(secure ? "https://" : "http://") + address + ":" +
         std::to_string(secure ? SecurePort() : Port()) + "/#" + service_->session_.Code(count);
}

}  // namespace koru
