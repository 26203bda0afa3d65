// The file of a branch, taken in by its centre.
#include <chrono>
#include <fstream>
#include <thread>

#include "exchange/ExchangeHeader.h"
#include "exchange/ImportFile.h"
#include "platform/text/Dates.h"
#include "session/Session.h"
#include "tests/KilledWrites.h"
#include "tests/exchange/ExchangeTest.h"
#include "tests/text/Expect.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

const DateTime kFrom(2006, 1, 1);
const DateTime kTo(2006, 12, 31);

template <typename Call>
std::string ToldBy(Call call) {
  const Refusal refusal = RefusalOf(call);
  return std::to_string(refusal.number) + ": " + refusal.text;
}

void Clear(Connection& company) {
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
  std::string Codes(const std::string& sql) const { return centre_.Rows(sql); }

  TestCompany branch_{"S1"};
  TestCompany centre_;
  std::string file_;
  mutable std::vector<std::string> refused_;
};

constexpr const char* kFirst =
    "7 1 01.01.2006 10 3   \n"
    "8 1 01.01.2006 10,1 1 I S1 \n"
    "8 2 01.01.2006 0 13 I S1 \n"
    "9 1 31.12.2006 0,2 9 I S1 \n"
    "10 1 31.12.2006 1  I S1 \n";

TEST_F(Import, AddsWhatIsNewAndTheLinesOfThePeriod) {
  const Imported imported = Take();
  ASSERT_EQ(imported.result, Imported::Result::kDone);
  EXPECT_EQ(Lines(), kFirst);
  EXPECT_EQ(Codes("SELECT CONT, TITLU, DEBITN, CODBUG, CREARE, SOLDN FROM Kv_PC ORDER BY CONT"),
            "6811 Al centrului     \n9 Cont nou 0   0 \n");
  EXPECT_EQ(Codes("SELECT COD, TITLU FROM Kv_CC ORDER BY COD"), "a Al centrului \nB Centru nou \n");
  EXPECT_EQ(Codes("SELECT COD, TITLU FROM Kv_Jur ORDER BY COD"),
            "JX Jurnal nou \nOD Al centrului \n");
  EXPECT_EQ(Codes("SELECT COD, NUME, ORAS FROM Kv_Ter ORDER BY COD"),
            "1 ALFA Iasi \n3 Beta Iasi \n9 same Iasi \n12  Iasi \n13 Gama Iasi \n");
  EXPECT_EQ(Codes("SELECT * FROM [Terti - Asocieri CS]"), "3 1 S1 \n4 13 S1 \n");
  const ImportChanges& changes = imported.changes;
  EXPECT_EQ(changes.accounts, (std::vector<NewCode>{{"9", "Cont nou"}}));
  EXPECT_EQ(changes.centres, (std::vector<NewCode>{{"B", "Centru nou"}}));
  EXPECT_EQ(changes.journals, (std::vector<NewCode>{{"JX", "Jurnal nou"}}));
  EXPECT_EQ(changes.parties,
            (std::vector<MatchedParty>{{3, "ALFA", 1, false}, {4, "Gama", 13, true}}));
  EXPECT_EQ(changes.lines, (LoadedLines{4, 0, 11.3, 11.3}));
  EXPECT_EQ(changes.replaced, 0);
}

