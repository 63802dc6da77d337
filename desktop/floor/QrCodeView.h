#pragma once

#include <QString>
#include <QWidget>
#include <vector>

namespace koru {

/// The modules of a QR code.
struct QrCode {
  int size = 0;            ///< modules of each side; 0: the text does not fit into a code
  std::vector<bool> dark;  ///< row by row

  [[nodiscard]] bool IsDark(int row, int col) const {
    return dark[static_cast<std::size_t>(row) * static_cast<std::size_t>(size) +
                static_cast<std::size_t>(col)];
  }
};

/// Encodes a text of up to some 2,000 bytes, so that a code with 15 per cent damage is still read.
[[nodiscard]] QrCode EncodeQr(const QString& text);

/// A QR code on the screen: dark on white in every colour scheme, each module a whole number of pixels, at
/// least four, with the quiet zone of four modules that readers need.
class QrCodeView : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kQuietZone = 4;  ///< modules on each side
  static constexpr int kMinModule = 4;  ///< pixels

  explicit QrCodeView(QWidget* parent = nullptr);

  /// Shows the code of a text; an empty one shows none.
  void SetText(const QString& text);
  [[nodiscard]] const QString& Text() const { return text_; }
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
  QrCode code_;
};

}  // namespace koru
