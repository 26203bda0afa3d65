// The file of a branch, taken in by its centre.
#include "tests/exchange/ImportTest.h"

#include <chrono>
#include <thread>

#include "exchange/ChangesText.h"
#include "tests/KilledWrites.h"
#include "tests/data/Damage.h"
#include "tests/text/Expect.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

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
  EXPECT_EQ(
      centre_.Rows("SELECT CONT, TITLU, DEBITN, CODBUG, CREARE, SOLDN FROM Kv_PC ORDER BY CONT"),
      "6811 Al centrului     \n9 Cont nou 0   0 \n");
  EXPECT_EQ(centre_.Rows("SELECT COD, TITLU FROM Kv_CC ORDER BY COD"),
            "a Al centrului \nB Centru nou \n");
  EXPECT_EQ(centre_.Rows("SELECT COD, TITLU FROM Kv_Jur ORDER BY COD"),
            "JX Jurnal nou \nOD Al centrului \n");
  EXPECT_EQ(centre_.Rows("SELECT COD, NUME, ORAS FROM Kv_Ter ORDER BY COD"),
            "1 ALFA Iasi \n3 Beta Iasi \n9 same Iasi \n12  Iasi \n13 Gama Iasi \n");
  EXPECT_EQ(centre_.Rows("SELECT * FROM [Terti - Asocieri CS]"), "3 1 S1 \n4 13 S1 \n");
  const ImportChanges& changes = imported.changes;
  EXPECT_EQ(changes.accounts, (std::vector<NewCode>{{"9", "Cont nou"}}));
  EXPECT_EQ(changes.centres, (std::vector<NewCode>{{"B", "Centru nou"}}));
  EXPECT_EQ(changes.journals, (std::vector<NewCode>{{"JX", "Jurnal nou"}}));
  EXPECT_EQ(changes.parties,
            (std::vector<MatchedParty>{{3, "ALFA", 1, false}, {4, "Gama", 13, true}}));
  EXPECT_EQ(changes.lines, (LoadedLines{4, 0, 11.3, 11.3}));
  EXPECT_EQ(changes.replaced, 0);
}

TEST_F(Import, WarnsOfWhatLooksWrong) {
  ImportChanges changes;
  changes.lines = {2, 0, 0.1 + 0.2, 0.3};
  EXPECT_TRUE(ImportWarnings(changes).empty());
  changes.lines = Take(Changed("DEBIT='10.1'", "DEBIT='10.2'"), true).changes.lines;
  EXPECT_EQ(changes.lines, (LoadedLines{4, 0, 11.4, 11.3}));
  EXPECT_EQ(LinesText(changes), "4 linii noi, 0 linii inlocuite; debit 11,40, credit 11,30");
  EXPECT_EQ(ImportWarnings(changes),
            (std::vector<std::string>{"Suma debitelor difera de suma creditelor."}));
  changes.lines = Take(Changed("31.12.2006<", "30.12.2006<"), true).changes.lines;
  changes.nameless = 1;
  EXPECT_EQ(ImportWarnings(changes),
            (std::vector<std::string>{
                "2 linii sunt in afara perioadei din antet; un nou import nu le va inlocui.",
                "1 tert fara nume nu se poate asocia; liniile pastreaza codul sucursalei."}));
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
  EXPECT_EQ(centre_.Rows("SELECT * FROM [Terti - Asocieri CS]"), "3 1 S1 \n4 13 S1 \n4 14 S1 \n");
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

TEST_F(Import, NewNamesakesKeepTheirLinesApartAtFirst) {
  Connection branch = branch_.Open();
  AddParty(branch, 5, "Delta");   // 14 here
  AddParty(branch, 14, "Delta");  // 15
  AddLine(branch, 6, 1, kTo, 5, Value());
  AddLine(branch, 6, 2, kTo, 14, Value());
  branch.Execute("UPDATE Kv_Linii SET EXPL = '6' WHERE NDI = 6");
  Send();
  const auto parties = [this] {
    EXPECT_EQ(Take().result, Imported::Result::kDone);
    return centre_.Rows("SELECT TERT FROM Kv_Linii WHERE EXPL = '6' ORDER BY NRLINIE");
  };
  EXPECT_EQ(parties(), "14 \n15 \n");
  // The next time both names are found here, and the pair added last counts.
  EXPECT_EQ(parties(), "15 \n15 \n");
}

TEST_F(Import, AThirdPartyWithoutANameIsNewOnlyWhereNoneHasAName) {
  Connection branch = branch_.Open();
  AddParty(branch, 5, Value());
  Send();
  EXPECT_EQ(Take(true).changes.nameless, 1);
  const std::string parties = "SELECT COD FROM Kv_Ter WHERE NUME IS NULL ORDER BY COD";
  EXPECT_EQ(centre_.Rows(parties), "12 \n");
  centre_.Open().Execute("DELETE FROM Kv_Ter WHERE NUME IS NOT NULL");
  const Imported imported = Take();
  EXPECT_EQ(imported.changes.nameless, 0);
  EXPECT_EQ(imported.changes.parties.size(), 4U);
  EXPECT_EQ(centre_.Rows(parties), "12 \n15 \n");
}

TEST_F(Import, ACentreSendsNoLines) {
  const std::string lines = Lines();
  EXPECT_EQ(Take(Changed("False", "True")).result, Imported::Result::kDone);
  EXPECT_EQ(Lines(), lines);
  EXPECT_EQ(centre_.Rows("SELECT COUNT(*) FROM Kv_CC"), "2 \n");
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

TEST_F(Import, DamageThatIsFoundAtItsEndTakesItBack) {
  const std::string before = Lines();
  DamageTable(centre_.ConnectionString(), "I_CLASIFICARE");
  EXPECT_EQ(FailureOf([&] { Take(); }), kDatabaseNotOpened);
  EXPECT_EQ(Lines(), before);
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
