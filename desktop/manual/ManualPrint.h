#pragma once

#include <QPageLayout>
#include <QString>
#include <QTextDocument>

class QPaintDevice;
class QPainter;
class QPrinter;
class QTextBlock;

namespace koru {

/// A page of the manual on sheets of A4, from right to left. The sheet of keys has two columns, and each of
/// its sections is in one column; on other pages a heading is on the sheet of what follows it. The links to
/// other pages are left out. Each sheet ends with the page's title and its number.
class PrintedManual {
 public:
  /// `file` is the page; `device` is what it is painted on later, with the margins of Paper().
  PrintedManual(const QString& file, QPaintDevice& device);

  [[nodiscard]] static QPageLayout Paper();
  [[nodiscard]] int Sheets() const;
  /// The text as it is laid out: a page of it is a column of a sheet.
  [[nodiscard]] const QTextDocument& Text() const { return text_; }
  /// Paints a sheet, from 0.
  void Paint(QPainter& painter, int sheet);

 private:
  [[nodiscard]] bool IsDivided(const QTextBlock& heading) const;
  void KeepTogether();
  void PaintFoot(QPainter& painter, int sheet) const;

  QTextDocument text_;
  QPaintDevice& device_;
  bool isSheetOfKeys_ = false;
  int columns_ = 1;  ///< of a sheet
  QSizeF column_;    ///< in units of the device
  double gap_ = 0;   ///< between two columns
  double foot_ = 0;  ///< the height of the foot
};

/// Writes a page of the manual as PDF. Throws InputError with the file's name when it cannot be written.
void WriteManualPdf(const QString& page, const QString& pdf);

/// Prints the page range in the printer's settings. Throws InputError when the printer does not accept it.
void PrintManual(const QString& page, QPrinter& printer);

}  // namespace koru
