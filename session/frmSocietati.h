// The registry of companies: adding and deleting them.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <optional>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/grid/DataGrid.h"
#include "session/CompanyRegistry.h"

namespace tevra {

class frmSocietati : public Form {
 public:
  explicit frmSocietati(QWidget* parent = nullptr);
  ~frmSocietati() override;

  DataGrid* TDBGrid1;
  QGroupBox* fraInput;
  TextBox* txtCod;
  TextBox* txtDenumire;
  QPushButton* cmdAdauga;
  QPushButton* cmdSterge;
  QPushButton* cmdIesire;

 protected:
  void Form_Unload() override;

 private:
  void Build();
  void Form_Load();
  void cmdAdauga_Click();
  void cmdSterge_Click();
  bool ExistaCodSocietate(const std::string& code) const;
  void ShowRegistry(const std::string& code);
  Company Selected() const;

  std::optional<CompanyRegistry> registry_;
  Adodc* source_;
};

}  // namespace tevra
