// Companies with some data to exchange.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "exchange/ExportFile.h"
#include "exchange/PendingExport.h"
#include "platform/system/Clock.h"
#include "tests/TestCompany.h"

namespace tevra::test {

/// A line of a note; the other fields are Null.
inline void AddLine(Connection& company, int note, int line, const DateTime& day,
                    const Value& party, const Value& mark, double debit = 10, double credit = 0) {
  company.Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT, TERT, CodIE) "
      "VALUES (?, ?, 'OD', ?, '6811', ?, ?, ?, ?)",
      {note, line, day, debit, credit, party, mark});
}

inline void AddParty(Connection& company, int code, const Value& name) {
  company.Execute("INSERT INTO Kv_Ter (COD, NUME, ORAS) VALUES (?, ?, 'Iasi')", {code, name});
}

/// All tables, the ones that an exchange changes and the one with its record.
inline std::string Dump(const TestCompany& company) {
  std::string all;
  for (const char* table : {"Kv_Ter", "Kv_PC", "Kv_CC", "Kv_Jur", "[Terti - Asocieri CS]",
                            "tmp_Ter", "tmp_PC", "tmp_Linii", "tmp_CC", "tmp_Jurnale"}) {
    all += std::string(table) + "\n" + company.Rows(std::string("SELECT * FROM ") + table);
  }
  return all + company.Rows("SELECT * FROM Kv_Linii ORDER BY NDI, NRLINIE");
}

/// The files in the company's export folder.
inline std::vector<std::string> ExportsIn(const TestCompany& company) {
  company.LogIn();
  if (!std::filesystem::exists(ExportFolder())) return {};
  return NamesIn(ExportFolder());
}

}  // namespace tevra::test
