#include "adapters/odbc/OdbcConnector.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "adapters/odbc/OdbcConnectError.h"

namespace koru {
namespace {

using Step = OdbcConnectError::Step;

OdbcConnectError Failure(const std::string& connectionText) {
  try {
    static_cast<void>(OdbcConnector().Connect(connectionText));
  } catch (const OdbcConnectError& failure) {
    return failure;
  }
  throw std::logic_error("connected: " + connectionText);
}

/// A port of this machine on which no program listens, or can.
class ClosedPort {
 public:
  ClosedPort() : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* any = reinterpret_cast<sockaddr*>(&address);
    if (bind(socket_, any, size) == 0 && getsockname(socket_, any, &size) == 0)
      number_ = ntohs(address.sin_port);
  }
  ClosedPort(const ClosedPort&) = delete;
  ClosedPort& operator=(const ClosedPort&) = delete;
  ~ClosedPort() { close(socket_); }
  [[nodiscard]] std::string Number() const { return std::to_string(number_); }

 private:
  int socket_;
  int number_ = 0;
};

TEST(OdbcConnector, A_driver_that_is_not_installed_is_named_with_those_that_are) {
  const OdbcConnectError failure =
      Failure("Provider=SQLOLEDB.1;Driver=No Such Driver;Data Source=h;User ID=u;Password=topsecret");
  EXPECT_EQ(failure.Where(), Step::Driver);
  EXPECT_NE(failure.ServerText().find("«No Such Driver»"), std::string::npos);
  EXPECT_NE(failure.ServerText().find("FreeTDS"), std::string::npos);
  EXPECT_EQ(failure.ServerText().find("topsecret"), std::string::npos);
}

TEST(OdbcConnector, A_library_that_is_not_there_is_a_matter_of_the_driver) {
  EXPECT_EQ(Failure("Provider=SQLOLEDB.1;Driver=/no/such/lib.so;Data Source=h;User ID=u;Password=x").Where(),
            Step::Driver);
}

TEST(OdbcConnector, A_closed_port_is_reported_with_the_servers_name_and_no_password) {
  const ClosedPort port;
  const OdbcConnectError failure = Failure("Provider=SQLOLEDB.1;Driver=FreeTDS;Data Source=127.0.0.1," +
                                           port.Number() + ";Initial Catalog=d;User ID=u;Password=topsecret");
  EXPECT_EQ(failure.Where(), Step::Server);
  EXPECT_NE(failure.ServerText().find("به سرور «127.0.0.1," + port.Number() + "» وصل نشد"), std::string::npos)
      << failure.ServerText();
  EXPECT_EQ(failure.ServerText().find("topsecret"), std::string::npos);
}

}  // namespace
}  // namespace koru
