#include "adapters/odbc/OdbcConnector.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>

#include "adapters/odbc/OdbcConnectError.h"
#include "tests/support/TestFile.h"

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

/// A port of this machine on which nobody listens, and nobody else can.
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
  EXPECT_NE(failure.ServerText().find("SQLite3"), std::string::npos);
  EXPECT_EQ(failure.ServerText().find("topsecret"), std::string::npos);
}

TEST(OdbcConnector, A_library_that_is_not_there_is_a_matter_of_the_driver) {
  EXPECT_EQ(Failure("Provider=SQLOLEDB.1;Driver=/no/such/lib.so;Data Source=h;User ID=u;Password=x").Where(),
            Step::Driver);
}

TEST(OdbcConnector, A_closed_port_is_told_with_the_servers_name_and_no_password) {
  const ClosedPort port;
  const OdbcConnectError failure = Failure("Provider=SQLOLEDB.1;Driver=FreeTDS;Data Source=127.0.0.1," +
                                           port.Number() + ";Initial Catalog=d;User ID=u;Password=topsecret");
  EXPECT_EQ(failure.Where(), Step::Server);
  EXPECT_NE(failure.ServerText().find("به سرور «127.0.0.1," + port.Number() + "» وصل نشد"), std::string::npos)
      << failure.ServerText();
  EXPECT_EQ(failure.ServerText().find("topsecret"), std::string::npos);
}

TEST(OdbcConnector, A_file_that_is_not_there_is_not_made) {
  const test::TemporaryFolder folder;
  const std::string file = folder.File("none.koru");
  const OdbcConnectError failure =
      Failure("Provider=ODBC;Dialect=SQLite;Driver=SQLite3;Database=\"" + file + "\"");
  EXPECT_EQ(failure.Where(), Step::Database);
  EXPECT_NE(failure.ServerText().find(file), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(OdbcConnector, Persian_letters_compare_as_the_embedded_adapter_compares_them) {
  test::TestFile file;
  file.Execute("insert into tblUser (ID, FullName) values (1, 'علي اكبري')");
  const auto database =
      OdbcConnector().Connect("Provider=ODBC;Dialect=SQLite;Driver=SQLite3;Database=\"" + file.File() + "\"");
  EXPECT_EQ(database->Open(SqlText("select ID from tblUser where FullName='علی اکبری'")).RecordCount(), 1U);
  EXPECT_EQ(database->Open(SqlText("select ID from tblUser where FullName like '%اکب%'")).RecordCount(), 1U);
  EXPECT_EQ(
      database->Open(SqlText("select ID from tblUser where LTrim(FullName)='علی اکبری  '")).RecordCount(),
      1U);
}

TEST(OdbcConnector, What_a_write_group_writes_reaches_the_file_together_also_after_a_failure) {
  test::TestFile file;
  const auto database = OdbcConnector().Connect(EmbeddedThroughOdbcText(file.File()));
  const auto count = [&] { return file.Scalar("select count(*) from tblUser"); };
  {
    const auto outer = database->BeginWriteBatch();
    database->Open(SqlText("insert into tblUser (ID, FullName) values (1, 'a')"));
    {
      const auto inner = database->BeginWriteBatch();
      database->Open(SqlText("insert into tblUser (ID, FullName) values (2, 'b')"));
      inner->Finish();
    }
    EXPECT_THROW(database->Open(SqlText("insert into tblUser (ID, FullName) values (1, 'again')")),
                 DatabaseError);
    EXPECT_EQ(count(), "0");
  }
  EXPECT_EQ(count(), "2");
  database->Open(SqlText("delete tblUser where ID=1"));
  EXPECT_EQ(count(), "1") << "each by itself again";
}

TEST(OdbcConnector, A_file_whose_path_is_Persian_is_opened) {
  const test::TestFile made;
  const std::string file = made.Folder().File("پایگاه داده.koru");
  std::filesystem::copy_file(made.File(), std::filesystem::path(std::u8string(file.begin(), file.end())));
  const auto database =
      OdbcConnector().Connect("Provider=ODBC;Dialect=SQLite;Driver=SQLite3;Database=" + file);
  EXPECT_EQ(database->Open(SqlText("select ID from tblUser")).RecordCount(), 0U);
}

}  // namespace
}  // namespace koru
