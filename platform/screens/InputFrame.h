// The frame above a list, with the boxes for a new row.
#pragma once

#include <QGroupBox>
#include <vector>

namespace tevra {

/// A box with its label; `stretch`: its share of the width.
struct LabelledBox {
  const char* label;
  QWidget* box;
  int stretch = 1;
  QWidget* beside = nullptr;  ///< a second control right of the box
};

/// Makes an empty frame. The screen creates the boxes as its children and calls PlaceBoxes.
QGroupBox* MakeInputFrame(const char* name, const QString& caption, QWidget* screen);

/// Places the boxes in rows of `inARow` boxes, each with its label on the left.
void PlaceBoxes(QGroupBox* frame, const std::vector<LabelledBox>& boxes, int inARow);

}  // namespace tevra
