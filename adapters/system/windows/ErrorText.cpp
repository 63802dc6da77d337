#include "adapters/system/ErrorText.h"

#include <windows.h>

#include <array>

#include "platform/text/FilePath.h"

namespace koru {

// The standard library's own sentence is in the code page of the machine.
std::string ErrorText(const std::error_code& error) {
  if (error.category() != std::system_category()) return error.message();
  std::array<wchar_t, 512> text{};
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                static_cast<DWORD>(error.value()), 0, text.data(),
                                static_cast<DWORD>(text.size()), nullptr);
  while (length > 0 && text[length - 1] <= L' ') --length;
  if (length == 0) return "error " + std::to_string(error.value());
  return TextOf(std::wstring(text.data(), length));
}

}  // namespace koru
