#include "platform/grid/GridDelegate.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include "platform/grid/GridModel.h"

namespace tevra {

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
  const GridColumn& column = model_->Columns()[static_cast<std::size_t>(index.column())];
  if (!column.list.empty()) {
    auto* combo = new QComboBox(parent);
    for (const auto& entry : column.list) combo->addItem(entry.second);
    return combo;
  }
  auto* box = new QLineEdit(parent);
  box->setFrame(false);
  box->setAlignment(Qt::Alignment(model_->data(index, Qt::TextAlignmentRole).toInt()));
  const FieldInfo* field = model_->Field(index.column());
  if (field && field->typed && field->def.type == FieldType::Text) {
    box->setMaxLength(field->def.size);
  }
  return box;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const QString text = index.data(Qt::EditRole).toString();
  if (auto* combo = qobject_cast<QComboBox*>(editor)) combo->setCurrentIndex(combo->findText(text));
  if (auto* box = qobject_cast<QLineEdit*>(editor)) box->setText(text);
}

void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                const QModelIndex& index) const {
  // A value that is not in the list is kept unless the user picks another one.
  if (auto* combo = qobject_cast<QComboBox*>(editor)) {
    if (combo->currentIndex() >= 0) model->setData(index, combo->currentText());
  }
  if (auto* box = qobject_cast<QLineEdit*>(editor)) model->setData(index, box->text());
}

// The toolkit ends the editing a little later: a key typed at once would still go into the cell.
bool GridDelegate::eventFilter(QObject* editor, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    auto* widget = qobject_cast<QWidget*>(editor);
    if (widget && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
      emit commitData(widget);
      emit closeEditor(widget, NoHint);
      return true;
    }
  }
  return QStyledItemDelegate::eventFilter(editor, event);
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  const bool marked = option.state & QStyle::State_Selected;
  const bool current = view && view->currentIndex().row() == index.row();
  if (current && !marked) {
    QColor tint = option.palette.color(QPalette::Highlight);
    tint.setAlpha(40);
    painter->fillRect(option.rect, tint);
  }
  QStyleOptionViewItem plain = option;
  plain.state &= ~QStyle::State_HasFocus;
  QStyledItemDelegate::paint(painter, plain, index);
  if (current && view->currentIndex() == index) {
    const bool focused = view->hasFocus();
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(
        QPen(option.palette.color(focused ? QPalette::Highlight : QPalette::Mid), focused ? 2 : 1));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    painter->restore();
  }
}

}  // namespace tevra
