#include "adapters/sheet/SheetXml.h"

#include <QString>

#include "adapters/sheet/XmlPart.h"
#include "platform/text/Errors.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

using Kind = XmlPart::Kind;

constexpr std::size_t kMaxSharedTexts = 2'000'000;
constexpr int kMaxSheets = 1000;
constexpr int kMaxColumn = 16384;
constexpr std::size_t kPiecesPerStep = 4096;

constexpr const char* kDamaged = "كامل نيست يا خراب است.";

/// The character that _xHHHH_ at `at` names; no value if there is no such escape.
std::optional<char16_t> EscapeAt(QStringView text, qsizetype at) {
  constexpr qsizetype kLength = 7;
  if (text.size() - at < kLength || text[at] != u'_' || text[at + 1] != u'x' ||
      text[at + kLength - 1] != u'_')
    return std::nullopt;
  constexpr int kHex = 16;
  bool isNumber = false;
  for (const QChar digit : text.mid(at + 2, 4)) {  // toUShort takes a sign and blanks
    const bool isHex = (digit >= u'0' && digit <= u'9') || (digit >= u'A' && digit <= u'F') ||
                       (digit >= u'a' && digit <= u'f');
    if (!isHex) return std::nullopt;
  }
  const ushort number = text.mid(at + 2, 4).toUShort(&isNumber, kHex);
  return isNumber ? std::optional<char16_t>(number) : std::nullopt;
}

/// A text of a cell as UTF-8: characters that XML cannot have are written as _xHHHH_.
std::string CellText(const QString& text) {
  if (!text.contains(QLatin1String("_x"))) return text.toStdString();
  constexpr qsizetype kEscapeLength = 7;
  QString plain;
  for (qsizetype at = 0; at < text.size();) {
    const auto escaped = EscapeAt(text, at);
    plain += escaped ? QChar(*escaped) : text[at];
    at += escaped ? kEscapeLength : 1;
  }
  return plain.toStdString();
}

/// After the start of an element with runs of text: all of them, without phonetic ones.
QString ReadRuns(XmlPart& xml) {
  const int own = xml.Depth();
  QString text;
  while (true) {
    const Kind kind = xml.Next();
    if (kind == Kind::EndOfPart) throw InputError(kDamaged);
    if (kind == Kind::End && xml.Depth() < own) return text;
    if (kind != Kind::Start) continue;
    if (xml.Name() == QLatin1String("t")) {
      text += xml.ReadText();
    } else if (xml.Name() == QLatin1String("rPh")) {
      xml.Skip();
    }
  }
}

/// The column of a reference such as AB12, from 0; -1 if it names none.
int ColumnOf(const QString& reference) {
  constexpr int kLetters = 26;
  int column = 0;
  for (const QChar c : reference) {
    if (c < u'A' || c > u'Z') break;
    column = column * kLetters + (c.unicode() - u'A' + 1);
    if (column > kMaxColumn) throw InputError(kDamaged);
  }
  return column - 1;
}

std::string NumberOf(const std::string& text) {
  const bool isNumber = !text.empty() && NumberPrefix(text) == text.size();
  return isNumber ? NumberText(Val(text)) : text;
}

/// The text of a cell from what its value says, by the cell's type.
std::string ValueOf(const QString& type, const QString& value, const std::vector<std::string>& shared) {
  if (type == QLatin1String("s")) {
    bool isNumber = false;
    const qulonglong at = value.toULongLong(&isNumber);
    if (!isNumber || at >= shared.size()) throw InputError(kDamaged);
    return shared[static_cast<std::size_t>(at)];
  }
  if (type == QLatin1String("b")) return value == QLatin1String("1") ? "TRUE" : "FALSE";
  if (type.isEmpty() || type == QLatin1String("n")) return NumberOf(value.trimmed().toStdString());
  return CellText(value);  // the result of a formula, an error, a date
}

/// After the start of a cell: its text.
std::string ReadCell(XmlPart& xml, const QString& type, const std::vector<std::string>& shared) {
  const int own = xml.Depth();
  std::string text;
  while (true) {
    const Kind kind = xml.Next();
    if (kind == Kind::EndOfPart) throw InputError(kDamaged);
    if (kind == Kind::End && xml.Depth() < own) return text;
    if (kind != Kind::Start) continue;
    if (xml.Name() == QLatin1String("v")) {
      text = ValueOf(type, xml.ReadText(), shared);
    } else if (xml.Name() == QLatin1String("is")) {
      text = CellText(ReadRuns(xml));
    } else {
      xml.Skip();  // formulas
    }
  }
}

