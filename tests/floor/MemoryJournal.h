#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ports/FloorJournal.h"
#include "platform/text/Errors.h"

namespace koru::test {

/// A journal on a disk in memory, which the machine can lose power over and which can be full.
class MemoryJournal : public FloorJournal {
 public:
  [[nodiscard]] std::string Read() const override { return synced + appended; }
  void Begin(std::string_view text) override {
    TryToWrite();
    synced = text;
    appended.clear();
    ++begun;
  }
  void Append(std::string_view lines) override {
    TryToWrite();
    if (Read().empty()) throw InputError("دفتري نيست.");
    appended += lines;
  }
  void Sync() override {
    Try();
    synced += appended;
    appended.clear();
    ++syncs;
  }
  std::string SetAside() override {
    Try();
    if (Read().empty()) return {};
    aside.insert(aside.begin(), Read());
    Clear();
    return "aside " + std::to_string(aside.size());
  }
  [[nodiscard]] std::vector<std::string> ReadSetAside() const override { return aside; }
  void Remove() override {
    Try();
    Clear();
  }

  /// What was not on the disk is lost.
  void LosePower() { appended.clear(); }

  std::string synced;
  std::string appended;
  std::vector<std::string> aside;  ///< the last one first
  int begun = 0;
  int syncs = 0;
  bool isFull = false;  ///< nothing can be done
  bool hasRoom = true;  ///< for a text; without room, the journal can still be set aside and removed

 private:
  void Try() const {
    if (isFull) throw InputError("ديسك پر است.");
  }
  void TryToWrite() const {
    if (!hasRoom) throw InputError("جا نيست.");
    Try();
  }
  void Clear() {
    synced.clear();
    appended.clear();
  }
};

}  // namespace koru::test
