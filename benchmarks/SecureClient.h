#pragma once

#include <gnutls/gnutls.h>

#include "tests/desktop/floor/server/BlockingClient.h"

namespace koru::bench {

/// A device's connection by https. It accepts the desk's own certificate without a look, as a counter does
/// after the browser's warning.
class SecureClient : public test::BlockingClient {
 public:
  SecureClient(std::uint16_t port, std::string code);
  SecureClient(const SecureClient&) = delete;
  SecureClient& operator=(const SecureClient&) = delete;
  ~SecureClient() override;

 private:
  std::ptrdiff_t Send(const char* data, std::size_t size) override;
  std::ptrdiff_t Receive(char* data, std::size_t size) override;

  gnutls_certificate_credentials_t credentials_ = nullptr;
  gnutls_session_t session_ = nullptr;
};

}  // namespace koru::bench
