// The document that a branch writes for its centre, and the marks that go with it.
#include <fstream>
#include <set>
#include <string_view>

#include "platform/rowset/RowsetReader.h"
#include "platform/text/Dates.h"
#include "session/CompanySettings.h"
#include "session/Session.h"
#include "tests/KilledWrites.h"
#include "tests/exchange/ExchangeTest.h"
#include "tests/system/FileSizeLimit.h"
#include "tests/text/Expect.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

constexpr const char* kName = "Export31.12.2006 - 14.05.09.xml";
const DateTime kFrom(2006, 1, 1);
const DateTime kTo(2006, 12, 31);

class Export : public ::testing::Test {
 protected:
  Export() {
    clock::Set(DateTime(2006, 12, 31, 14, 5, 9));
    Connection file = company_.Open();
    file.Execute("DELETE FROM Kv_PC");
    file.Execute("DELETE FROM Kv_CC");
    file.Execute("DELETE FROM Kv_Jur");
    file.Execute(
        "INSERT INTO Kv_PC (CONT, TITLU, DEBITN) VALUES ('6811', 'Amortiz. < & \"x\"', 1.5)");
    AddParty(file, 7, "O'Neill");
    AddLine(file, 1, 1, kFrom, 7, Value(), 0.1);
    AddLine(file, 1, 2, kTo, Value(), "E");
    AddLine(file, 2, 1, kTo, 7, "I");
    AddLine(file, 3, 1, kFrom.AddDays(-1), 7, Value());
    AddLine(file, 4, 1, kTo.AddDays(1), 7, Value());
  }
  ~Export() override { clock::Reset(); }

  Exported Write(bool again = true) {
    Connection company = company_.Open();
    ExportRequest request;
    request.from = kFrom;
    request.to = kTo;
    request.again = again;
    return GenerateXML(company, request);
  }
  std::string Marks() const {
    return company_.Rows("SELECT NDI, NRLINIE, CodIE FROM Kv_Linii ORDER BY NDI, NRLINIE");
  }
  void ExpectNothingDone(const std::string& marks) const {
    EXPECT_EQ(Marks(), marks);
    EXPECT_EQ(ExportsIn(company_), std::vector<std::string>{});
  }

  TestCompany company_;
};

std::string RowsOf(RowsetReader rows) {
  std::string all = "[" + std::to_string(rows.Fields().size()) + "]";
  for (Values values; rows.Next(values); all += "; ") {
    for (const Value& value : values) all += value.IsNull() ? "" : value.AsText() + " ";
  }
  return all;
}

// The elements of the document: texts, and of rowsets the number of columns and the rows.
std::string Outline(XmlReader& xml, int depth = 0) {
  static const std::set<std::string_view> kTexts{"CodCC", "DataInceput", "DataSfarsit",
                                                 "TipPlanCont", "EsteCentru"};
  std::string all;
  while (xml.NextChild(depth)) {
    const std::string name(xml.Name());
    all += name + "(";
    all += name == "xml"        ? RowsOf(RowsetReader(xml))
           : kTexts.count(name) ? xml.Text()
                                : Outline(xml, depth + 1);
    all += ") ";
  }
  return all;
}

TEST_F(Export, TheDocumentHoldsHeaderTablesAndThePeriodsOwnLines) {
  const Exported done = Write();
  ASSERT_EQ(done.result, Exported::Result::kDone);
  EXPECT_EQ(done.file, company_.Directory() / "Export" / "01" / kName);
  EXPECT_EQ(ExportsIn(company_), std::vector<std::string>{kName});
  const std::string content = Content(done.file);
  EXPECT_EQ(
      content.find("<?xml version='1.0' ?><IE><HEADER><CodCC>01</CodCC><DataInceput>01.01.2006"
                   "</DataInceput><DataSfarsit>31.12.2006</DataSfarsit><TipPlanCont>0"
                   "</TipPlanCont><EsteCentru>False</EsteCentru></HEADER><Tables><Terti><xml "),
      0U);
  std::ifstream in(done.file, std::ios::binary);
  XmlReader xml(in, "Export.xml");
  EXPECT_EQ(Outline(xml),
            "HEADER(CodCC(01) DataInceput(01.01.2006) DataSfarsit(31.12.2006) TipPlanCont(0) "
            "EsteCentru(False) ) Tables(Terti(xml([28]7 O'Neill Iasi RO ; ) ) "
            "PlanConturi(xml([9]6811 Amortiz. < & \"x\" 1,5 ; ) ) "
            "Linii(xml([31]1 1 OD 01.01.2006 6811 0,1 0 7 ; 1 2 OD 31.12.2006 6811 10 0 E ; ) ) "
            "CC(xml([3]) ) Jurnale(xml([9]) ) ) ");
  xml.Finish();
  EXPECT_EQ(Marks(), "1 1 E \n1 2 E \n2 1 I \n3 1  \n4 1  \n");
}

TEST_F(Export, ASecondExportOfThePeriodNeedsConsent) {
  const std::string marks = Marks();
  EXPECT_EQ(Write(false).result, Exported::Result::kBefore);
  ExpectNothingDone(marks);
  const Exported first = Write();
  const std::string content = Content(first.file);
  clock::Set(DateTime(2006, 12, 31, 14, 5, 10));
  const Exported second = Write();
  EXPECT_NE(first.file, second.file);
  EXPECT_EQ(second.rows, first.rows);
  // The lines are marked by now.
  EXPECT_EQ(Content(second.file).size(), content.size() + std::string(" CodIE='E'").size());
  EXPECT_EQ(Write().file, second.file);  // of the same second
  EXPECT_EQ(ExportsIn(company_).size(), 2U);
  company_.Open().Execute("DELETE FROM Kv_Linii");
  EXPECT_EQ(Write(false).rows.at("Linii"), 0);
}

