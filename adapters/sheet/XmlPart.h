#pragma once

#include <QIODevice>
#include <QString>
#include <QStringView>
#include <QXmlStreamReader>
#include <cstdint>
#include <memory>

namespace koru {

/// Reads one XML part of a workbook, element by element, names without their prefixes. What only hostile
/// files have throws InputError: a document type, deep nesting, thousands of attributes (the reader compares
/// each with each), zero bytes.
class XmlPart {
 public:
  /// The part must outlive the object.
  explicit XmlPart(QIODevice& part);
  XmlPart(const XmlPart&) = delete;
  XmlPart& operator=(const XmlPart&) = delete;
  ~XmlPart();

  enum class Kind { Start, End, Text, EndOfPart };
  /// The next piece. Throws InputError if the part is no whole XML document.
  Kind Next();

  [[nodiscard]] QStringView Name() const;
  [[nodiscard]] QString Attribute(QLatin1String name) const;
  /// An attribute by its name without its prefix.
  [[nodiscard]] QString AttributeOfAnyPrefix(QLatin1String name) const;
  [[nodiscard]] QStringView Text() const { return reader_.text(); }
  /// The number of open elements: 1 after the start of the first one.
  [[nodiscard]] int Depth() const { return depth_; }

  /// After a start: reads to its end and returns its own text without that of elements inside.
  QString ReadText();
  /// After a start: reads to its end.
  void Skip();

  /// The number of bytes read so far.
  [[nodiscard]] std::int64_t BytesRead() const;

 private:
  class Watched;

  std::unique_ptr<Watched> watched_;
  QXmlStreamReader reader_;
  int depth_ = 0;
};

}  // namespace koru
