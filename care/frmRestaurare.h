// The screen that puts a backup in the place of the company's file.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <filesystem>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"

namespace tevra {

class frmRestaurare : public Form {
 public:
  explicit frmRestaurare(QWidget* parent = nullptr);

  TextBox* txtDirector;     ///< the folder of the backups
  TextBox* txtSourceSpec1;  ///< the backup
  QPushButton* cmdGetSourceSpec1;
  QLabel* lblContinut;     ///< what the chosen file contains, or why it cannot be restored
  QLabel* lblProgressMsg;  ///< shown during the copy
  QPushButton* cmdOK;
  QPushButton* cmdIesire;

 private:
  void Build();
  QLayout* BuildBoxes();
  QLayout* BuildButtons();
  void cmdGetSourceSpec1_Click(Procedure& procedure);
  void cmdOK_Click(Procedure& procedure);
  std::filesystem::path Chosen() const;
  void ShowContent();
  bool MayReplace(const std::filesystem::path& backup) const;
  bool Restore(const std::filesystem::path& backup);
};

}  // namespace tevra
