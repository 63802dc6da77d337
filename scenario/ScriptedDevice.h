#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "floor/FloorSession.h"

namespace koru {

/// A counter's device in a scenario, without a browser and without a server. It keeps each figure with its
/// sequence number until the desk has answered it, and sends it again as often as needed; the network between
/// it and the desk can be lost, and so can an answer on its way back. Where a desk is asked for, nullptr says
/// that none answers.
class ScriptedDevice {
 public:
  enum class Shows {
    Nothing,      ///< no count is opened
    Open,         ///< figures are taken
    Paused,       ///< the desk takes none now
    Closed,       ///< the desk does not know the code any more
    Unreachable,  ///< no network, or no desk
  };
  /// A figure that the desk has answered.
  struct Answered {
    LineKey line;
    FloorAnswer answer;
  };

  /// `id`: see FloorSession::IsDeviceID.
  ScriptedDevice(std::string id, std::string name) : id_(std::move(id)), name_(std::move(name)) {}

  [[nodiscard]] const std::string& Name() const { return name_; }

  /// Opens a count by its code; figures that are unsent under an earlier code of it are sent under this one.
  /// Throws ScenarioFailure without a network, and while figures of another count are unsent.
  void Open(int count, std::string code, FloorSession* desk);
  /// The counter enters a figure, which waits for Send. Throws ScenarioFailure for a line that the device
  /// does not show, and when it shows that the count is closed or none is open.
  void Enter(const std::string& barcode, FloorFigure::Operation operation, const std::string& text);
  /// The counter scans a barcode. One without a line waits for Send.
  void Scan(const std::string& barcode);
  void SetNetwork(bool has) { hasNetwork_ = has; }
  /// The next answer of the desk to figures does not arrive.
  void LoseAnswer() { losesAnswer_ = true; }

  /// Sends all that is unsent, in its order, and reads what has changed.
  void Send(FloorSession* desk);
  /// Reads what has changed. Nothing while figures are on their way: their answers may be older.
  void Follow(FloorSession* desk);

  [[nodiscard]] Shows State() const { return shows_; }
  /// The figure that the device shows for a line, unsent ones included. Throws ScenarioFailure without the
  /// line.
  [[nodiscard]] std::string Figure(const std::string& barcode) const;
  /// How many of its lines have no figure.
  [[nodiscard]] std::size_t Left() const;
  /// Figures that have no answer yet.
  [[nodiscard]] std::size_t Unsent() const { return unsent_.size(); }
  /// The figures that were answered at the last time that there were some.
  [[nodiscard]] const std::vector<Answered>& Answers() const { return answers_; }

 private:
  void TakeAnswers(const std::vector<FloorAnswer>& answers);

  std::string id_;
  std::string name_;
  std::string code_;
  int count_ = 1;
  bool hasNetwork_ = true;
  bool losesAnswer_ = false;
  bool isOnItsWay_ = false;  ///< figures were sent, and their answers have not arrived
  Shows shows_ = Shows::Nothing;
  std::int64_t revision_ = 0;
  std::int64_t lastSequence_ = 0;
  std::deque<FloorFigure> unsent_;
  std::vector<std::string> unknown_;            ///< barcodes that were scanned and not sent
  std::map<std::string, std::string> figures_;  ///< what the desk has, by barcode
  std::vector<Answered> answers_;
};

}  // namespace koru
