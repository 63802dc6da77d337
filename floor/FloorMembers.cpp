#include "floor/FloorMembers.h"

#include <algorithm>

namespace koru {

void FloorMembers::Member::Keep(const FloorAnswer& answer) {
  const bool isEntered = answer.state == FigureState::Stored || answer.state == FigureState::Warned;
  if (isEntered) entered.Add(answer.sequence);
  if (!answers.try_emplace(answer.sequence, answer).second) return;
  ++device.received;
  if (!isEntered) ++device.refused;
}

FloorMembers::FloorMembers(const JournalStart& start) {
  TakeEntered(start);
  for (const JournalStart::Device& kept : start.devices) {  // without a name: not heard of since then
    if (!kept.name.empty()) Of(kept.count, kept.id).device.name = kept.name;
  }
}

FloorMembers::Member& FloorMembers::Of(int count, const std::string& id) {
  const auto [found, isNew] = members_.try_emplace({count, id});
  if (isNew) {
    found->second.device.count = count;
    found->second.device.id = id;
    if (const auto earlier = earlier_.extract({count, id})) found->second.entered = earlier.mapped();
  }
  return found->second;
}

void FloorMembers::TakeEntered(const JournalStart& earlier) {
  for (const JournalStart::Device& kept : earlier.devices) {
    if (!kept.entered.IsEmpty()) earlier_[{kept.count, kept.id}] = kept.entered;
  }
}

void FloorMembers::TakeEntered(const std::vector<JournalFigure>& earlier) {
  for (const JournalFigure& figure : earlier) {
    if (!figure.IsOfDesk()) earlier_[{figure.count, figure.device}].Add(figure.figure.sequence);
  }
}

bool FloorMembers::HaveEntered() const {
  return !earlier_.empty() || std::any_of(members_.begin(), members_.end(), [](const auto& member) {
    return !member.second.entered.IsEmpty();
  });
}

void FloorMembers::ForgetFigures(const JournalStart& start) {
  FloorMembers before(start);
  for (auto& [key, member] : members_) {
    member.entered = before.Of(key.first, key.second).entered;
    member.answers.clear();
    member.device.received = 0;
    member.device.refused = 0;
  }
}

void FloorMembers::Take(const JournalFigure& figure) {
  if (figure.IsOfDesk()) return;
  Member& member = Of(figure.count, figure.device);
  member.Keep(figure.answer);
  member.device.lastContact = std::max(member.device.lastContact, figure.time);
}

std::vector<FloorDevice> FloorMembers::Devices() const {
  std::vector<FloorDevice> devices;
  devices.reserve(members_.size());
  for (const auto& [key, member] : members_) devices.push_back(member.device);
  return devices;
}

std::string FloorMembers::ShownName(int count, const std::string& id) const {
  const auto found = members_.find({count, id});
  return found == members_.end() ? id : found->second.device.ShownName();
}

std::vector<JournalStart::Device> FloorMembers::ForJournal() const {
  std::vector<JournalStart::Device> devices;
  devices.reserve(members_.size());
  for (const auto& [key, member] : members_) {
    devices.push_back({member.device.count, member.device.id, member.device.name, member.entered});
  }
  for (const auto& [key, entered] : earlier_) devices.push_back({key.first, key.second, {}, entered});
  return devices;
}

}  // namespace koru
