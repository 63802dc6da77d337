#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "desktop/floor/server/HttpServer.h"

namespace koru {

/// The key and the certificate of a folder, `key.pem` and `certificate.pem`, readable by the user of the
/// machine alone. They are made anew when there are none that can be read, the names or addresses are others,
/// or less than 30 days of the certificate remain at `now`. It is signed by itself, on the curve P-256, for
/// servers alone, and for 825 days: telephones accept no longer time. Throws InputError when it cannot be
/// made or written.
[[nodiscard]] HttpIdentity FloorCertificate(const std::filesystem::path& folder,
                                            const std::vector<std::string>& addresses,
                                            std::chrono::sys_seconds now);

}  // namespace koru
