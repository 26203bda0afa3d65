// The strip above a grid's headers: a header dropped here groups, and what the list is sorted by
// stands here.
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
  /// The captions by which the list is sorted; none shows the text.
  void SetSorted(const std::vector<QString>& captions, bool descending);
  /// A dragged header stands above it, or no longer does.
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
