#pragma once

#include <memory>
#include <string>
#include <string_view>

struct MHD_Response;

namespace koru {

/// An answer to a request of HTTP. Copies share the content, which can be sent to several devices.
class HttpAnswer {
 public:
  /// How long browsers may keep the content.
  enum class Keep {
    Never,   ///< no-store
    Day,     ///< so that the page opens in a cellar without a network; reading it anew asks the desk
    Forever  ///< the content of that address never changes
  };

  HttpAnswer(unsigned status, const char* type, std::string content, Keep keep = Keep::Never,
             bool isGzip = false);

  /// `{"error": sentence}`.
  [[nodiscard]] static HttpAnswer Refusal(unsigned status, std::string_view sentence);

  /// Adds a header field.
  HttpAnswer& With(const char* name, const char* value);

  [[nodiscard]] unsigned Status() const { return status_; }
  [[nodiscard]] MHD_Response* Response() const { return response_.get(); }

 private:
  unsigned status_;
  std::shared_ptr<MHD_Response> response_;
};

}  // namespace koru
