// Paints and edits a grid's cells.
#pragma once

#include <QStyledItemDelegate>

namespace tevra {

class GridModel;

/// The current row is tinted; a cell with a list of texts is edited by choosing one.
class GridDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  GridDelegate(GridModel* model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
  bool eventFilter(QObject* editor, QEvent* event) override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  GridModel* model_;
};

}  // namespace tevra
