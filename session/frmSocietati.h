// The list of companies, with adding and deleting.
#pragma once

#include <QGroupBox>
#include <optional>

#include "platform/screens/ListScreen.h"
#include "session/CompanyRegistry.h"

namespace tevra {

class frmSocietati : public ListScreen {
 public:
  explicit frmSocietati(QWidget* parent = nullptr);

  DataGrid* TDBGrid1;
  QGroupBox* fraInput;
  TextBox* txtCod;
  TextBox* txtDenumire;
  QPushButton* cmdAdauga;
  QPushButton* cmdSterge;
  QPushButton* cmdIesire;

 protected:
  void ReadRows() override;
  void Form_Unload() override;

 private:
  void BuildInput();
  ListDescription Describe();
  bool TDBGrid1_BeforeColUpdate(const QString& text);
  void cmdAdauga_Click();
  void cmdSterge_Click();
  bool ExistaCodSocietate(const std::string& code) const;
  void ShowRegistry(const std::string& code);
  Company Selected() const;

  std::optional<CompanyRegistry> registry_;
};

}  // namespace tevra
