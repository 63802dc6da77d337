#pragma once

#include <QDialog>
#include <vector>

#include "floor/FloorReplay.h"

namespace koru {

class FloorDesk;
class GoodNames;

/// Offers figures of the floor that the counting lacks, since the program ended before they were saved or
/// since they were set aside: a list of them, and the choice to take them, to forgo them or to decide later.
class LeftFiguresDialog : public QDialog {
  Q_OBJECT

 public:
  enum class Choice { Later, Take, Forgo };

  LeftFiguresDialog(const std::vector<LeftFigures::Cell>& cells, GoodNames& names, const FloorDesk& desk);

  [[nodiscard]] Choice Chosen() const { return chosen_; }

 private:
  Choice chosen_ = Choice::Later;
};

}  // namespace koru
