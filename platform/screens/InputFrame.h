// The frame of boxes above a list, from which a new row is made.
#pragma once

#include <QGroupBox>
#include <vector>

namespace tevra {

/// A box with its label; `stretch`: its share of the width.
struct LabelledBox {
  const char* label;
  QWidget* box;
  int stretch = 1;
};

/// A frame; its boxes are made as its children and then placed by PlaceBoxes.
QGroupBox* MakeInputFrame(const char* name, const QString& caption, QWidget* screen);

/// The boxes side by side, `inARow` of them in a row, the labels left of them.
void PlaceBoxes(QGroupBox* frame, const std::vector<LabelledBox>& boxes, int inARow);

}  // namespace tevra
