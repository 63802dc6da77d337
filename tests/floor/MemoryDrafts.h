#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ports/DraftStore.h"

namespace koru::test {

/// The one draft of a desk, in memory.
class MemoryDrafts : public DraftStore {
 public:
  [[nodiscard]] std::unique_ptr<Draft> Begin(const DraftOwner& /*owner*/) override {
    return std::make_unique<Kept>(*this);
  }
  [[nodiscard]] std::unique_ptr<Draft> FindLeft(const DraftOwner& /*owner*/) override {
    return text.empty() ? nullptr : std::make_unique<Kept>(*this);
  }

  std::string text;  ///< empty while there is no draft
  std::function<void()> onWrite;

 private:
  class Kept : public Draft {
   public:
    explicit Kept(MemoryDrafts& drafts) : drafts_(drafts) {}
    void Write(std::string_view text) override {
      drafts_.text = text;
      drafts_.onWrite();
    }
    [[nodiscard]] std::string Read() const override { return drafts_.text; }
    [[nodiscard]] Moment Written() const override { return {std::chrono::year{2026} / 2 / 1, 10, 7}; }
    void Remove() override { drafts_.text.clear(); }
    std::string SetAside() override { return {}; }

   private:
    MemoryDrafts& drafts_;
  };
};

}  // namespace koru::test