TEST_F(Import, AnotherImportOfThePeriodReplacesTheLines) {
  ASSERT_EQ(Take().result, Imported::Result::kDone);
  Connection branch = branch_.Open();
  branch.Execute("UPDATE Kv_Linii SET DEBIT = 99 WHERE NDI = 2");
  branch.Execute("DELETE FROM Kv_Linii WHERE NDI = 3");
  // The branch's party takes another name: of one that the centre does not know, and of one that
  // has the branch's code at the centre too.
  branch.Execute("UPDATE Kv_Ter SET NUME = 'Delta' WHERE COD = 4");
  branch.Execute("UPDATE Kv_Ter SET NUME = 'Beta' WHERE COD = 3");
  Connection centre = centre_.Open();
  AddLine(centre, 20, 1, kTo, 3, Value());
  AddLine(centre, 21, 1, kTo, 3, "I");  // of another branch
  centre.Execute("UPDATE Kv_Linii SET CodSucursala = 'S2' WHERE NDI = 21");
  Send();
  const Imported imported = Take();
  ASSERT_EQ(imported.result, Imported::Result::kDone);
  EXPECT_EQ(imported.changes.replaced, 4);
  EXPECT_EQ(Lines(),
            "7 1 01.01.2006 10 3   \n"
            "20 1 31.12.2006 10 3   \n"
            "21 1 31.12.2006 10 3 I S2 \n"
            "22 1 01.01.2006 10,1 3 I S1 \n"
            "22 2 01.01.2006 0 14 I S1 \n"
            "23 1 31.12.2006 99 9 I S1 \n");
  EXPECT_EQ(Codes("SELECT * FROM [Terti - Asocieri CS]"), "3 1 S1 \n4 13 S1 \n4 14 S1 \n");
}

TEST_F(Import, APreviewChangesNothingAndIsWhatTheImportDoes) {
  const std::string before = Dump(centre_);
  const Imported preview = Take(true);
  EXPECT_EQ(preview.result, Imported::Result::kDone);
  EXPECT_EQ(Dump(centre_), before);
  Connection centre = centre_.Open();
  ImportRequest request = Request(file_);
  request.agreed = &preview.changes;
  AddParty(centre, 20, "Gama");  // meanwhile
  const std::string meanwhile = Dump(centre_);
  EXPECT_EQ(ImportFile(centre, request).result, Imported::Result::kChanged);
  EXPECT_EQ(Dump(centre_), meanwhile);
  centre.Execute("DELETE FROM Kv_Ter WHERE COD = 20");
  const Imported imported = ImportFile(centre, request);
  EXPECT_EQ(imported.result, Imported::Result::kDone);
  EXPECT_EQ(imported.changes, preview.changes);
}

TEST_F(Import, ReadsWhatOtherToolsWrite) {
  const std::string text = Content(file_);
  // Another prefix, other quotes, white space, the header behind the tables, another order of
  // attributes.
  std::string other = text.substr(text.find("<IE>"));
  const std::size_t header = other.find("<HEADER>");
  const std::size_t end = other.find("</HEADER>") + 9;
  const std::string moved = other.substr(header, end - header);
  other.erase(header, end - header);
  other.insert(other.find("</IE>"), "\n " + moved + "\n<!-- end -->");
  for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
           {"<z:", "<r:"},
           {"xmlns:z", "xmlns:r"},
           {"<Linii>", "<Linii>\n\t"},
           {"01.01.2006</DataInceput>", " 1/1/2006 </DataInceput>"},
           {"False", "Nu"},
           {"NDI='1' NRLINIE='2'", "NRLINIE=\"2\"\n NDI=\"1\""}}) {
    std::size_t at = other.find(from);
    ASSERT_NE(at, other.npos) << from;
    for (; at != other.npos; at = other.find(from, at + to.size())) {
      other.replace(at, from.size(), to);
    }
  }
  std::string wide = "\xFF\xFE";
  for (const char c : "<?xml version='1.0' encoding='UTF-16'?>" + other) (wide += c) += '\0';
  EXPECT_EQ(Take(WriteFile(centre_.Directory() / "utf16.xml", wide).string()).result,
            Imported::Result::kDone);
  EXPECT_EQ(Lines(), kFirst);
}

TEST_F(Import, RefusesAFileThatIsDamagedOrNotOurs) {
  const std::string before = Dump(centre_);
  const std::string whole = Content(file_);
  const fs::path cut = centre_.Directory() / "Cut.xml";
  for (std::size_t size = 0; size < whole.size(); size += 1024) {
    WriteFile(cut, whole.substr(0, size));
    EXPECT_EQ(DescriptionOf([&] { LoadExchange(cut.string()); }).substr(0, 15), "Cut.xml, linia ")
        << size;
  }
  std::string deep = "<IE>";
  for (int i = 0; i < 100000; ++i) deep += "<a>";
  const std::string bomb =
      "<!DOCTYPE IE [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]><IE>&b;</IE>";
  for (const std::string& text : {deep, bomb, "<!DOCTYPE IE>" + whole, std::string("no XML")}) {
    WriteFile(cut, text);
    EXPECT_EQ(FailureOf([&] { LoadExchange(cut.string()); }), kDatabaseNotOpened);
  }
  EXPECT_EQ(FailureOf([&] { LoadExchange((centre_.Directory() / "gone").string()); }),
            kFileNotFound);
  EXPECT_EQ(Dump(centre_), before);
}