TEST_F(Export, AFailureLeavesNoFileAndNoMark) {
  const std::string marks = Marks();
  Connection file = company_.Open();
  file.Execute("CREATE TRIGGER x BEFORE UPDATE ON Kv_Linii BEGIN SELECT RAISE(ABORT, 'gata'); END");
  EXPECT_NE(DescriptionOf([&] { Write(); }).find("gata"), std::string::npos);
  file.Execute("DROP TRIGGER x");
  ExpectNothingDone(marks);
  {
    const FileSizeLimit full(5000);
    EXPECT_EQ(FailureOf([&] { Write(); }), kDiskFull);
  }
  ExpectNothingDone(marks);
  fs::permissions(ExportFolder(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(FailureOf([&] { Write(); }), kPermissionDenied);
  fs::permissions(ExportFolder(), fs::perms::owner_all);
  ExpectNothingDone(marks);
  fs::remove_all(ExportRoot());
  WriteFile(ExportRoot(), "no folder");
  EXPECT_EQ(FailureOf([&] { Write(); }), kPathNotFound);
  fs::remove(ExportRoot());
  EXPECT_EQ(Marks(), marks);
  // A text that no XML file can hold names its field.
  file.Execute("UPDATE Kv_Ter SET FAMILIE = 'a' || char(1)");
  EXPECT_EQ(DescriptionOf([&] { Write(); }).substr(0, 8), "FAMILIE:");
  ExpectNothingDone(marks);
}

// Something in the way of the final name.
TEST_F(Export, AMarkedFileThatCannotBeRenamedWaitsForTheNextOpening) {
  const fs::path blocked = WriteFile(ExportFolder() / kName / "x", "in the way").parent_path();
  EXPECT_NE(FailureOf([&] { Write(); }), 0);
  EXPECT_EQ(Marks().substr(0, 8), "1 1 E \n1");
  fs::remove_all(blocked);
  SettleExportAtOpening();
  EXPECT_EQ(ExportsIn(company_), std::vector<std::string>{kName});
}

TEST_F(Export, GivingUpLeavesNoFileAndNoMark) {
  Connection company = company_.Open();
  for (int line = 1; line <= 600; ++line) AddLine(company, 9, line, kFrom, 7, Value());
  const std::string marks = Marks();
  ExportRequest request;
  request.from = kFrom;
  request.to = kTo;
  request.again = true;
  int asked = 0;
  request.progress = [&](int, int) { return ++asked < 2; };
  EXPECT_EQ(GenerateXML(company, request).result, Exported::Result::kStopped);
  EXPECT_EQ(asked, 2);
  ExpectNothingDone(marks);
}

// Every write of the engine, and the moment between commit and renaming.
TEST_F(Export, AKilledExportLeavesTheOldOrTheNewState) {
  const auto work = [&] { Write(); };
  const auto reset = [&] {
    company_.Open().Execute("UPDATE Kv_Linii SET CodIE = NULL WHERE NDI = 1");
    fs::remove_all(ExportRoot());
  };
  company_.Open();
  work();
  reset();
  WriteCounter counter;
  const int writes = counter.WritesOf(work);
  reset();
  int kept = 0;
  for (int at = 1; at <= writes; ++at) {
    ASSERT_TRUE(counter.KilledIn(at, work)) << at;
    SettleExportAtOpening();
    const bool marked = company_.Rows("SELECT COUNT(*) FROM Kv_Linii WHERE CodIE = 'E'") == "2 \n";
    const auto files = ExportsIn(company_);
    EXPECT_EQ(files, marked ? std::vector<std::string>{kName} : std::vector<std::string>{}) << at;
    if (marked) {
      std::ifstream in(ExportFolder() / kName, std::ios::binary);
      XmlReader(in, "Export.xml").Finish();
    }
    kept += marked;
    reset();
  }
  EXPECT_GT(kept, 0);
  EXPECT_LT(kept, writes);
}

TEST_F(Export, TheNextOpeningFinishesARecordedFileAndRemovesAnother) {
  Write();
  const fs::path folder = ExportFolder();
  const std::string other = "Export01.01.2007 - 00.00.00.xml";
  const auto leave = [&] {
    for (const std::string& name : {std::string(kName), other}) {
      WriteFile(folder / (name + ".tmp"), "left by a crash");
    }
    fs::remove(folder / kName);
  };
  WriteFile(folder / "notes.tmp", "of the user");
  leave();
  Connection file = company_.Open();
  SetText(file, CompanyText::kPendingExport, kName);
  SettleExportAtOpening();
  EXPECT_EQ(NamesIn(folder), (std::vector<std::string>{kName, "notes.tmp"}));
  EXPECT_EQ(TextOf(file, CompanyText::kPendingExport), "");
  leave();
  {
    Transaction exporting(file);  // its temporary file is not that of a crash
    SettleExportAtOpening();
    EXPECT_EQ(NamesIn(folder).size(), 3U);
  }
  SettleExportAtOpening();
  EXPECT_EQ(NamesIn(folder), std::vector<std::string>{"notes.tmp"});
}

}  // namespace
}  // namespace tevra::test
