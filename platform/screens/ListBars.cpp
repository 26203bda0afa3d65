#include "platform/screens/ListBars.h"

#include <QHBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"

namespace tevra {

namespace {

QToolButton* MakeArrow(const char* name, const char* picture, const char* tip, QWidget* parent) {
  auto* arrow = new QToolButton(parent);
  arrow->setObjectName(name);
  arrow->setIcon(PictureIcon(picture));
  arrow->setToolTip(tip);
  arrow->setAccessibleName(tip);
  return arrow;
}

void AddSearch(ListBar& made, const ListSearch& search, QHBoxLayout* row) {
  made.text = new TextBox("txtCautare", made.bar, search.longest);
  made.text->setToolTip("Sir de cautare");
  made.text->setAccessibleName("Sir de cautare");
  made.search = MakeButton("cmdCauta", search.caption, search.tip, made.bar);
  row->addWidget(made.text, 1);
  if (search.ways.size() > 1) {
    for (const ListSearchWay& way : search.ways) {
      made.ways.push_back(new OptionButton(way.option, way.caption, made.bar));
      row->addWidget(made.ways.back());
    }
    made.ways.front()->setChecked(true);
  }
  row->addWidget(made.search);
  row->addSpacing(12);
}

void AddCount(ListBar& made, const ListDescription& list, QHBoxLayout* row) {
  row->addWidget(new QLabel(list.countCaption, made.bar));
  made.count = new QLabel(made.bar);
  made.count->setObjectName(list.countName);
  QFont bold = made.count->font();
  bold.setBold(true);
  made.count->setFont(bold);
  row->addWidget(made.count);
}

}  // namespace

ListBar MakeListBar(const ListDescription& list, QWidget* screen) {
  ListBar made;
  if (!list.search && !list.sort && !list.counted) return made;
  made.bar = new QWidget(screen);
  auto* row = new QHBoxLayout(made.bar);
  row->setContentsMargins(0, 0, 0, 0);
  if (list.search) AddSearch(made, *list.search, row);
  if (list.sort && list.sort->up) {
    if (list.sort->caption) row->addWidget(new QLabel(list.sort->caption, made.bar));
    made.up = MakeArrow("cmdUp", "\\BMP\\Sus.bmp", list.sort->up, made.bar);
    made.down = MakeArrow("cmdDown", "\\BMP\\Jos.bmp", list.sort->down, made.bar);
    row->addWidget(made.up);
    row->addWidget(made.down);
  }
  row->addStretch(1);
  if (list.counted) AddCount(made, list, row);
  return made;
}

}  // namespace tevra
