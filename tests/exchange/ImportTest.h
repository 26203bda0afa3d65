// A branch with a file for its centre, and the centre.
#pragma once

#include "exchange/ExchangeHeader.h"
#include "exchange/ImportFile.h"
#include "tests/exchange/ExchangeTest.h"

namespace tevra::test {

inline const DateTime kFrom(2006, 1, 1);
inline const DateTime kTo(2006, 12, 31);

inline void Clear(Connection& company) {
  for (const char* table : {"Kv_PC", "Kv_CC", "Kv_Jur"}) {
    company.Execute(std::string("DELETE FROM ") + table);
  }
}

class Import : public ::testing::Test {
 protected:
  Import() {
    Connection branch = branch_.Open();
    Clear(branch);
    branch.Execute(
        "INSERT INTO Kv_PC (CONT, TITLU, DEBITN, CODBUG, CREARE, SOLDN) VALUES "
        "('6811', 'Al sucursalei', 5, 'A', 'x', 7), ('9', 'Cont nou', 5, 'A', 'x', 7)");
    branch.Execute("INSERT INTO Kv_CC (COD, TITLU) VALUES ('A', 'Altul'), ('B', 'Centru nou')");
    branch.Execute("INSERT INTO Kv_Jur (COD, TITLU) VALUES ('OD', 'Altul'), ('JX', 'Jurnal nou')");
    AddParty(branch, 3, "alfa");
    AddParty(branch, 4, "Gama");
    AddParty(branch, 9, "Same");
    AddLine(branch, 1, 1, kFrom, 3, Value(), 10.1, 0);
    AddLine(branch, 1, 2, kFrom, 4, Value(), 0, 10.1);
    AddLine(branch, 2, 1, kTo, 9, "E", 0.2, 0.2);
    AddLine(branch, 3, 1, kTo, Value(), Value(), 1, 1);
    AddLine(branch, 4, 1, kTo, 3, "I");
    AddLine(branch, 5, 1, kTo.AddDays(1), 3, Value());

    Connection centre = centre_.Open();
    Clear(centre);
    centre.Execute("INSERT INTO Kv_PC (CONT, TITLU) VALUES ('6811', 'Al centrului')");
    centre.Execute("INSERT INTO Kv_CC (COD, TITLU) VALUES ('a', 'Al centrului')");
    centre.Execute("INSERT INTO Kv_Jur (COD, TITLU) VALUES ('OD', 'Al centrului')");
    AddParty(centre, 3, "Beta");
    AddParty(centre, 1, "ALFA");
    AddParty(centre, 9, "same");
    AddParty(centre, 12, Value());
    AddLine(centre, 7, 1, kFrom, 3, Value());
    Send();
  }
  ~Import() override { clock::Reset(); }

  // Exports the branch anew; the session is the centre's afterwards.
  void Send() {
    branch_.LogIn();
    clock::Set(clock::Now().AddDays(1));
    Connection branch = branch_.Open();
    ExportRequest request;
    request.from = kFrom;
    request.to = kTo;
    request.again = true;
    file_ = GenerateXML(branch, request).file.string();
    centre_.LogIn();
  }

  ImportRequest Request(const std::string& file) const {
    ImportRequest request;
    request.load.file = file;
    request.load.header = GetXMLHeader(LoadExchange(file), file);
    request.load.refuse = [this](const std::string& text) { refused_.push_back(text); };
    return request;
  }
  Imported Take(bool dryRun = false) { return Take(file_, dryRun); }
  Imported Take(const std::string& file, bool dryRun = false) {
    Connection centre = centre_.Open();
    ImportRequest request = Request(file);
    request.dryRun = dryRun;
    return ImportFile(centre, request);
  }

  // The file with one text for another, every time that it occurs.
  std::string Changed(const std::string& from, const std::string& to) const {
    std::string text = Content(file_);
    EXPECT_NE(text.find(from), text.npos) << from;
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + to.size())) {
      text.replace(at, from.size(), to);
    }
    return WriteFile(centre_.Directory() / "Changed.xml", text).string();
  }

  std::string Lines() const {
    return centre_.Rows(
        "SELECT NDI, NRLINIE, DATAINR, DEBIT, TERT, CodIE, CodSucursala FROM Kv_Linii ORDER BY "
        "NDI, NRLINIE");
  }

  TestCompany branch_{"S1"};
  TestCompany centre_;
  std::string file_;
  mutable std::vector<std::string> refused_;
};

}  // namespace tevra::test
