#include "benchmarks/SecureClient.h"

#include <stdexcept>
#include <utility>

namespace koru::bench {

SecureClient::SecureClient(std::uint16_t port, std::string code) : BlockingClient(port, std::move(code)) {
  gnutls_certificate_allocate_credentials(&credentials_);
  gnutls_init(&session_, GNUTLS_CLIENT);
  gnutls_set_default_priority(session_);
  gnutls_credentials_set(session_, GNUTLS_CRD_CERTIFICATE, credentials_);
  gnutls_transport_set_int(session_, Socket());
  int result = 0;
  do {
    result = gnutls_handshake(session_);
  } while (result < 0 && gnutls_error_is_fatal(result) == 0);
  if (result < 0) throw std::runtime_error(gnutls_strerror(result));
}

SecureClient::~SecureClient() {
  gnutls_deinit(session_);
  gnutls_certificate_free_credentials(credentials_);
}

std::ptrdiff_t SecureClient::Send(const char* data, std::size_t size) {
  return gnutls_record_send(session_, data, size);
}

std::ptrdiff_t SecureClient::Receive(char* data, std::size_t size) {
  std::ptrdiff_t read = 0;
  do {
    read = gnutls_record_recv(session_, data, size);
  } while (read < 0 && gnutls_error_is_fatal(static_cast<int>(read)) == 0);
  return read;
}

}  // namespace koru::bench
