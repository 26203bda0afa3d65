// The headers of a grid: captions that can be dragged into the group area, and the strip of record
// selectors at the left.
#pragma once

#include <QHeaderView>

namespace tevra {

/// Dragged sideways a caption moves its column; dragged up it leaves the header.
class GridHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit GridHeader(QWidget* parent);

  /// The height that the captions need in their lines.
  QSize sizeHint() const override;

 signals:
  void DraggedAbove(int column, const QPoint& globalPosition);
  void DroppedAbove(int column, const QPoint& globalPosition);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  int pressed_ = -1;
  QPoint pressedAt_;
};

/// Shows the current row; pressing it selects rows.
class RecordSelectors : public QHeaderView {
  Q_OBJECT

 public:
  explicit RecordSelectors(QWidget* parent);

 signals:
  void RowPressed(int row, Qt::KeyboardModifiers modifiers);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintSection(QPainter* painter, const QRect& rect, int row) const override;
};

}  // namespace tevra
