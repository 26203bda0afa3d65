// A company with some data, and the whole content of a company file as text.
#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/data/Catalogue.h"
#include "platform/data/Recordset.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra::test {

/// All rows of all tables, each in the order of its row ids.
inline std::string Dump(Connection company) {
  std::string text;
  for (const TableDef& table : Catalogue(company).Tables()) {
    text += "== " + table.name + "\n";
    Recordset rows = company.OpenRecordset("SELECT * FROM [" + table.name + "]");
    for (; !rows.Eof(); rows.MoveNext()) {
      for (std::size_t i = 0; i < rows.FieldCount(); ++i) text += rows.Get(i).TextOrEmpty() + "|";
      text += "\n";
    }
  }
  return text;
}

inline std::string Dump(const std::filesystem::path& file) {
  return Dump(Connection("Data Source=" + file.string() + ";Mode=Read;PWD=" + kFilePassword));
}

class CareTest : public ::testing::Test {
 protected:
  CareTest() {
    CurrentSession().companyName = "Firma Veche SRL";
    Execute("UPDATE kv_info SET DENUMIRE = 'Firma Veche SRL', CODFISCAL = 'RO 12'");
    company_.AddAsset({{"COD", "100"}, {"DENUMIRE", "Strung"}, {"VAL_CUMP", 1500.25}});
  }
  void Execute(const std::string& sql) const { company_.Open().Execute(sql); }
  std::filesystem::path Folder() const { return company_.Directory(); }
  std::filesystem::path File() const { return company_.File(); }
  std::string Codes() const { return company_.Rows("SELECT COD FROM I_IMO ORDER BY NRCRT"); }

  TestCompany company_;
};

}  // namespace tevra::test
