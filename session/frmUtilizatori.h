// The users of the open company.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <functional>
#include <optional>
#include <string>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/grid/DataGrid.h"

namespace tevra {

class frmUtilizatori : public Form {
 public:
  explicit frmUtilizatori(QWidget* parent = nullptr);
  ~frmUtilizatori() override;

  Adodc* datPrimaryRS;
  DataGrid* grdDataGrid;
  QGroupBox* fraInput;
  TextBox* txtNume;
  TextBox* txtParola;
  QComboBox* cboTip;
  QPushButton* cmdAdauga;
  QPushButton* cmdSterge;
  QPushButton* cmdIesire;

 private:
  void Build();
  void BuildInput();
  void Form_Load();
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
