#include "desktop/floor/server/FloorCertificate.h"

#include <arpa/inet.h>
#include <gnutls/crypto.h>
#include <gnutls/gnutls.h>
#include <gnutls/x509.h>

#include <array>
#include <cstddef>
#include <ctime>
#include <memory>
#include <optional>
#include <set>
#include <system_error>

#include "adapters/system/ReadWhole.h"
#include "adapters/system/WriteWhole.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

using Certificate =
    std::unique_ptr<std::remove_pointer_t<gnutls_x509_crt_t>, decltype(&gnutls_x509_crt_deinit)>;
using Key =
    std::unique_ptr<std::remove_pointer_t<gnutls_x509_privkey_t>, decltype(&gnutls_x509_privkey_deinit)>;

constexpr std::chrono::days kValidity{825};
constexpr std::chrono::days kLeast{30};
constexpr std::chrono::days kBefore{1};  ///< for telephones whose clock is slow
constexpr unsigned kOnce = 0;            ///< not critical, or no flags

void Require(int code) {
  if (code < 0) {
    throw InputError(std::string("گواهي ارتباط امن ساخته نشد: ") + gnutls_strerror(code));
  }
}

Certificate NewCertificate() {
  gnutls_x509_crt_t made = nullptr;
  Require(gnutls_x509_crt_init(&made));
  return {made, &gnutls_x509_crt_deinit};
}

Key NewKey() {
  gnutls_x509_privkey_t made = nullptr;
  Require(gnutls_x509_privkey_init(&made));
  return {made, &gnutls_x509_privkey_deinit};
}

gnutls_datum_t DatumOf(const std::string& text) {
  return {reinterpret_cast<unsigned char*>(const_cast<char*>(text.data())),  // not changed by the library
          static_cast<unsigned>(text.size())};
}

/// What GnuTLS has allocated for a text of PEM.
std::string TextOf(int code, const gnutls_datum_t& made) {
  Require(code);
  std::string text(reinterpret_cast<const char*>(made.data), made.size);
  gnutls_free(made.data);
  return text;
}

/// An address of IPv4 in the form of certificates; nothing for a name.
std::optional<in_addr> AddressOf(const std::string& text) {
  in_addr address{};
  if (inet_pton(AF_INET, text.c_str(), &address) != 1) return std::nullopt;
  return address;
}

void AddName(gnutls_x509_crt_t certificate, const std::string& name) {
  if (const auto address = AddressOf(name)) {
    Require(gnutls_x509_crt_set_subject_alt_name(certificate, GNUTLS_SAN_IPADDRESS, &*address,
                                                 sizeof *address, GNUTLS_FSAN_APPEND));
  } else {
    Require(gnutls_x509_crt_set_subject_alt_name(certificate, GNUTLS_SAN_DNSNAME, name.data(),
                                                 static_cast<unsigned>(name.size()), GNUTLS_FSAN_APPEND));
  }
}

/// The names and addresses of a certificate, as texts.
std::set<std::string> NamesOf(gnutls_x509_crt_t certificate) {
  std::set<std::string> names;
  std::array<char, 256> name{};
  for (unsigned i = 0;; ++i) {
    std::size_t size = name.size();
    const int kind = gnutls_x509_crt_get_subject_alt_name(certificate, i, name.data(), &size, nullptr);
    if (kind < 0) return names;
    if (kind == GNUTLS_SAN_IPADDRESS && size == sizeof(in_addr)) {
      std::array<char, INET_ADDRSTRLEN> text{};
      inet_ntop(AF_INET, name.data(), text.data(), text.size());
      names.insert(text.data());
    } else {
      names.insert(std::string(name.data(), size));
    }
  }
}

/// Whether the certificate is for the names and addresses, belongs to the key and lasts long enough.
bool Serves(const HttpIdentity& identity, const std::vector<std::string>& addresses,
            std::chrono::sys_seconds now) {
  const Certificate certificate = NewCertificate();
  const Key key = NewKey();
  const gnutls_datum_t certificateText = DatumOf(identity.certificate);
  const gnutls_datum_t keyText = DatumOf(identity.key);
  if (gnutls_x509_crt_import(certificate.get(), &certificateText, GNUTLS_X509_FMT_PEM) < 0) return false;
  if (gnutls_x509_privkey_import(key.get(), &keyText, GNUTLS_X509_FMT_PEM) < 0) return false;
  std::array<unsigned char, 32> ofCertificate{};
  std::array<unsigned char, 32> ofKey{};
  std::size_t size = ofCertificate.size();
  if (gnutls_x509_crt_get_key_id(certificate.get(), GNUTLS_KEYID_USE_SHA256, ofCertificate.data(), &size) <
      0) {
    return false;
  }
  if (gnutls_x509_privkey_get_key_id(key.get(), GNUTLS_KEYID_USE_SHA256, ofKey.data(), &size) < 0)
    return false;
  const auto end =
      std::chrono::sys_seconds(std::chrono::seconds(gnutls_x509_crt_get_expiration_time(certificate.get())));
  return ofCertificate == ofKey && end - now >= kLeast &&
         NamesOf(certificate.get()) == std::set<std::string>(addresses.begin(), addresses.end());
}

