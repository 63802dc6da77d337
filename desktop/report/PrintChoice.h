#pragma once

#include <QStringList>

class QPrinter;
class QWidget;

namespace koru {

/// Asks on which of `printers` a report of so many pages is printed, from which page to which, and how often,
/// and sets the printer so; false when the person does not print. `printers` has at least one name. The
/// toolkit's own print dialog offers the files of the home folder and opens each for its type, which takes an
/// open database's locks off (FileChoice.h).
[[nodiscard]] bool AskHowToPrint(QPrinter& printer, const QStringList& printers, int pages, QWidget* parent);

}  // namespace koru
