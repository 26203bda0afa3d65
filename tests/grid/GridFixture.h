// A grid over three assets, in a window.
#pragma once

#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/grid/extTDBGrid.h"
#include "tests/TestCompany.h"

namespace tevra::test {

class Grid : public ::testing::Test {
 protected:
  Grid() {
    company_.AddAsset({{"COD", "b"},
                       {"DENUMIRE", "Strung"},
                       {"VAL_CUMP", 1234.5},
                       {"COTA_ANUALA", 0.125},
                       {"DATA_ACH", DateTime(2026, 3, 14)},
                       {"BLOCATA", Value::YesNo(true)}});
    company_.AddAsset({{"COD", "A"}, {"DENUMIRE", "Freza"}, {"VAL_CUMP", 7.0}});
    company_.AddAsset({{"COD", "c"}, {"DENUMIRE", "Freza"}, {"VAL_CUMP", 9.0}});
    source_.SetConnectionString(company_.ConnectionString());
    source_.SetRecordSource("select * from I_IMO order by NRCRT");
    SetUpColumns(grid_);
    grid_.SetDataSource(&source_);
    sorter_.SetTDBGridName("TDBGrid1");
    source_.Refresh();
    window_.resize(700, 300);
    grid_.resize(700, 300);
    window_.show();
  }
  static void SetUpColumns(DataGrid& grid) {
    grid.SetColumns({{"Nr. inv.", "COD"},
                     {"Denumire", "DENUMIRE"},
                     {"Valoare Lei", "VAL_CUMP", "Standard"},
                     {"Cota anuala", "COTA_ANUALA", "Percent"},
                     {"Data cumparare", "DATA_ACH"},
                     {"Blocata", "BLOCATA", {}, {{0, "Nu"}, {-1, "Da"}}}});
  }
  QString Cell(int row, int column) {
    return grid_.View()->model()->index(row, column).data().toString();
  }
  Value Stored(const std::string& field, const char* cod) {
    return company_.Open().QueryValue("SELECT " + field + " FROM I_IMO WHERE COD = ?", {cod});
  }

  TestCompany company_;
  MessageRecorder messages_;
  QWidget window_;
  Adodc source_{"datPrimaryRS", &window_};
  DataGrid grid_{"TDBGrid1", &window_};
  extTDBGrid sorter_{&window_};
};

}  // namespace tevra::test
