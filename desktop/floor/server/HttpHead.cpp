#include "desktop/floor/server/HttpHead.h"

#include <microhttpd.h>
#include <netinet/in.h>
#include <strings.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace koru {
namespace {

std::string Field(MHD_Connection* connection, const char* name) {
  const char* value = nullptr;
  std::size_t size = 0;
  const auto found = MHD_lookup_connection_value_n(connection, MHD_HEADER_KIND, name,
                                                   std::char_traits<char>::length(name), &value, &size);
  return found == MHD_YES && value != nullptr ? std::string(value, size) : std::string();
}

MHD_Result KeepQuery(void* query, MHD_ValueKind /*kind*/, const char* key, std::size_t keySize,
                     const char* value, std::size_t valueSize) {
  try {
    auto& fields = *static_cast<std::vector<std::pair<std::string, std::string>>*>(query);
    fields.emplace_back(std::string(key, keySize),
                        value == nullptr ? std::string() : std::string(value, valueSize));
    return MHD_YES;
  } catch (...) {
    return MHD_NO;
  }
}

std::uint32_t AddressOf(MHD_Connection* connection) {
  const auto* const info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS);
  if (info == nullptr || info->client_addr == nullptr || info->client_addr->sa_family != AF_INET) return 0;
  return ntohl(reinterpret_cast<const sockaddr_in*>(info->client_addr)->sin_addr.s_addr);
}

/// Header fields that say where a request ends and what it is for.
struct FramingFields {
  int lengths = 0;
  int encodings = 0;
  int hosts = 0;
  std::string length;
};

MHD_Result CountField(void* fields, MHD_ValueKind /*kind*/, const char* key, const char* value) {
  try {
    auto& counted = *static_cast<FramingFields*>(fields);
    if (strcasecmp(key, MHD_HTTP_HEADER_CONTENT_LENGTH) == 0) {
      ++counted.lengths;
      counted.length = value == nullptr ? "" : value;
    }
    if (strcasecmp(key, MHD_HTTP_HEADER_TRANSFER_ENCODING) == 0) ++counted.encodings;
    if (strcasecmp(key, MHD_HTTP_HEADER_HOST) == 0) ++counted.hosts;
    return MHD_YES;
  } catch (...) {
    return MHD_NO;
  }
}

bool IsDigits(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Whether the number of digits alone is more than the limit; leading zeros do not count.
bool IsMoreThan(const std::string& digits, std::size_t limit) {
  const std::size_t first = std::min(digits.find_first_not_of('0'), digits.size() - 1);
  return digits.size() - first > 9 || std::stoul(digits.substr(first)) > limit;
}

/// The connection is closed after it: where the next request begins is not known.
HttpAnswer Refusal(unsigned status, std::string_view sentence) {
  return HttpAnswer::Refusal(status, sentence).With(MHD_HTTP_HEADER_CONNECTION, "close");
}

}  // namespace

HttpRequest ReadHead(MHD_Connection* connection, const char* url, const char* method) {
  HttpRequest request;
  request.method = method;
  request.path = url;
  request.host = Field(connection, MHD_HTTP_HEADER_HOST);
  request.authorization = Field(connection, MHD_HTTP_HEADER_AUTHORIZATION);
  request.acceptsGzip = Field(connection, MHD_HTTP_HEADER_ACCEPT_ENCODING).find("gzip") != std::string::npos;
  request.address = AddressOf(connection);
  MHD_get_connection_values_n(connection, MHD_GET_ARGUMENT_KIND, &KeepQuery, &request.query);
  return request;
}

std::optional<HttpAnswer> RefusalOfHead(MHD_Connection* connection, const HttpRequest& request) {
  const auto* const info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_REQUEST_HEADER_SIZE);
  if (info != nullptr && info->header_size > kMaxHttpHead) {
    return Refusal(MHD_HTTP_REQUEST_HEADER_FIELDS_TOO_LARGE, "درخواست بيش از اندازه بلند است.");
  }
  FramingFields fields;
  MHD_get_connection_values(connection, MHD_HEADER_KIND, &CountField, &fields);
  if (fields.lengths > 1 || fields.hosts > 1 || (fields.lengths == 1 && !IsDigits(fields.length))) {
    return Refusal(MHD_HTTP_BAD_REQUEST, "درخواست خوانده نشد.");
  }
  const bool hasBody = request.method == MHD_HTTP_METHOD_POST;
  if (fields.encodings > 0 || (hasBody && fields.lengths == 0)) {
    return Refusal(MHD_HTTP_LENGTH_REQUIRED, "درخواست خوانده نشد.");
  }
  if (fields.lengths == 1 && IsMoreThan(fields.length, hasBody ? kMaxHttpBody : 0)) {
    return Refusal(MHD_HTTP_CONTENT_TOO_LARGE, "درخواست بيش از اندازه بلند است.");
  }
  return std::nullopt;
}

}  // namespace koru
