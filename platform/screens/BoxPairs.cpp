#include "platform/screens/BoxPairs.h"

#include <QGridLayout>

namespace tevra {

std::string Indexed(const char* name, std::size_t index) {
  return std::string(name) + "(" + std::to_string(index) + ")";
}

QLabel* LabelOf(QWidget* box, const char* caption) {
  auto* label = new QLabel(caption);
  label->setBuddy(box);
  return label;
}

QGroupBox* MakeFrame(const char* name, const char* caption) {
  auto* frame = new QGroupBox(caption);
  frame->setObjectName(name);
  return frame;
}

void MakeReadable(QWidget* boxes) {
  QPalette palette = boxes->palette();
  palette.setColor(QPalette::Disabled, QPalette::Text,
                   palette.color(QPalette::Active, QPalette::Text));
  boxes->setPalette(palette);
}

QScrollArea* Scrolled(QWidget* page) {
  auto* area = new QScrollArea;
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(page);
  return area;
}

BoxPairs::BoxPairs(QWidget* frame) : grid_(new QGridLayout(frame)) {
  grid_->setHorizontalSpacing(8);
  grid_->setVerticalSpacing(5);
}

void BoxPairs::Add(const char* caption, QWidget* box, const char* unit) {
  grid_->addWidget(LabelOf(box, caption), row_, 0);
  grid_->addWidget(box, row_, 1, 1, unit ? 1 : 2);
  if (unit) grid_->addWidget(new QLabel(unit), row_, 2);
  ++row_;
}

void BoxPairs::AddAcross(QWidget* widget) {
  grid_->addWidget(widget, row_++, 0, 1, 3);
}

void BoxPairs::AddAcross(QLayout* layout) {
  grid_->addLayout(layout, row_++, 0, 1, 3);
}

void BoxPairs::Close() {
  grid_->setRowStretch(row_, 1);
}

}  // namespace tevra
