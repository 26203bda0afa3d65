// Reports from the command line, read back from their PDF files.
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "app/batch/Batch.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

class ReportTest : public BatchTest {
 protected:
  ReportTest() {
    company_.AddAsset({{"COD", "10"},
                       {"DENUMIRE", "Strung"},
                       {"CONT", "2131"},
                       {"DATA_ACH", DateTime(2026, 3, 14)},
                       {"DATA_CALCUL", DateTime(2026, 9, 30)},
                       {"VAL_CUMP", 12000.0},
                       {"VAL_CUMP_VAL", 2400.0},
                       {"VAL_RAMASA", 11000.0},
                       {"VAL_RAMASA_VAL", 2200.0},
                       {"COTAL_LUNARA", 0.01}});
    company_.Open().Execute(
        "INSERT INTO I_INV (COD, DENUMIRE, DATA_ACH, VAL_CUMP, PERS) VALUES ('i1', 'Scaun', "
        "'2026-05-01 00:00:00', 350, 'Ana')");
  }
  std::string Pdf() const { return (Directory() / "raport.pdf").string(); }
  // The report's text, or what was refused.
  std::string Report(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "report");
    arguments.insert(arguments.end(), {"--pdf", Pdf()});
    const Result result = RunAsAdmin(arguments);
    if (result.code != kDone) return result.err;
    EXPECT_EQ(result.out, Pdf() + ": 1 pagina\n");
    return OutputOf("pdftotext -layout '" + Pdf() + "' -");
  }
  static std::string OutputOf(const std::string& command) {
    FILE* reader = popen(command.c_str(), "r");
    std::string text;
    for (int c = fgetc(reader); c != EOF; c = fgetc(reader)) text += static_cast<char>(c);
    EXPECT_EQ(pclose(reader), 0) << command;
    return text;
  }
  static void ExpectIn(const std::string& text, std::initializer_list<const char*> parts) {
    for (const char* part : parts) EXPECT_NE(text.find(part), std::string::npos) << part << text;
  }
};

TEST_F(ReportTest, ChargesBearTheMonthOfTheLastCalculation) {
  ExpectIn(Report({"charges"}), {"Cheltuieli cu amortizarea", "Septembrie", "2026", "LEI", "Cont",
                                 "2131", "120", "Total general", "11.000", "Pagina 1 / 1"});
  ExpectIn(Report({"charges", "--by", "centre", "--currency", "EUR", "--date", "31.12.2025"}),
           {"Fixed Assets", "Decembrie", "2025", "EUR", "Strung", "General total", "2.200"});
  const std::string totals = Report({"charges", "--by", "class", "--no-detail"});
  ExpectIn(totals, {"Total cod", "11.000"});
  EXPECT_EQ(totals.find("Strung"), std::string::npos);
}

// One asset brought far ahead does not date the paper of all the others, and does not hide in it.
TEST_F(ReportTest, ThePaperIsOfTheMonthOfMostAssets) {
  const auto add = [&](const char* code, const DateTime& calculated, const char* method) {
    company_.AddAsset({{"COD", code},
                       {"TIP_AM", method},
                       {"DATA_CALCUL", calculated},
                       {"IESIRE", Value::YesNo(*code == 'v')}});
  };
  add("20", DateTime(2026, 9, 15), "L");
  add("30", DateTime(2027, 12, 31), "L");
  // Neither the one without depreciation nor those that were sold are dated by a run.
  add("40", DateTime(2025, 1, 31), "F");
  for (const char* sold : {"v1", "v2", "v3"}) add(sold, DateTime(2025, 1, 31), "L");
  ExpectIn(Report({"charges"}),
           {"Septembrie", "2026", "Atentie: 1 imobilizare este calculata pentru alta luna !"});
  ExpectIn(Report({"charges", "--currency", "USD"}),
           {"Attention: 1 asset was calculated for another month !"});
  EXPECT_EQ(RunAsAdmin({"report", "charges", "--date", "01.12.2027", "--pdf", Pdf()}).err,
            "Atentie: 2 imobilizari sunt calculate pentru alta luna !\n");
  add("50", DateTime(2027, 12, 1), "A");
  ExpectIn(Report({"charges"}), {"Decembrie", "2027", "Atentie: 2 imobilizari"});
  company_.Open().Execute("UPDATE I_IMO SET DATA_CALCUL = '2026-10-31 00:00:00'");
  const std::string paper = Report({"charges"});
  ExpectIn(paper, {"Octombrie"});
  EXPECT_EQ(paper.find("Atentie"), std::string::npos);
}