TEST_F(Import, RefusesAHeaderThatCannotBeRead) {
  const auto told = [this](const char* from, const char* to) {
    const std::string file = Changed(from, to);
    return ToldBy([&] { (void)GetXMLHeader(LoadExchange(file), file); });
  };
  EXPECT_EQ(told("01.01.2006</DataInceput>", "31.02.2006</DataInceput>"),
            "13: Type mismatch: 31.02.2006 (Changed.xml, IE/HEADER/DataInceput)");
  EXPECT_EQ(told("31.12.2006</DataSfarsit>", "12/31/2006</DataSfarsit>"),
            "13: Type mismatch: 12/31/2006 (Changed.xml, IE/HEADER/DataSfarsit)");
  EXPECT_EQ(told(">S1<", ">ABC<"),
            "-2147217887: Valoare neacceptata: ABC, in loc de una sau doua litere sau cifre "
            "(Changed.xml, IE/HEADER/CodCC)");
  EXPECT_EQ(told(">False<", ">poate<"),
            "13: Type mismatch: poate (Changed.xml, IE/HEADER/EsteCentru)");
  EXPECT_EQ(told("DataInceput>", "Data>"),
            "-2147467259: Lipseste un element (Changed.xml, IE/HEADER/DataInceput)");
  ExchangeHeader own;
  own.code = "01";
  EXPECT_EQ(OwnFileText(own),
            "Sucursala cu codul 01 este sociatatea pe care lucrati acum, nu puteti face import");
}

TEST_F(Import, ARowThatCannotBeTakenChangesNothing) {
  const std::string before = Dump(centre_);
  const std::string longName(41, 'x');
  for (const auto& [from, to, text] : std::vector<std::array<std::string, 3>>{
           {"DATAINR='2006-01-01T00:00:00'", "DATAINR='2006-02-31T00:00:00'", "DATAINR: Type"},
           {"DEBIT='10.1'", "DEBIT='10,1'", "DEBIT: Type mismatch: 10,1"},
           {"NUME='Gama'", "NUME='" + longName + "'", "NUME: Type mismatch"},
           {"dt:maxLength='40'", "dt:maxLength='50' x='" + longName + "'", ""},
           {"<z:row NDI='1' NRLINIE='1'", "<rs:delete/><z:row NDI='1' NRLINIE='1'", "rs:delete"},
           {"Jurnale>", "XX>", "lipseste IE/Tables/Jurnale"},
           {"PlanConturi>", "Terti>", "Terti apare de doua ori"},
           {"NDI='3' NRLINIE='1'", "NDI='2' NRLINIE='1'", "exista deja in tabela"},
           {"name='JURNAL'", "name='JURNALE'", "Item not found: tmp_Linii.JURNALE"}}) {
    const std::string file = Changed(from, to);
    if (text.empty()) {
      EXPECT_EQ(Take(file, true).result, Imported::Result::kDone);
    } else {
      const std::string told = DescriptionOf([&] { Take(file); });
      EXPECT_NE(told.find(text), told.npos) << told;
    }
    EXPECT_EQ(Dump(centre_), before) << text;
  }
  // A schema that allows more than the company's field.
  std::string wide = Content(Changed("NUME='Gama'", "NUME='" + longName + "'"));
  const std::size_t at = wide.find("dt:maxLength='40'", wide.find("rs:basecolumn='NUME'"));
  ASSERT_NE(at, wide.npos);
  wide.replace(at, 17, "dt:maxLength='90'");
  const std::string file = WriteFile(centre_.Directory() / "Wide.xml", wide).string();
  const std::string told = ToldBy([&] { Take(file); });
  EXPECT_EQ(told.substr(0, 29), "-2147217887: Wide.xml, linia ") << told;
  EXPECT_NE(told.find("NUME"), told.npos);
  EXPECT_EQ(Dump(centre_), before);
}

