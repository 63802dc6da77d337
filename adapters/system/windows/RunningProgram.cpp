#include "adapters/system/RunningProgram.h"

#include <windows.h>

#include <string>

namespace koru {

std::filesystem::path RunningProgram() {
  constexpr std::size_t kMaxPath = 32768;  // the longest that Windows has
  std::wstring path(kMaxPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

}  // namespace koru
