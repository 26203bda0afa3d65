#include "platform/screens/InputFrame.h"

#include <QGridLayout>
#include <QLabel>

namespace tevra {

namespace {

constexpr int kLeastBeside = 90;  // pixels of a box with a control beside it

}  // namespace

QGroupBox* MakeInputFrame(const char* name, const QString& caption, QWidget* screen) {
  auto* frame = new QGroupBox(caption, screen);
  frame->setObjectName(name);
  return frame;
}

void PlaceBoxes(QGroupBox* frame, const std::vector<LabelledBox>& boxes, int inARow) {
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(8);
  for (int i = 0; i < static_cast<int>(boxes.size()); ++i) {
    const LabelledBox& each = boxes[static_cast<std::size_t>(i)];
    auto* label = new QLabel(each.label, frame);
    label->setBuddy(each.box);
    const int column = 2 * (i % inARow);
    grid->addWidget(label, i / inARow, column);
    // A box that may not grow stands at its label and not in the middle of the room.
    const bool narrow = each.box->maximumWidth() < QWIDGETSIZE_MAX;
    if (each.beside) {
      auto* pair = new QHBoxLayout;
      pair->setSpacing(6);
      each.box->setMinimumWidth(kLeastBeside);
      pair->addWidget(each.box, 1);
      pair->addWidget(each.beside, 3);
      grid->addLayout(pair, i / inARow, column + 1);
    } else {
      grid->addWidget(each.box, i / inARow, column + 1, narrow ? Qt::AlignLeft : Qt::Alignment());
    }
    grid->setColumnStretch(column + 1, each.stretch);
  }
}

}  // namespace tevra
