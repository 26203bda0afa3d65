#include "platform/forms/Buttons.h"

#include <algorithm>

namespace tevra {

QPushButton* MakeButton(const char* name, const char* caption, const char* tip, QWidget* parent) {
  constexpr int kNarrowest = 100;
  constexpr int kAroundCaption = 20;
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setMinimumWidth(std::max(kNarrowest, button->sizeHint().width() + kAroundCaption));
  // As high as a button with a picture beside it.
  const int higher = button->iconSize().height() - button->fontMetrics().height();
  button->setMinimumHeight(button->sizeHint().height() + std::max(higher, 0));
  return button;
}

}  // namespace tevra
