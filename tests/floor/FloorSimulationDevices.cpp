// Simulated devices: what they enter, send and read.

#include <algorithm>
#include <iterator>

#include "tests/floor/FloorSimulation.h"

namespace koru::test {

void FloorSimulation::EnterOnDevice() {
  SimulatedDevice& device = AnyDevice();
  LineKey line{AnyBarcode(), 1 + Any(3)};
  if (Any(2) == 0 && !device.seen.empty()) {
    const auto seen = std::next(device.seen.begin(), Any(static_cast<int>(device.seen.size())));
    line = {seen->first.first, seen->first.second};
  }
  const auto operation = Any(2) == 0 ? FloorFigure::Operation::Add : FloorFigure::Operation::Set;
  std::string text = std::to_string(Any(4) == 0 ? Any(20) : Any(1000));
  if (Any(12) == 0) text = operation == FloorFigure::Operation::Set ? "" : "-" + text;
  std::string base = device.seen[{line.barcode, line.ordinal}];
  for (const FloorFigure& waiting : device.queue) {
    const bool isSame = waiting.line == line && waiting.operation == FloorFigure::Operation::Set;
    if (isSame) base = waiting.text;  // what the counter sees: the figure that has not been sent yet
  }
  device.queue.push_back({++device.lastSequence, line, operation, text, base});
}

/// What reaches the desk of the queue.
std::vector<FloorFigure> FloorSimulation::Batch(const SimulatedDevice& device) {
  std::vector<FloorFigure> batch;
  for (const FloorFigure& figure : device.queue) {
    const int copies = Any(10) == 0 ? 0 : Any(6) == 0 ? 2 : 1;
    batch.insert(batch.end(), static_cast<std::size_t>(copies), figure);
  }
  if (Any(5) == 0) std::shuffle(batch.begin(), batch.end(), chance_);
  return batch;
}

/// Figures reach the desk, and the network is gone before its answers.
void FloorSimulation::LoseAnswers() {
  EnterOnDevice();
  for (SimulatedDevice& device : devices_) {
    if (!HasFatalFailure()) Deliver(device, false);
  }
}

void FloorSimulation::Deliver(SimulatedDevice& device, bool isAnswered) {
  const std::vector<FloorFigure> batch = Batch(device);
  const auto answers = session_->Enter(device.count, device.id, batch);
  ASSERT_EQ(answers.size(), batch.size());
  for (std::size_t at = 0; at < answers.size(); ++at) {
    const FloorAnswer expected = model_.Take(device.count, batch[at]);
    ASSERT_EQ(answers[at].state, expected.state) << batch[at].line.barcode << " " << batch[at].text;
    ASSERT_EQ(answers[at].text, expected.text) << batch[at].line.barcode << " " << batch[at].text;
  }
  ASSERT_TRUE(session_->Commit());
  if (model_.SessionState() != FloorModel::State::Running) return;  // without a code, nothing is answered
  for (const FloorAnswer& answer : answers) ledger_.Answer(device.count, answer);
  if (!isAnswered) return;
  for (const FloorAnswer& answer : answers) {
    if (answer.state == FigureState::Paused) continue;
    std::erase_if(device.queue,
                  [&](const FloorFigure& figure) { return figure.sequence == answer.sequence; });
  }
}

void FloorSimulation::ReadChanges(SimulatedDevice& device) {
  if (model_.SessionState() != FloorModel::State::Running) return;
  const FloorChanges changes = session_->ChangesSince(device.revision, device.count);
  device.revision = changes.revision;
  if (changes.linesChanged) {
    device.seen.clear();
    for (const FloorLine& line : session_->Lines(device.count))
      device.seen[{line.key.barcode, line.key.ordinal}] = line.figure;
  }
  for (const FloorChanges::Cell& cell : changes.cells)
    device.seen[{cell.line.barcode, cell.line.ordinal}] = cell.figure;
  for (const FloorModel::Line& line : model_.Lines())
    ASSERT_EQ((device.seen[{line.key.barcode, line.key.ordinal}]), model_.Cell(line.id, device.count))
        << "a change was missed";
}

}  // namespace koru::test