TEST_F(ReportTest, ACurrencyIsWrittenAsCodeOrAsTheWindowHasIt) {
  for (const char* lei : {"lei", " Lei "}) {
    ExpectIn(Report({"charges", "--currency", lei}), {"Cheltuieli cu amortizarea", "LEI"});
  }
  for (const char* euro : {"eur", "EUR-EURO", "Eur-Euro "}) {
    const std::string paper = Report({"charges", "--currency", euro});
    ExpectIn(paper, {"Fixed Assets", "EUR"});
    EXPECT_EQ(paper.find("Euro"), std::string::npos);
  }
  for (const char* none : {"EURO", "EUR-", "", "E%"}) {
    const std::string text = "Valuta \"" + std::string(none) + "\" nu exista in lista de valute !";
    ExpectRefused({"report", "charges", "--pdf", Pdf(), "--currency", none}, text);
  }
}

// Width and height as the PDF has them, in points.
TEST_F(ReportTest, PaperAndOrientationAreChosen) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{}, "595 x 842"},
      {{"--paper", "a5"}, "420 x 595"},
      {{"--paper", "A3", "--orientation", "landscape"}, "1191 x 842"},
      {{"--orientation", "landscape"}, "842 x 595"}};
  for (auto [arguments, size] : cases) {
    arguments.insert(arguments.begin(), "charges");
    ExpectIn(Report(arguments), {"Total general"});
    EXPECT_NE(OutputOf("pdfinfo '" + Pdf() + "'").find(size), std::string::npos)
        << size << OutputOf("pdfinfo '" + Pdf() + "'");
  }
  ExpectIn(Report({"charges", "--paper", "A9"}),
           {"Hartie necunoscuta: A9 (A4, A3, A5, Letter, Legal) !"});
  ExpectIn(Report({"charges", "--orientation", "culcat"}), {"Orientare necunoscuta: culcat"});
}

TEST_F(ReportTest, NeedsNoScreenWhateverTheEnvironmentAsksFor) {
  setenv("QT_QPA_PLATFORM", "xcb", 1);
  unsetenv("DISPLAY");
  ExpectIn(Report({"charges"}), {"2131", "Pagina 1 / 1"});
}

TEST_F(ReportTest, AnOptionOfAnotherReportIsRefused) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"charges", "--from", "01.01.2026"}, "Optiunea --from nu se potriveste cu raportul charges"},
      {{"charges", "--to", "01.01.2026"}, "Optiunea --to nu se potriveste"},
      {{"purchases", "--from", "01.01.2026", "--to", "01.01.2026", "--date", "01.01.2026"},
       "Optiunea --date nu se potriveste cu raportul purchases"},
      {{"inventory", "--from", "01.01.2026", "--to", "01.01.2026", "--no-detail"},
       "Optiunea --no-detail nu se potriveste"}};
  for (const auto& [arguments, text] : cases) {
    EXPECT_NE(Report(arguments).find(text), std::string::npos) << text;
    EXPECT_FALSE(std::filesystem::exists(Pdf()));
  }
}

TEST_F(ReportTest, PurchasesAndInventoryAreOfAPeriod) {
  ExpectIn(Report({"purchases", "--from", "14.03.2026", "--to", "14.03.2026"}),
           {"ACHIZITII", "realizate de la", "14.03.2026", "Strung", "12.000", "TOTAL GENERAL"});
  EXPECT_EQ(Report({"purchases", "--from", "15.03.2026", "--to", "31.12.2026"}).find("Strung"),
            std::string::npos);
  ExpectIn(Report({"inventory", "--by", "person", "--from", "01.01.2026", "--to", "31.12.2026"}),
           {"CHELTUIELI CU OBIECTE DE INVENTAR", "Ana", "Scaun", "350"});
}

TEST_F(ReportTest, WhatCannotBeMeantOrWrittenIsTold) {
  ExpectIn(Report({"altceva"}), {"Raport necunoscut: altceva"});
  ExpectIn(Report({"purchases"}), {"Lipseste optiunea --from !"});
  ExpectIn(Report({"charges", "--by", "person"}), {"Grupare necunoscuta: person"});
  ExpectIn(Report({"inventory", "--by", "class", "--from", "01.01.2026", "--to", "01.01.2026"}),
           {"Grupare necunoscuta: class (account, person"});
  ExpectIn(Report({"purchases", "--from", "azi", "--to", "01.01.2026"}), {"Data \"azi\""});
  std::ofstream(Pdf()) << "vechi";
  const Result result =
      RunAsAdmin({"report", "charges", "--pdf", (Directory() / "lipsa" / "x.pdf").string()});
  EXPECT_EQ(result.code, kRefused);
  ExpectIn(result.err, {"Eroare 76"});
}

}  // namespace

}  // namespace tevra::batch::test
