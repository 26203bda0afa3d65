// The bar above a list: search, sort, count.
#pragma once

#include <vector>

#include "platform/screens/ListScreen.h"

namespace tevra {

/// The controls of the bar; nullptr when the description does not ask for them.
struct ListBar {
  QWidget* bar = nullptr;
  TextBox* text = nullptr;
  QPushButton* search = nullptr;
  std::vector<OptionButton*> ways;
  QToolButton* up = nullptr;
  QToolButton* down = nullptr;
  QLabel* count = nullptr;
};

ListBar MakeListBar(const ListDescription& list, QWidget* screen);

}  // namespace tevra
