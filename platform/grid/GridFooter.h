// The strip of totals under a grid, column for column.
#pragma once

#include <QTableView>
#include <QWidget>
#include <map>

namespace tevra {

class GridFooter : public QWidget {
  Q_OBJECT

 public:
  explicit GridFooter(QTableView* view);

  void SetText(int column, const QString& text);
  QString Text(int column) const;
  bool Has(int column) const { return texts_.contains(column); }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QTableView* view_;
  std::map<int, QString> texts_;
};

}  // namespace tevra
