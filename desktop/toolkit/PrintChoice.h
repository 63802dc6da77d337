#pragma once

#include <QStringList>

class QPrinter;
class QWidget;

namespace koru {

/// Asks for the printer (one of `printers`, at least one name), the page range of a document with `pages`
/// pages and the number of copies, and configures `printer`. False if the user cancels. Replaces the
/// toolkit's print dialog, which lists the home folder and opens each file to determine its type; that
/// releases the locks of an open database file (FileChoice.h).
[[nodiscard]] bool AskHowToPrint(QPrinter& printer, const QStringList& printers, int pages, QWidget* parent);

}  // namespace koru
