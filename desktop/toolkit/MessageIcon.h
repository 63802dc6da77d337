#pragma once

#include <QWidget>

namespace koru {

/// The sign beside a message: a white mark on a coloured disc.
class MessageIcon : public QWidget {
  Q_OBJECT

 public:
  enum class Kind { Note, Question, Warning, Error };

  MessageIcon(Kind kind, QWidget* parent);

  [[nodiscard]] Kind Shown() const { return kind_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Kind kind_;
};

}  // namespace koru
