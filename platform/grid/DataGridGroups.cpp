// How a grid's headers are dragged into the area above them.
#include <algorithm>

#include "platform/forms/FormsApplication.h"
#include "platform/grid/DataGrid.h"
#include "platform/grid/GroupArea.h"

namespace tevra {

void DataGrid::SetGroupArea(bool shown) {
  area_->setVisible(shown);
}

bool DataGrid::HasGroupArea() const {
  return !area_->isHidden();
}

void DataGrid::SetGroupText(const QString& text) {
  area_->SetText(text);
}

bool DataGrid::IsOverGroupArea(const QPoint& globalPosition) const {
  return area_->isVisible() && area_->rect().contains(area_->mapFromGlobal(globalPosition));
}

void DataGrid::HoverGroup(const QPoint& globalPosition) {
  area_->SetHovered(IsOverGroupArea(globalPosition));
}

void DataGrid::DropOnGroup(int column, const QPoint& globalPosition) {
  area_->SetHovered(false);
  if (!IsOverGroupArea(globalPosition)) return;
  AfterEvent(this, [this, column] { AddGroupColumn(column); });
}

void DataGrid::AddGroupColumn(int column) {
  const std::string& field = Columns().at(static_cast<std::size_t>(column)).field;
  if (std::find(groups_.begin(), groups_.end(), field) == groups_.end()) groups_.push_back(field);
  emit GroupColMove();
}

void DataGrid::ResetGroups() {
  groups_.clear();
}

void DataGrid::SetSortMarks(const std::vector<std::string>& fields, bool descending) {
  sorted_ = fields;
  std::vector<QString> captions;
  for (const std::string& field : fields) {
    captions.push_back(Columns()[static_cast<std::size_t>(ColumnOf(field))].caption);
  }
  area_->SetSorted(captions, descending);
}

}  // namespace tevra
