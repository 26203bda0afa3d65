// The buttons below a list, at the right: in one row, or in more when the screen is narrow.
#pragma once

#include <QLayout>
#include <vector>

namespace tevra {

/// All as wide as the widest.
class ButtonRow : public QLayout {
 public:
  explicit ButtonRow(QWidget* parent = nullptr);
  ~ButtonRow() override;

  void addItem(QLayoutItem* item) override;
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;

  QSize sizeHint() const override;
  QSize minimumSize() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  void setGeometry(const QRect& area) override;

 private:
  QSize Each() const;
  int InARow(int width) const;

  std::vector<QLayoutItem*> items_;
};

}  // namespace tevra
