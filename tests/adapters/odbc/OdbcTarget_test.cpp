#include "adapters/odbc/OdbcTarget.h"

#include <gtest/gtest.h>

#include "adapters/odbc/OdbcConnectError.h"

namespace koru {
namespace {

const std::vector<std::string> kDrivers{"PostgreSQL", "FreeTDS", "ODBC Driver 18 for SQL Server"};
const std::vector<std::string> kVendorAlone{"PostgreSQL", "ODBC Driver 18 for SQL Server"};

std::string Text(const std::string& connectionText, const std::vector<std::string>& drivers = kDrivers) {
  return ReadTarget(connectionText, drivers).odbcText;
}

TEST(OdbcTarget, FreeTDS_wants_server_and_port_apart_and_UTF8) {
  EXPECT_EQ(
      Text("Provider=SQLOLEDB.1;Data Source=db1,1500;Initial Catalog=suite;User ID=u;Password=p"),
      "Driver=FreeTDS;Server=db1;Port=1500;ClientCharset=UTF-8;TDS_Version=7.4;Database=suite;UID=u;PWD=p;");
  EXPECT_EQ(Text("Provider=SQLOLEDB.1;Data Source=db1;User ID=u;Password=p"),
            "Driver=FreeTDS;Server=db1;Port=1433;ClientCharset=UTF-8;TDS_Version=7.4;UID=u;PWD=p;");
  EXPECT_EQ(Text("Provider=SQLOLEDB.1;Data Source=db1\\books;User ID=u;Password=p"),
            "Driver=FreeTDS;Server=db1\\books;ClientCharset=UTF-8;TDS_Version=7.4;UID=u;PWD=p;");
}

TEST(OdbcTarget, Other_drivers_take_server_and_port_together) {
  EXPECT_EQ(Text("Provider=SQLOLEDB.1;Data Source=db1,1500;Initial Catalog=suite;User ID=u;Password=p",
                 kVendorAlone),
            "Driver=ODBC Driver 18 for SQL Server;Server=db1,1500;Database=suite;UID=u;PWD=p;");
}

TEST(OdbcTarget, The_driver_may_be_named) {
  const OdbcTarget target = ReadTarget(
      "Provider=sqloledb.1;Driver=odbc driver 18 for sql server;Server=.;Trusted_Connection=Yes", kDrivers);
  EXPECT_EQ(target.driver, "ODBC Driver 18 for SQL Server");
  EXPECT_EQ(target.odbcText, "Driver=ODBC Driver 18 for SQL Server;Server=localhost;Trusted_Connection=Yes;");
}

TEST(OdbcTarget, Integrated_security_sends_no_user) {
  const OdbcTarget target = ReadTarget(
      "Provider=SQLOLEDB.1;Data Source=(local);Integrated Security=SSPI;User ID=u;Password=p", kVendorAlone);
  EXPECT_EQ(target.odbcText, "Driver=ODBC Driver 18 for SQL Server;Server=localhost;Trusted_Connection=Yes;");
}

TEST(OdbcTarget, Encryption_is_passed_on_in_the_drivers_words) {
  const std::string text =
      "Provider=SQLOLEDB.1;Data Source=h;User ID=u;Password=p;Encrypt=yes;TrustServerCertificate=true";
  EXPECT_TRUE(Text(text, kVendorAlone).ends_with("PWD=p;Encrypt=yes;TrustServerCertificate=yes;"));
  EXPECT_TRUE(Text(text).ends_with("PWD=p;Encryption=require;"));
  EXPECT_TRUE(Text("Provider=SQLOLEDB.1;Data Source=h;User ID=u;Password=p;Encrypt=no")
                  .ends_with("Encryption=request;"));
}

TEST(OdbcTarget, Values_cannot_become_keywords) {
  EXPECT_EQ(
      Text("Provider=SQLOLEDB.1;Data Source=h;Initial Catalog=\"d;UID=sa\";User ID=u;Password=\"a}b;c{d=\"",
           kVendorAlone),
      "Driver=ODBC Driver 18 for SQL Server;Server=h;Database={d;UID=sa};UID=u;PWD={a}}b;c{d=};");
  EXPECT_TRUE(
      Text("Provider=SQLOLEDB.1;Data Source=h;User ID=u;Password=\"a}b;c\"").ends_with("PWD={a}b;c};"));
  EXPECT_TRUE(Text("Provider=SQLOLEDB.1;Data Source=h;User ID=u;Password=\" p \"").ends_with("PWD={ p };"));
}

TEST(OdbcTarget, A_value_that_the_driver_cannot_read_is_refused_and_not_repeated) {
  try {
    Text("Provider=SQLOLEDB.1;Data Source=h;User ID=u;Password=\"top};secret\"");
    FAIL();
  } catch (const OdbcConnectError& failure) {
    EXPECT_EQ(failure.Where(), OdbcConnectError::Step::Text);
    EXPECT_NE(failure.ServerText().find("PWD"), std::string::npos);
    EXPECT_EQ(failure.ServerText().find("secret"), std::string::npos);
  }
}

TEST(OdbcTarget, What_names_nothing_usable_is_refused) {
  for (const char* text : {"Provider=SQLOLEDB.1;User ID=u", "Provider=SQLOLEDB.1;Data Source=h,abc",
                           "Provider=SQLOLEDB.1;Data Source=h,", "Provider=SQLOLEDB.1;Data Source=h,14333333",
                           "Provider=ODBC;Driver=FreeTDS;Database=/x", "Provider=Other;Password=topsecret"}) {
    try {
      Text(text);
      ADD_FAILURE() << text;
    } catch (const OdbcConnectError& failure) {
      EXPECT_EQ(failure.Where(), OdbcConnectError::Step::Text) << text;
      EXPECT_EQ(failure.ServerText().find("topsecret"), std::string::npos);
    }
  }
}

TEST(OdbcTarget, Without_any_driver_for_the_server_it_says_so) {
  try {
    Text("Provider=SQLOLEDB.1;Data Source=h;User ID=u;Password=p", {"PostgreSQL"});
    FAIL();
  } catch (const OdbcConnectError& failure) {
    EXPECT_EQ(failure.Where(), OdbcConnectError::Step::Driver);
  }
}

}  // namespace
}  // namespace koru
