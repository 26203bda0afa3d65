// The strip above a grid's headers: a header dropped here groups, and it shows the columns by which
// the list is sorted.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace tevra {

class GroupArea : public QWidget {
  Q_OBJECT

 public:
  explicit GroupArea(QWidget* parent);

  void SetText(const QString& text);
  /// The captions by which the list is sorted; without any the hint is shown.
  void SetSorted(const std::vector<QString>& captions, bool descending);
  /// Whether a dragged header is above it.
  void SetHovered(bool hovered);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
  std::vector<QString> sorted_;
  bool descending_ = false;
  bool hovered_ = false;
};

}  // namespace tevra
