#pragma once

#include <optional>

#include "desktop/floor/server/HttpServer.h"

struct MHD_Connection;

namespace koru {

/// Reads what the head of a request says.
[[nodiscard]] HttpRequest ReadHead(MHD_Connection* connection, const char* url, const char* method);

/// Refuses what libmicrohttpd accepts and this server does not: two readings of one request, and more than
/// the limits. Nothing when the head is in order.
[[nodiscard]] std::optional<HttpAnswer> RefusalOfHead(MHD_Connection* connection, const HttpRequest& request);

}  // namespace koru
