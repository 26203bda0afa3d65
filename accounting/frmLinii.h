// The query of accounting lines.
#pragma once

#include "platform/screens/ListScreen.h"
#include "platform/where/WhereBuilder.h"

namespace tevra {

/// The lines of all notes: search by conditions, sort, totals, listing, deletion of a whole note.
class frmLinii : public ListScreen {
 public:
  explicit frmLinii(QWidget* parent = nullptr);

  DataGrid* TDBGrid1;
  tevra::WhereBuilder* WhereBuilder;
  QLabel* lblNoInreg;
  QPushButton* cmdDelete;
  QPushButton* cmdListare;
  QPushButton* cmdClose;

  /// Shows the sums of the rows below their columns; of no rows none.
  void GetTotal();

 private:
  ListDescription Describe();
  std::vector<ListButton> Buttons();
  void GetFieldsProperties();
  void Reopen(const std::string& statement, const WhereClause& clause);
  void cmdCauta_Click(Procedure& running) override;
  void cmdDelete_Click(Procedure& running);
  void cmdListare_Click(Procedure& running);
  bool RunAs(const char* procedure, const char* form, const Body& body);

  WhereClause shown_;  // the conditions of the rows on show
};

}  // namespace tevra
