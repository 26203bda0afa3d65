#include "platform/grid/extTDBGrid.h"

#include "platform/system/StandardError.h"

namespace tevra {

namespace {
enum SortTypes : long { kNone = 0, kAscending = 1, kDescending = 2 };

template <class Sorting>
void Told(Sorting sorting) {
  const Procedure procedure{"DataGrid_GroupColMove", "User Control", "extTDBGrid", 1};
  try {
    sorting();
  } catch (const std::exception&) {
    ShowStandardError(CaughtFailure(procedure), procedure);
  }
}
}  // namespace

extTDBGrid::extTDBGrid(QWidget* form) : QObject(form) {
  setObjectName("extTDBGrid");
}

void extTDBGrid::SetTDBGridName(const std::string& name) {
  name_ = name;
  if (name.empty()) return;
  SetTDBGrid(parent()->findChild<DataGrid*>(QString::fromStdString(name)));
}

void extTDBGrid::SetTDBGrid(DataGrid* grid) {
  if (grid_) disconnect(grid_, nullptr, this, nullptr);
  grid_ = grid;
  if (!grid_) return;
  connect(grid_, &DataGrid::GroupColMove, this, [this] { DataGrid_GroupColMove(); });
  connect(grid_, &DataGrid::SortWanted, this, [this](const std::string& field, bool descending) {
    if (sortType_ == kNone) return;
    Told([&] {
      SortBy(field.empty() ? std::vector<std::string>() : std::vector{field}, descending);
    });
  });
}

void extTDBGrid::DataGrid_GroupColMove() {
  Told([this] { Sort(); });
}

void extTDBGrid::Sort() {
  if (sortType_ == kNone || !grid_ || !grid_->DataSource()) return;
  std::vector<std::string> fields = grid_->GroupColumns();
  grid_->ResetGroups();
  // The area still shows the sorted columns; another direction applies to them.
  if (fields.empty()) fields = grid_->SortFields();
  SortBy(fields, sortType_ == kDescending);
}

void extTDBGrid::SortBy(const std::vector<std::string>& fields, bool descending) {
  std::string order;
  for (const std::string& field : fields) {
    order += (order.empty() ? "[" : ", [") + field + "]" + (descending ? " DESC" : "");
  }
  grid_->DataSource()->Recordset().SetSort(order);
  grid_->DataSource()->Notify();
  grid_->SetSortMarks(fields, descending);
}

}  // namespace tevra
