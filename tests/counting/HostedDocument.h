#pragma once

#include <string>
#include <vector>

#include "platform/ports/Components.h"

namespace koru::test {

/// Records what the counting form hands to its linked documents.
class HostedDocument : public DocumentComponent {
 public:
  explicit HostedDocument(std::vector<std::string>& calls) : calls_(calls) {}
  void SetConnectionString(const std::string& text) override { calls_.push_back("connection " + text); }
  void SetUserID(std::int32_t id) override { calls_.push_back("user " + std::to_string(id)); }
  void View(std::int32_t id) override { calls_.push_back("view " + std::to_string(id)); }

 private:
  std::vector<std::string>& calls_;
};

}  // namespace koru::test
