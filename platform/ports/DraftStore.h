#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/text/Date.h"

namespace koru {

/// Whose draft it is: a draft is found by the same user on the same database alone.
struct DraftOwner {
  std::string database;  ///< distinguishes databases; holds no password
  std::int32_t userID = 0;

  friend bool operator==(const DraftOwner&, const DraftOwner&) = default;
};

/// A text that is kept on the machine beyond the end of the program. While the object exists, no other
/// program and no other form finds the draft; its destruction leaves the text for them. Write may run in
/// another thread; nothing else of the draft is called meanwhile.
class Draft {
 public:
  /// Local time.
  struct Moment {
    Date date;
    int hour = 0;
    int minute = 0;
  };

  Draft() = default;
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  virtual ~Draft() = default;

  /// Replaces the text. It is on the disk afterwards; a power cut meanwhile leaves the old or the new one.
  /// Throws InputError, and the old one remains.
  virtual void Write(std::string_view text) = 0;
  /// Throws InputError when it cannot be read.
  [[nodiscard]] virtual std::string Read() const = 0;
  /// When the text was written.
  [[nodiscard]] virtual Moment Written() const = 0;
  /// Removes the text; the next Write makes it anew. Throws InputError.
  virtual void Remove() = 0;
  /// Keeps the text where it is not found as a draft any more, and returns its new name. Throws InputError.
  virtual std::string SetAside() = 0;
};

/// Keeps drafts on the machine.
class DraftStore {
 public:
  DraftStore() = default;
  DraftStore(const DraftStore&) = delete;
  DraftStore& operator=(const DraftStore&) = delete;
  virtual ~DraftStore() = default;

  /// A new draft without a text, which nothing is written for before the first Write.
  [[nodiscard]] virtual std::unique_ptr<Draft> Begin(const DraftOwner& owner) = 0;
  /// The latest draft that a program has left; nullptr when there is none.
  [[nodiscard]] virtual std::unique_ptr<Draft> FindLeft(const DraftOwner& owner) = 0;
};

}  // namespace koru
