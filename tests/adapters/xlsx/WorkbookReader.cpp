#include "tests/adapters/xlsx/WorkbookReader.h"

#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <stdexcept>
#include <vector>

namespace koru::test {
namespace {

/// A part of the ZIP file.
QByteArray Unpack(const std::string& path, const QString& part, bool mustBeThere = true) {
  QProcess unzip;
  unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), QString::fromStdString(path), part});
  if (!unzip.waitForFinished(60000)) throw std::runtime_error("unzip did not finish");
  if (unzip.exitCode() != 0 && mustBeThere) throw std::runtime_error("no part " + part.toStdString());
  return unzip.readAllStandardOutput();
}

/// Workbooks encode control characters as _xHHHH_.
std::string Plain(QString text) {
  static const QRegularExpression kEscape(QStringLiteral("_x([0-9A-Fa-f]{4})_"));
  for (auto match = kEscape.match(text); match.hasMatch();
       match = kEscape.match(text, match.capturedStart() + 1)) {
    text.replace(match.capturedStart(), match.capturedLength(),
                 QChar(match.captured(1).toUShort(nullptr, 16)));
  }
  return text.toStdString();
}

void CheckWellFormed(const QXmlStreamReader& xml) {
  if (xml.hasError()) throw std::runtime_error("broken XML: " + xml.errorString().toStdString());
}

std::pair<int, int> PlaceOf(const QString& reference) {
  int col = 0;
  qsizetype at = 0;
  for (; at < reference.size() && reference[at].isLetter(); ++at) {
    col = col * 26 + (reference[at].unicode() - 'A' + 1);
  }
  return {reference.mid(at).toInt(), col};
}

/// The shared texts, to which cells refer by index.
std::vector<std::string> SharedTexts(const QByteArray& part) {
  std::vector<std::string> texts;
  QXmlStreamReader xml(part);
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == QLatin1String("si")) texts.emplace_back();
    if (xml.isStartElement() && xml.name() == QLatin1String("t") && !texts.empty()) {
      texts.back() += Plain(xml.readElementText());
    }
  }
  return texts;
}

/// Whether the font of each cell style is bold.
std::vector<bool> BoldStyles(const QByteArray& part) {
  std::vector<bool> fonts;
  std::vector<bool> styles;
  QString within;
  QXmlStreamReader xml(part);
  while (!xml.atEnd()) {
    xml.readNext();
    if (!xml.isStartElement()) continue;
    const QString name = xml.name().toString();
    if (name == QLatin1String("fonts") || name == QLatin1String("cellXfs") ||
        name == QLatin1String("fills") || name == QLatin1String("cellStyles")) {
      within = name;
    }
    if (within == QLatin1String("fonts") && name == QLatin1String("font")) fonts.push_back(false);
    if (within == QLatin1String("fonts") && name == QLatin1String("b")) fonts.back() = true;
    if (within == QLatin1String("cellXfs") && name == QLatin1String("xf")) {
      styles.push_back(
          fonts.at(static_cast<std::size_t>(xml.attributes().value(QLatin1String("fontId")).toInt())));
    }
  }
  CheckWellFormed(xml);
  return styles;
}

class SheetReader {
 public:
  SheetReader(const QByteArray& part, std::vector<std::string> shared, std::vector<bool> bold)
      : xml_(part), shared_(std::move(shared)), bold_(std::move(bold)) {}

  ReadSheet Read() {
    while (!xml_.atEnd()) {
      xml_.readNext();
      if (xml_.isStartElement()) Element(xml_.name().toString());
    }
    CheckWellFormed(xml_);
    return std::move(sheet_);
  }

 private:
  [[nodiscard]] QString Attribute(const char* name) const {
    return xml_.attributes().value(QLatin1String(name)).toString();
  }

  void Element(const QString& name) {
    if (name == QLatin1String("sheetView"))
      sheet_.rightToLeft = Attribute("rightToLeft") == QLatin1String("1");
    if (name == QLatin1String("pane") && Attribute("state") == QLatin1String("frozen")) {
      sheet_.frozenRows = Attribute("ySplit").toInt();
    }
    if (name == QLatin1String("col")) {
      for (int col = Attribute("min").toInt(); col <= Attribute("max").toInt(); ++col) {
        sheet_.widths[col] = Attribute("width").toDouble();
      }
    }
    if (name == QLatin1String("c")) Cell();
  }

  void Cell() {
    const auto place = PlaceOf(Attribute("r"));
    const QString type = Attribute("t");
    ReadCell cell;
    cell.bold = bold_.at(static_cast<std::size_t>(Attribute("s").toInt()));
    bool formula = false;
    while (!(xml_.isEndElement() && xml_.name() == QLatin1String("c")) && !xml_.atEnd()) {
      xml_.readNext();
      if (!xml_.isStartElement()) continue;
      if (xml_.name() == QLatin1String("f")) formula = true;
      if (xml_.name() == QLatin1String("v") || xml_.name() == QLatin1String("t"))
        cell.text += Plain(xml_.readElementText());
    }
    if (type == QLatin1String("s")) cell.text = shared_.at(static_cast<std::size_t>(std::stoi(cell.text)));
    cell.isText = !formula && (type == QLatin1String("s") || type == QLatin1String("inlineStr"));
    if (!sheet_.cells.emplace(place, cell).second) throw std::runtime_error("duplicate cell");
  }

  QXmlStreamReader xml_;
  std::vector<std::string> shared_;
  std::vector<bool> bold_;
  ReadSheet sheet_;
};

std::string SheetName(const QByteArray& part) {
  QXmlStreamReader xml(part);
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == QLatin1String("sheet")) {
      return xml.attributes().value(QLatin1String("name")).toString().toStdString();
    }
  }
  return {};
}

}  // namespace

std::string ReadSheet::Text(int row, int col) const {
  const auto found = cells.find({row, col});
  return found == cells.end() ? std::string() : found->second.text;
}

ReadSheet ReadWorkbook(const std::string& path) {
  SheetReader reader(Unpack(path, QStringLiteral("xl/worksheets/sheet1.xml")),
                     SharedTexts(Unpack(path, QStringLiteral("xl/sharedStrings.xml"), false)),
                     BoldStyles(Unpack(path, QStringLiteral("xl/styles.xml"))));
  ReadSheet sheet = reader.Read();
  sheet.name = SheetName(Unpack(path, QStringLiteral("xl/workbook.xml")));
  return sheet;
}

}  // namespace koru::test
