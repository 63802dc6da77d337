#pragma once

#include <vector>

#include "lines/LineFilter.h"
#include "lines/LineTally.h"
#include "platform/controls/Button.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/TextBox.h"
#include "platform/ports/PropertyBag.h"

namespace koru {

/// The controls above the lines of a counting that find and filter lines. A window shows the lines that fit
/// and hides the others; nothing else knows of the filter, so that every command works on all lines.
///
/// A filter is applied when the user chooses a kind of lines, types, sorts, or asks for all lines, and when
/// another counting is on the form. In between, no line is hidden, whatever its figures become, and new
/// lines are shown. The kind is a setting of the user, which the host keeps; the text is not kept.
class LineFinder {
 public:
  /// All must outlive the object; `preferences` may be nullptr.
  LineFinder(Form& form, Grid& lines, PropertyBag* preferences);
  LineFinder(const LineFinder&) = delete;
  LineFinder& operator=(const LineFinder&) = delete;
  ~LineFinder() = default;

  TextBox txtFindLine;   ///< words of names, codes and barcodes
  ComboBox cboLineKind;  ///< itemData is the LineKind
  Button cmdAllLines;    ///< visible while the filter is on

  /// Whether the filter can hide lines.
  [[nodiscard]] bool IsOn() const;
  /// The rows of the lines that fit now, in their order.
  [[nodiscard]] std::vector<int> RowsThatFit();
  [[nodiscard]] const LineCounts& Counts() { return tally_.Counts(); }
  [[nodiscard]] bool HasLines() const { return lines_.Rows() > 1; }

  void Apply();
  /// Whether the user can choose a kind of lines; otherwise lines of all kinds are shown. The kind that was
  /// chosen comes back with the choice.
  void OfferKinds(bool offered);
  /// The lines to be shown are those of RowsThatFit now; all of them if the filter is off.
  Event<> Applied;

 private:
  [[nodiscard]] LineKind Kind() const;
  [[nodiscard]] LineFilter Filter() const;
  void ReadKind();
  void KindChosen();
  void ShowAll();

  Grid& lines_;
  PropertyBag* preferences_;
  LineTally tally_;
  std::vector<Subscription> subscriptions_;
};

}  // namespace koru
