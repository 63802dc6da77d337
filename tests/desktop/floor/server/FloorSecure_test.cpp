// The page by https, for cameras, with a certificate that the desk signs itself.

#include <sys/stat.h>

#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <fstream>

#include "desktop/floor/server/FloorCertificate.h"
#include "tests/desktop/floor/server/ServerWorld.h"

namespace koru::test {
namespace {

constexpr std::chrono::sys_seconds kNow{std::chrono::seconds(1'770'000'000)};
using Addresses = std::vector<std::string>;

class FloorSecure : public ServerWorld {
 protected:
  static std::unique_ptr<QSslSocket> Socket() {
    auto socket = std::make_unique<QSslSocket>();
    socket->setPeerVerifyMode(QSslSocket::VerifyNone);
    return socket;
  }
  [[nodiscard]] std::string File(const char* name) const {
    std::ifstream file(folder_.Path() / name);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  [[nodiscard]] unsigned Mode(const std::string& name) const {
    struct stat found {};
    EXPECT_EQ(stat((folder_.Path() / name).c_str(), &found), 0) << name;
    return found.st_mode & 0777U;
  }
  [[nodiscard]] HttpIdentity Made(std::chrono::sys_seconds now,
                                  const Addresses& addresses = {"192.0.2.7", "desk"}) {
    return FloorCertificate(folder_.Path(), addresses, now);
  }
  static QSslCertificate Read(const std::string& pem) {
    return QSslCertificate(QByteArray::fromStdString(pem));
  }
};

TEST_F(FloorSecure, The_page_and_figures_are_served_by_https_besides_http) {
  EXPECT_FALSE(server_->IsSecure());
  server_->OpenSecure();
  EXPECT_TRUE(server_->IsSecure());
  auto socket = Socket();
  QSslSocket& connection = *socket;
  connection.connectToHostEncrypted("127.0.0.1", server_->SecurePort());
  RunUntil(
      [&] { return connection.isEncrypted() || connection.state() == QAbstractSocket::UnconnectedState; });
  ASSERT_TRUE(connection.isEncrypted()) << connection.errorString().toStdString();
  EXPECT_EQ(connection.sessionProtocol(), QSsl::TlsV1_3);
  EXPECT_EQ(connection.peerCertificate(), Read(File("certificate.pem")));
  HttpClient client(std::move(socket));
  client.Send(RequestText("POST", "/a/figures", Authorized(1), Figure(1, "G2", "5")));
  EXPECT_EQ(StateOf(client.Receive()), "stored");
  EXPECT_EQ(Ask(RequestText("GET", "/", "")).status, 200);
  EXPECT_EQ(server_->Url(1, "192.0.2.7", true),
            "https://192.0.2.7:" + std::to_string(server_->SecurePort()) + "/#" + session_->Code(1));
}

TEST_F(FloorSecure, A_lost_connection_of_https_harms_nothing) {
  server_->OpenSecure();
  for (int i = 0; i < 5; ++i) {
    auto socket = Socket();
    socket->connectToHostEncrypted("127.0.0.1", server_->SecurePort());
    RunUntil([&] { return socket->isEncrypted() || i % 2 == 0; });
    socket->abort();
  }
  HttpClient plain(server_->SecurePort());
  plain.Send(RequestText("GET", "/", ""));
  EXPECT_EQ(plain.Receive().status, 0) << "no clear text on the port of https";
  EXPECT_EQ(Get("/a/lines").status, 200);
}

TEST_F(FloorSecure, Old_versions_of_TLS_are_refused) {
  server_->OpenSecure();
  // A handshake of two ciphers for ECDSA, the curve P-256 and SHA-256, and the letters 1 or 3 as its version.
  const auto isGreeted = [this](char version) {
    const std::string hello =
        std::string("\x03") + version + std::string(32, 'r') +
        std::string("\0\0\4\xC0\x2B\xC0\x09\1\0\0\x10\0\x0A\0\4\0\2\0\x17\0\x0D\0\4\0\2\4\3", 27);
    const std::string handshake = std::string("\1\0\0", 3) + static_cast<char>(hello.size()) + hello;
    HttpClient client(server_->SecurePort());
    client.Send(std::string("\x16\x03\1\0", 4) + static_cast<char>(handshake.size()) + handshake);
    RunUntil([&] { return client.HasAnswer() || !client.IsOpen(); });
    return client.Rest().starts_with('\x16');
  };
  EXPECT_TRUE(isGreeted('\3')) << "TLS 1.2";
  EXPECT_FALSE(isGreeted('\2')) << "TLS 1.1";
}

TEST_F(FloorSecure, The_certificate_is_for_the_machine_for_servers_and_for_825_days) {
  const HttpIdentity identity = Made(kNow);
  const QSslCertificate certificate = Read(identity.certificate);
  const auto names = certificate.subjectAlternativeNames();
  EXPECT_EQ(names.values(QSsl::DnsEntry), QStringList{"desk"});
  EXPECT_EQ(names.values(QSsl::IpAddressEntry), QStringList{"192.0.2.7"});
  EXPECT_EQ(certificate.effectiveDate().daysTo(certificate.expiryDate()), 825);
  EXPECT_LE(certificate.effectiveDate().toSecsSinceEpoch(), kNow.time_since_epoch().count());
  EXPECT_EQ(certificate.issuerDisplayName(), certificate.subjectDisplayName());
  EXPECT_EQ(certificate.publicKey().algorithm(), QSsl::Ec);
  EXPECT_EQ(certificate.publicKey().length(), 256);
  const QString text = certificate.toText();
  EXPECT_TRUE(text.contains("TLS Web Server Authentication")) << text.toStdString();
  EXPECT_TRUE(text.contains("CA:FALSE"));
  EXPECT_FALSE(QSslKey(QByteArray::fromStdString(identity.key), QSsl::Ec).isNull());
}

TEST_F(FloorSecure, Key_and_certificate_are_the_users_alone) {
  const std::filesystem::path folder = folder_.Path() / "new" / "folder";
  static_cast<void>(FloorCertificate(folder, {"desk"}, kNow));
  EXPECT_EQ(Mode("new/folder/key.pem"), 0600U);
  EXPECT_EQ(Mode("new/folder/certificate.pem"), 0600U);
  EXPECT_EQ(Mode("new/folder"), 0700U);
}

TEST_F(FloorSecure, The_certificate_is_kept_until_30_days_of_it_remain_or_the_addresses_are_others) {
  const HttpIdentity first = Made(kNow);
  EXPECT_EQ(Made(kNow + std::chrono::days(794)).certificate, first.certificate);
  EXPECT_EQ(Made(kNow, {"desk", "192.0.2.7"}).certificate, first.certificate) << "in another order";
  const HttpIdentity later = Made(kNow + std::chrono::days(795));
  EXPECT_NE(later.certificate, first.certificate);
  EXPECT_NE(Made(kNow + std::chrono::days(795), {"192.0.2.8", "desk"}).certificate, later.certificate);
}

TEST_F(FloorSecure, The_certificate_is_for_the_addresses_that_the_machine_has_when_https_is_opened) {
  server_->SetAddresses({"192.0.2.8"});
  EXPECT_EQ(server_->Addresses(), Addresses{"192.0.2.8"});
  server_->OpenSecure();
  const auto names = Read(File("certificate.pem")).subjectAlternativeNames();
  EXPECT_EQ(names.values(QSsl::IpAddressEntry), QStringList{"192.0.2.8"});
  EXPECT_EQ(names.values(QSsl::DnsEntry), QStringList());
}

TEST_F(FloorSecure, A_damaged_or_foreign_key_is_made_anew) {
  const HttpIdentity first = Made(kNow);
  std::ofstream(folder_.Path() / "key.pem") << "nothing";
  const HttpIdentity second = Made(kNow);
  EXPECT_NE(second.key, first.key);
  std::ofstream(folder_.Path() / "key.pem") << first.key;
  EXPECT_NE(Made(kNow).certificate, second.certificate) << "the key of another certificate";
}

TEST_F(FloorSecure, A_folder_that_cannot_be_written_is_reported) {
  settings_.folder = "/proc/none";
  Serve();
  EXPECT_THROW(server_->OpenSecure(), InputError);
  EXPECT_FALSE(server_->IsSecure());
  EXPECT_EQ(Get("/a/lines").status, 200);
}

}  // namespace
}  // namespace koru::test
