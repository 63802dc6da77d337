#include "adapters/sheet/XmlPart.h"

#include <memory>

#include "platform/text/Errors.h"

namespace koru {
namespace {

constexpr int kMaxDepth = 64;
constexpr int kMaxAttributes = 2000;
constexpr qint64 kPieceSize = 65536;

constexpr const char* kDamaged = "كامل نيست يا خراب است.";
constexpr const char* kHostile = "چيزي دارد كه در كارپوشة اكسل نيست.";

}  // namespace

/// Passes the bytes on and looks for more attributes than a tag of a workbook has. Every attribute has an
/// equals sign before a quote, and no tag has a `<` inside, so that none is overlooked.
class XmlPart::Watched : public QIODevice {
 public:
  explicit Watched(QIODevice& part) : part_(part) { open(QIODevice::ReadOnly); }

  [[nodiscard]] bool isSequential() const override { return true; }
  [[nodiscard]] std::int64_t BytesRead() const { return bytes_; }
  [[nodiscard]] bool IsHostile() const { return hostile_; }
  [[nodiscard]] bool HasFailed() const { return failed_; }

 protected:
  qint64 readData(char* data, qint64 maxSize) override {
    const qint64 count = part_.read(data, maxSize);
    if (count < 0) failed_ = true;
    for (qint64 i = 0; i < count && !hostile_; ++i) Watch(data[i]);
    if (hostile_ || failed_) return -1;
    bytes_ += count;
    return count;
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  void Watch(char c) {
    if (c == '<') attributes_ = 0;
    if (afterEquals_ && (c == '"' || c == '\'')) ++attributes_;
    if (c == '=') {
      afterEquals_ = true;
    } else if (c != ' ' && c != '\t' && c != '\r' && c != '\n') {
      afterEquals_ = false;
    }
    hostile_ = c == '\0' || attributes_ > kMaxAttributes;
  }

  QIODevice& part_;
  std::int64_t bytes_ = 0;
  int attributes_ = 0;  ///< since the last `<`
  bool afterEquals_ = false;
  bool hostile_ = false;
  bool failed_ = false;
};

XmlPart::XmlPart(QIODevice& part) : watched_(std::make_unique<Watched>(part)), reader_(watched_.get()) {
  reader_.setNamespaceProcessing(false);
}

XmlPart::~XmlPart() = default;

XmlPart::Kind XmlPart::Next() {
  while (true) {
    const QXmlStreamReader::TokenType token = reader_.readNext();
    if (watched_->IsHostile() || token == QXmlStreamReader::DTD) throw InputError(kHostile);
    switch (token) {
      case QXmlStreamReader::StartElement:
        if (++depth_ > kMaxDepth) throw InputError(kHostile);
        return Kind::Start;
      case QXmlStreamReader::EndElement:
        --depth_;
        return Kind::End;
      case QXmlStreamReader::Characters:
        return Kind::Text;
      case QXmlStreamReader::EndDocument:
        // A damaged part is found at its end, by its check sum.
        while (!watched_->read(kPieceSize).isEmpty()) continue;
        if (watched_->HasFailed()) throw InputError(kDamaged);
        return Kind::EndOfPart;
      case QXmlStreamReader::Invalid:
      case QXmlStreamReader::EntityReference:
        throw InputError(kDamaged);
      default:
        break;  // comments and processing instructions
    }
  }
}

QStringView XmlPart::Name() const {
  const QStringView name = reader_.qualifiedName();
  return name.mid(name.indexOf(u':') + 1);
}

QString XmlPart::Attribute(QLatin1String name) const { return reader_.attributes().value(name).toString(); }

QString XmlPart::AttributeOfAnyPrefix(QLatin1String name) const {
  for (const QXmlStreamAttribute& attribute : reader_.attributes()) {
    const QStringView qualified = attribute.qualifiedName();
    if (qualified.mid(qualified.indexOf(u':') + 1) == name) return attribute.value().toString();
  }
  return {};
}

QString XmlPart::ReadText() {
  const int own = depth_;
  QString text;
  for (Kind kind = Next(); kind != Kind::End || depth_ >= own; kind = Next()) {
    if (kind == Kind::EndOfPart) throw InputError(kDamaged);
    if (kind == Kind::Text && depth_ == own) text += reader_.text();
  }
  return text;
}

void XmlPart::Skip() {
  const int own = depth_;
  for (Kind kind = Next(); kind != Kind::End || depth_ >= own; kind = Next()) {
    if (kind == Kind::EndOfPart) throw InputError(kDamaged);
  }
}

std::int64_t XmlPart::BytesRead() const { return watched_->BytesRead(); }

}  // namespace koru
