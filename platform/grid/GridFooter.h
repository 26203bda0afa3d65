// The strip of totals below a grid, aligned with its columns.
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