HttpIdentity Make(const std::vector<std::string>& addresses, std::chrono::sys_seconds now) {
  constexpr std::size_t kSerial = 16;
  constexpr unsigned kThirdVersion = 3;
  const Key key = NewKey();
  Require(gnutls_x509_privkey_generate(key.get(), GNUTLS_PK_ECDSA,
                                       GNUTLS_CURVE_TO_BITS(GNUTLS_ECC_CURVE_SECP256R1), kOnce));
  const Certificate made = NewCertificate();
  gnutls_x509_crt_t certificate = made.get();
  std::array<unsigned char, kSerial> serial{};
  Require(gnutls_rnd(GNUTLS_RND_NONCE, serial.data(), serial.size()));
  serial[0] = static_cast<unsigned char>((serial[0] & 0x3FU) | 0x40U);  // positive, of the whole length
  const std::time_t begin = std::chrono::system_clock::to_time_t(now - kBefore);
  const std::time_t end = std::chrono::system_clock::to_time_t(now - kBefore + kValidity);
  constexpr std::string_view kName = "Koru counting";
  Require(gnutls_x509_crt_set_version(certificate, kThirdVersion));
  Require(gnutls_x509_crt_set_serial(certificate, serial.data(), serial.size()));
  Require(gnutls_x509_crt_set_activation_time(certificate, begin));
  Require(gnutls_x509_crt_set_expiration_time(certificate, end));
  Require(gnutls_x509_crt_set_dn_by_oid(certificate, GNUTLS_OID_X520_COMMON_NAME, kOnce, kName.data(),
                                        static_cast<unsigned>(kName.size())));
  for (const std::string& address : addresses) AddName(certificate, address);
  Require(gnutls_x509_crt_set_key(certificate, key.get()));
  Require(gnutls_x509_crt_set_basic_constraints(certificate, 0, -1));
  Require(gnutls_x509_crt_set_key_usage(certificate, GNUTLS_KEY_DIGITAL_SIGNATURE));
  Require(gnutls_x509_crt_set_key_purpose_oid(certificate, GNUTLS_KP_TLS_WWW_SERVER, kOnce));
  Require(gnutls_x509_crt_sign2(certificate, certificate, key.get(), GNUTLS_DIG_SHA256, kOnce));
  HttpIdentity identity;
  gnutls_datum_t text{};
  const int ofKey =
      gnutls_x509_privkey_export2_pkcs8(key.get(), GNUTLS_X509_FMT_PEM, nullptr, GNUTLS_PKCS_PLAIN, &text);
  identity.key = TextOf(ofKey, text);
  const int ofCertificate = gnutls_x509_crt_export2(certificate, GNUTLS_X509_FMT_PEM, &text);
  identity.certificate = TextOf(ofCertificate, text);
  return identity;
}

void Write(const std::filesystem::path& file, const std::string& text) {
  std::filesystem::path written = file;
  written += ".new";
  if (const std::error_code error = WriteWhole(file, written, text)) {
    throw InputError("پروندهٔ " + file.string() + " نوشته نشد: " + error.message());
  }
}

std::string Read(const std::filesystem::path& file) {
  std::error_code error;
  std::string text = ReadWhole(file, error);
  return error ? std::string() : text;
}

}  // namespace

HttpIdentity FloorCertificate(const std::filesystem::path& folder, const std::vector<std::string>& addresses,
                              std::chrono::sys_seconds now) {
  const auto keyFile = folder / "key.pem";
  const auto certificateFile = folder / "certificate.pem";
  HttpIdentity identity{Read(keyFile), Read(certificateFile)};
  if (Serves(identity, addresses, now)) return identity;
  identity = Make(addresses, now);
  std::error_code error;
  if (std::filesystem::create_directories(folder, error)) {
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
  }
  Write(keyFile, identity.key);
  Write(certificateFile, identity.certificate);
  return identity;
}

}  // namespace koru
