#include "adapters/system/TemporaryFolder.h"

#include <random>
#include <string>
#include <system_error>

#include "platform/text/Errors.h"
#include "platform/text/FilePath.h"
#include "platform/text/Text.h"

namespace koru {

TemporaryFolder::TemporaryFolder() {
  constexpr int kTries = 16;
  std::random_device random;
  std::error_code error;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  for (int i = 0; i < kTries && !error; ++i) {
    path_ = parent / ("koru-counting-" + std::to_string(random()));
    if (!std::filesystem::create_directory(path_, error)) continue;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, error);
    return;
  }
  throw InputError("پوشه موقت در " + LeftToRight(TextOf(parent)) + " ساخته نشد.");
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;  // the system clears what is left
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace koru