TEST_F(Import, AnotherStructureIsRefusedByTable) {
  Connection centre = centre_.Open();
  centre.Execute("ALTER TABLE tmp_CC ADD COLUMN X TEXT(5)");
  const std::string before = Dump(centre_);
  ImportRequest request = Request(file_);
  std::string failed;
  request.load.run = [&](const char* procedure, const std::string&, const auto& step) {
    const bool done = RefusalOf(step).number == 0;
    if (!done) failed += procedure + std::string(" ");
    return done;
  };
  EXPECT_EQ(ImportFile(centre, request).result, Imported::Result::kFailed);
  EXPECT_EQ(failed, "PrelCentreCost ");  // each step runs whatever the one before returned
  EXPECT_EQ(refused_, std::vector<std::string>{
                          "Versiunile dintre bazele de date de Export si Import sunt diferite, nu "
                          "am putut importa: Kv_CC"});
  EXPECT_EQ(Dump(centre_), before);
}

TEST_F(Import, AThirdPartysCodeEndsAt32767) {
  Connection centre = centre_.Open();
  centre.Execute("UPDATE Kv_Ter SET COD = 32766 WHERE COD = 12");
  EXPECT_EQ(Take(true).result, Imported::Result::kDone);
  centre.Execute("UPDATE Kv_Ter SET COD = 32767 WHERE COD = 32766");
  const std::string before = Dump(centre_);
  EXPECT_EQ(FailureOf([&] { Take(); }), kOverflow);
  EXPECT_EQ(Dump(centre_), before);
}

TEST_F(Import, ACentreSendsNoLines) {
  const std::string lines = Lines();
  EXPECT_EQ(Take(Changed("False", "True")).result, Imported::Result::kDone);
  EXPECT_EQ(Lines(), lines);
  EXPECT_EQ(Codes("SELECT COUNT(*) FROM Kv_CC"), "2 \n");
}

TEST_F(Import, ASecondImportWaitsForTheFirst) {
  const auto start = std::chrono::steady_clock::now();
  Connection first = centre_.Open();
  first.BeginTrans();
  std::thread second([this] { EXPECT_EQ(Take().result, Imported::Result::kDone); });
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  first.RollbackTrans();
  second.join();
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
  EXPECT_EQ(Lines(), kFirst);
}

TEST_F(Import, WhatIsDoneBeforehandCanRefuse) {
  const std::string before = Dump(centre_);
  int called = 0;
  SetBeforeImport([&] {
    ++called;
    throw Failure(kDiskFull, "fara loc");
  });
  EXPECT_EQ(Take(true).result, Imported::Result::kDone);
  EXPECT_EQ(FailureOf([&] { Take(); }), kDiskFull);
  SetBeforeImport({});
  EXPECT_EQ(called, 1);
  EXPECT_EQ(Dump(centre_), before);
}

TEST_F(Import, AKilledImportLeavesTheOldOrTheNewState) {
  const auto work = [this] { Take(); };
  const std::string before = Dump(centre_);
  const fs::path kept = centre_.Directory() / "kept";
  fs::copy_file(centre_.File(), kept);
  const auto reset = [&] {
    fs::copy_file(kept, centre_.File(), fs::copy_options::overwrite_existing);
  };
  WriteCounter counter;
  const int writes = counter.WritesOf(work);
  const std::string after = Dump(centre_);
  EXPECT_NE(after, before);
  reset();
  for (int at = 1; at <= writes; ++at) {
    ASSERT_TRUE(counter.KilledIn(at, work)) << at;
    const std::string now = Dump(centre_);
    EXPECT_TRUE(now == before || now == after) << at;
    EXPECT_EQ(centre_.Open().QueryValue("SELECT COUNT(*) FROM Kv_Linii WHERE CodIE = 'I'").AsLong(),
              now == before ? 0 : 4);
    reset();
  }
}

}  // namespace
}  // namespace tevra::test