/// After the start of a row.
void ReadRow(XmlPart& xml, const std::vector<std::string>& shared, TableBuilder& table) {
  const int own = xml.Depth();
  int next = 0;
  while (true) {
    const Kind kind = xml.Next();
    if (kind == Kind::EndOfPart) throw InputError(kDamaged);
    if (kind == Kind::End && xml.Depth() < own) return;
    if (kind != Kind::Start) continue;
    if (xml.Name() != QLatin1String("c")) {
      xml.Skip();
      continue;
    }
    const int named = ColumnOf(xml.Attribute(QLatin1String("r")));
    const int column = named < 0 ? next : named;
    next = column + 1;
    const QString type = xml.Attribute(QLatin1String("t"));
    table.AddCell(column, ReadCell(xml, type, shared));
  }
}

}  // namespace

std::vector<SheetEntry> ReadSheetList(QIODevice& part) {
  XmlPart xml(part);
  std::vector<SheetEntry> sheets;
  for (Kind kind = xml.Next(); kind != Kind::EndOfPart; kind = xml.Next()) {
    if (kind != Kind::Start || xml.Name() != QLatin1String("sheet")) continue;
    if (sheets.size() == kMaxSheets) throw InputError("بيش از " + std::to_string(kMaxSheets) + " برگه دارد.");
    const QString state = xml.Attribute(QLatin1String("state"));
    sheets.push_back({xml.Attribute(QLatin1String("name")).toStdString(),
                      xml.AttributeOfAnyPrefix(QLatin1String("id")).toStdString(),
                      !state.isEmpty() && state != QLatin1String("visible")});
  }
  return sheets;
}

std::map<std::string, PartRelation> ReadRelations(QIODevice& part) {
  XmlPart xml(part);
  std::map<std::string, PartRelation> relations;
  for (Kind kind = xml.Next(); kind != Kind::EndOfPart; kind = xml.Next()) {
    if (kind != Kind::Start || xml.Name() != QLatin1String("Relationship")) continue;
    const QString type = xml.Attribute(QLatin1String("Type"));
    relations[xml.Attribute(QLatin1String("Id")).toStdString()] = {
        type.mid(type.lastIndexOf(u'/') + 1).toStdString(),
        xml.Attribute(QLatin1String("Target")).toStdString()};
  }
  return relations;
}

std::optional<std::vector<std::string>> ReadSharedTexts(QIODevice& part, const PartProgress& progress) {
  XmlPart xml(part);
  std::vector<std::string> texts;
  for (Kind kind = xml.Next(); kind != Kind::EndOfPart; kind = xml.Next()) {
    if (kind != Kind::Start || xml.Name() != QLatin1String("si")) continue;
    if (texts.size() == kMaxSharedTexts)
      throw InputError("نوشته\u200cهاي آن براي يك شمارش بيش از اندازه است.");
    texts.push_back(CellText(ReadRuns(xml)));
    CheckCellLength(texts.back());
    if (texts.size() % kPiecesPerStep == 0 && !progress(xml.BytesRead())) return std::nullopt;
  }
  return texts;
}

bool ReadCells(QIODevice& part, const std::vector<std::string>& shared, TableBuilder& table,
               const PartProgress& progress) {
  constexpr int kRowsPerStep = 256;
  XmlPart xml(part);
  int number = 0;
  int rows = 0;
  for (Kind kind = xml.Next(); kind != Kind::EndOfPart; kind = xml.Next()) {
    if (kind != Kind::Start || xml.Name() != QLatin1String("row")) continue;
    bool isNumber = false;
    const int named = xml.Attribute(QLatin1String("r")).toInt(&isNumber);
    number = isNumber && named > 0 ? named : number + 1;
    table.BeginRow(number);
    ReadRow(xml, shared, table);
    table.EndRow();
    if (++rows % kRowsPerStep == 0 && !progress(xml.BytesRead())) return false;
  }
  return true;
}

}  // namespace koru
