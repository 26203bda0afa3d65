// The users of the open company.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <functional>
#include <optional>
#include <string>

#include "platform/screens/ListScreen.h"

namespace tevra {

class frmUtilizatori : public ListScreen {
 public:
  explicit frmUtilizatori(QWidget* parent = nullptr);

  DataGrid* grdDataGrid;
  QGroupBox* fraInput;
  TextBox* txtNume;
  TextBox* txtParola;
  QComboBox* cboTip;
  QPushButton* cmdAdauga;
  QPushButton* cmdSterge;
  QPushButton* cmdIesire;

 private:
  void BuildInput();
  ListDescription Describe();
  bool grdDataGrid_BeforeColUpdate(int column, const Value& value,
                                   const std::function<void()>& write);
  void cmdAdauga_Click(Procedure& procedure);
  void cmdSterge_Click(Procedure& procedure);
  bool WriteUnlessRefused(
      const std::function<std::optional<std::string>(Connection& company)>& refusalOf,
      const std::function<void()>& write);
  void ClearFields();
};

}  // namespace tevra
