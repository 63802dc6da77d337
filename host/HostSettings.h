#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/IniFile.h"
#include "host/IniPropertyBag.h"
#include "host/Preferences.h"

namespace koru {

/// The size of a window, in pixels of the toolkit.
struct WindowSize {
  int width = 0;
  int height = 0;
  bool maximized = false;

  friend bool operator==(const WindowSize&, const WindowSize&) = default;
};

/// What the program keeps between two starts: the control's properties (user and database), the databases
/// that were used, the sizes of windows, and whether a backup precedes a registration. Passwords are never
/// kept: they are left out of what is written, and out of a file that an earlier version wrote.
class HostSettings {
 public:
  static constexpr std::size_t kMaxRecent = 8;

  /// A missing file gives defaults. Throws InputError naming what cannot be read; the file then stays as it
  /// is (IniFile::SetAside renames it).
  explicit HostSettings(const std::filesystem::path& file);

  [[nodiscard]] PropertyBag& Properties() { return properties_; }
  /// The user's settings of the forms; each Write is kept at once.
  [[nodiscard]] PropertyBag& FormPreferences() { return preferences_; }

  /// The connection texts of the databases used, without passwords, the newest first.
  [[nodiscard]] std::vector<std::string> RecentDatabases() const;
  /// Makes a database the newest one. The same database with another password is the same.
  void RememberDatabase(const std::string& connection);

  /// Nothing when the window has no kept size, or one that cannot be read.
  [[nodiscard]] std::optional<WindowSize> SizeOf(std::string_view window) const;
  void KeepSize(std::string_view window, const WindowSize& size);

  [[nodiscard]] bool BacksUpBeforeRegistration() const;
  void SetBacksUpBeforeRegistration(bool does);

  /// Throws InputError.
  void Write() const { file_.Write(); }

 private:
  /// The control's properties; the connection text is written without its passwords.
  class Bag : public IniPropertyBag {
   public:
    using IniPropertyBag::IniPropertyBag;
    void Write(std::string_view key, const PropertyValue& value, const PropertyValue& defaultValue) override;
  };
  void SetRecent(const std::vector<std::string>& databases);

  IniFile file_;
  Bag properties_{file_, "comInvCounting"};
  Preferences preferences_{file_};
};

}  // namespace koru
