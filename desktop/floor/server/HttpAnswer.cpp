#include "desktop/floor/server/HttpAnswer.h"

#include <microhttpd.h>

#include <new>
#include <utility>

#include "desktop/floor/server/JsonText.h"

namespace koru {
namespace {

/// Only what this server sends is shown and run, and no other page shows it in a frame. The decoder of
/// barcodes is WebAssembly.
constexpr const char* kContentSecurityPolicy =
    "default-src 'none'; script-src 'self' 'wasm-unsafe-eval'; style-src 'self'; img-src 'self' data: blob:; "
    "media-src 'self' blob:; connect-src 'self'; frame-ancestors 'none'; base-uri 'none'; form-action "
    "'none'";

const char* CacheControl(HttpAnswer::Keep keep) {
  switch (keep) {
    case HttpAnswer::Keep::Never:
      return "no-store";
    case HttpAnswer::Keep::Day:
      return "max-age=86400";
    case HttpAnswer::Keep::Forever:
      return "max-age=31536000, immutable";
  }
  return "no-store";
}

void FreeContent(void* content) { std::unique_ptr<std::string>(static_cast<std::string*>(content)).reset(); }

/// A response that owns its content.
MHD_Response* ResponseOf(std::string content) {
  auto owned = std::make_unique<std::string>(std::move(content));
  MHD_Response* const response = MHD_create_response_from_buffer_with_free_callback_cls(
      owned->size(), owned->data(), &FreeContent, owned.get());
  if (response == nullptr) throw std::bad_alloc();
  static_cast<void>(owned.release());  // FreeContent has it
  return response;
}

}  // namespace

HttpAnswer::HttpAnswer(unsigned status, const char* type, std::string content, Keep keep, bool isGzip)
    : status_(status), response_(ResponseOf(std::move(content)), &MHD_destroy_response) {
  With("Content-Type", type);
  With("Content-Security-Policy", kContentSecurityPolicy);
  With("X-Content-Type-Options", "nosniff");
  With("Referrer-Policy", "no-referrer");
  With("Cache-Control", CacheControl(keep));
  if (isGzip) With("Content-Encoding", "gzip");
  if (keep != Keep::Never) With("Vary", "Accept-Encoding");
}

HttpAnswer HttpAnswer::Refusal(unsigned status, std::string_view sentence) {
  std::string json = R"({"error":)";
  AppendJson(json, sentence);
  json += '}';
  return {status, "application/json", std::move(json)};
}

HttpAnswer& HttpAnswer::With(const char* name, const char* value) {
  if (MHD_add_response_header(response_.get(), name, value) != MHD_YES) throw std::bad_alloc();
  return *this;
}

}  // namespace koru
