// The end of the month of several companies, of which some cannot be worked on.
#include "tests/batch/MonthEndTest.h"

#include <QJsonValue>

#include "app/batch/Batch.h"
#include "app/batch/Refusal.h"
#include "app/batch/monthend/MonthEndOptions.h"
#include "platform/data/Recordset.h"
#include "platform/system/Log.h"
#include "platform/text/Dates.h"

namespace fs = std::filesystem;

namespace tevra::batch::test {
namespace {

constexpr const char* kPosted = "1 IMO10 2813 0 \n1 IMO10 6811 100 \n";

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::string Text(const QJsonValue& value) {
  return value.toString().toStdString();
}

TEST_F(MonthEndTest, BacksUpCalculatesPostsAndReports) {
  const fs::path pdf = Folder("rapoarte");
  const fs::path copies = Folder("copii");
  const Result result = End({"--post", "--pdf", pdf.string(), "--backup", copies.string()});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(result.out.rfind("Sfarsit de luna la 31.10.2026, cu note contabile, 3 societati\n"
                             "01 Alfa: efectuat (",
                             0),
            0U)
      << result.out;
  for (const std::string part :
       {"  1 imobilizare, cheltuieli 100,00 lei, amortizare cumulata 1.000,00 lei, valoare ramasa "
        "11.000,00 lei\n  Note contabile IMO10: 1 nota, 100,00 lei\n  Salvare: ",
        "02 Beta: efectuat (", "\nEfectuate: 3, neefectuate: 0\n"}) {
    EXPECT_TRUE(Contains(result.out, part)) << part << " in " << result.out;
  }
  for (const char* code : {"01", "02", "03"}) EXPECT_EQ(Lines(code), kPosted);
  EXPECT_EQ(NamesIn(copies), (std::vector<std::string>{"_Kelnar01_24.11.2026_10.30.mdb",
                                                       "_Kelnar02_24.11.2026_10.30.mdb",
                                                       "_Kelnar03_24.11.2026_10.30.mdb"}));
  EXPECT_EQ(NamesIn(pdf).size(), 12U);
  for (const char* word : {"conturi", "clasificari", "localizari", "centre"}) {
    const fs::path file = pdf / ("Cheltuieli_03_2026-10_" + std::string(word) + ".pdf");
    EXPECT_TRUE(Contains(Content(file), "%%EOF")) << file;
    EXPECT_TRUE(Contains(result.out, "  Raport: " + file.string() + "\n")) << result.out;
  }
}

TEST_F(MonthEndTest, ACompanyThatFailsStopsNoOther) {
  fs::permissions(FileOf("03"), fs::perms::owner_read);
  const std::string damaged = Content(FileOf("01")).substr(0, 30000);
  WriteFile(FileOf("01"), damaged);
  const std::string readOnly = Content(FileOf("03"));
  const QJsonObject run = Json({"--post"});
  EXPECT_EQ(run["done"].toInt(), 1);
  EXPECT_EQ(run["failed"].toInt(), 2);
  const QJsonObject first = CompanyOf(run, "01");
  EXPECT_EQ(Text(first["failedAt"]), "login");
  EXPECT_TRUE(Contains(Text(first["reason"]), "Baza de date este deteriorata"));
  EXPECT_TRUE(first["assets"].isNull() && first["sums"].isNull() && first["postings"].isNull());
  EXPECT_EQ(Text(CompanyOf(run, "02")["state"]), "done");
  const QJsonObject third = CompanyOf(run, "03");
  EXPECT_EQ(Text(third["state"]), "failed");
  EXPECT_EQ(Text(third["failedAt"]), "calculation");
  EXPECT_TRUE(Contains(Text(third["reason"]), "Kelnar03.mdb")) << Text(third["reason"]);
  EXPECT_EQ(Lines("02"), kPosted);
  EXPECT_EQ(Content(FileOf("01")), damaged);
  EXPECT_EQ(Content(FileOf("03")), readOnly);
  fs::permissions(FileOf("03"), fs::perms::owner_all);
}

TEST_F(MonthEndTest, AWrongPasswordAMissingLineAndALockedCompanyAreToldAndLogged) {
  Connection other = OpenCompany("02");
  const Transaction lock(other);
  Passwords("01;admin;Tainica\n02;admin;1\n");
  std::string logged;
  const log::Sink before = log::SetSink([&](const std::string& line) { logged += line + "\n"; });
  const Result result = End({});
  log::SetSink(before);
  EXPECT_EQ(result.code, kRefused);
  EXPECT_EQ(result.err, "Sfarsitul de luna nu s-a efectuat in 3 societati !\n");
  for (const std::string part :
       {"01 Alfa: NEEFECTUAT, la autentificare (", "  Parola nu este corecta !\n",
        "02 Beta: NEEFECTUAT, la calcul (", "  Eroare -2147467259 - ", "Kelnar02.mdb",
        "03 Gama: NEEFECTUAT, la autentificare (",
        "  Societatea nu are utilizator si parola in fisierul cu parole !\n",
        "Efectuate: 0, neefectuate: 3\n"}) {
    EXPECT_TRUE(Contains(result.out, part)) << part << " in " << result.out;
  }
  EXPECT_TRUE(Contains(logged, "Parola nu este corecta ! | month-end"));
  EXPECT_FALSE(Contains(result.out + result.err + logged, "Tainica"));
}

TEST_F(MonthEndTest, TheLogNamesNoUser) {
  Passwords("01;Ionescu;1\n02;admin;1\n03;admin;1\n");
  std::string logged;
  const log::Sink before = log::SetSink([&](const std::string& line) { logged += line + "\n"; });
  const Result result = End({});
  log::SetSink(before);
  EXPECT_TRUE(Contains(result.out, "Utilizatorul Ionescu nu exista !")) << result.out;
  EXPECT_TRUE(Contains(logged, "Utilizatorul ? nu exista ! | month-end")) << logged;
}

TEST_F(MonthEndTest, APostedMonthIsPostedAgainOnlyWhenAsked) {
  ASSERT_EQ(End({"--post"}).code, kDone);
  OpenCompany("02").Execute("UPDATE I_IMO SET VAL_CUMP = 24000");
  const QJsonObject second = CompanyOf(Json({"--post"}), "02");
  EXPECT_EQ(Text(second["state"]), "done");
  const QJsonObject postings = second["postings"].toObject();
  EXPECT_EQ(Text(postings["state"]), "already");
  EXPECT_EQ(Text(postings["document"]), "IMO10");
  EXPECT_EQ(postings["notes"].toInt(), 1);
  EXPECT_EQ(postings["lei"].toDouble(), 100.0);
  EXPECT_EQ(second["sums"]["charges"].toDouble(), 200.0);
  const QJsonArray remarks = second["remarks"].toArray();
  ASSERT_EQ(remarks.size(), 2);
  EXPECT_EQ(Text(remarks[0]),
            "Luna este contata deja (1 nota, 100,00 lei); notele ei se scriu din nou numai cu "
            "--again.");
  EXPECT_EQ(Text(remarks[1]), "Notele contabile au 100,00 lei, cheltuielile calculate 200,00 lei.");
  EXPECT_EQ(Lines("02"), kPosted);
  const QJsonObject again = CompanyOf(Json({"--post", "--again"}), "02");
  EXPECT_EQ(Text(again["postings"]["state"]), "written");
  EXPECT_EQ(again["postings"]["lei"].toDouble(), 200.0);
  ASSERT_EQ(again["remarks"].toArray().size(), 1);
  EXPECT_TRUE(Contains(Text(again["remarks"][0]), "(1 nota, 100,00 lei) sunt inlocuite"));
  EXPECT_EQ(OpenCompany("02").QueryValue("SELECT SUM(DEBIT) FROM Kv_Linii").AsDouble(), 200.0);
}

TEST_F(MonthEndTest, NotesThatWouldBeLostRefuseTheCompany) {
  WriteOfAnotherYear();
  const std::string before = Content(FileOf("03"));
  const QJsonObject third = CompanyOf(Json({"--post"}), "03");
  EXPECT_EQ(Text(third["failedAt"]), "check");
  EXPECT_TRUE(Contains(Text(third["reason"]), "- anul 2025: o nota, 55,00 lei\n"));
  EXPECT_EQ(Content(FileOf("03")), before);
  EXPECT_TRUE(third["files"]["backup"].isNull());
  const QJsonObject agreed = CompanyOf(Json({"--post", "--yes"}), "03");
  EXPECT_EQ(Text(agreed["state"]), "done");
  EXPECT_EQ(agreed["remarks"].toArray().size(), 1);
  EXPECT_FALSE(Contains(Lines("03"), "55"));
  WriteOfAnotherYear();
  const QJsonObject posted = CompanyOf(Json({"--post"}), "03");
  EXPECT_EQ(Text(posted["postings"]["state"]), "already") << "nothing would be lost";
}

TEST_F(MonthEndTest, ADryRunShowsTheSameAndWritesNothing) {
  const fs::path pdf = Folder("rapoarte");
  const std::vector<std::string> arguments{"--post", "--pdf", pdf.string()};
  std::vector<std::string> dry = arguments;
  dry.emplace_back("--dry-run");
  const auto before = Everything();
  const QJsonObject shown = Json(dry);
  EXPECT_TRUE(Contains(End(dry).out, "\nS-ar efectua: 3, neefectuate: 0\nNu s-a scris nimic"));
  EXPECT_EQ(Everything(), before);
  const QJsonObject done = Json(arguments);
  const QJsonObject sums = CompanyOf(done, "02")["sums"].toObject();
  EXPECT_EQ(sums["charges"].toDouble(), 100.0);
  EXPECT_EQ(sums["cumulated"].toDouble(), 1000.0);
  EXPECT_EQ(sums["remaining"].toDouble(), 11000.0);
  for (const char* key : {"assets", "sums", "postings", "remarks", "files", "state"}) {
    EXPECT_EQ(CompanyOf(shown, "02")[key], CompanyOf(done, "02")[key]) << key;
  }
  EXPECT_TRUE(shown["dryRun"].toBool() && !done["dryRun"].toBool());
  const QJsonObject files = CompanyOf(done, "02")["files"].toObject();
  EXPECT_TRUE(fs::exists(Text(files["backup"])));
  EXPECT_EQ(files["reports"].toArray().size(), 4);
}

TEST_F(MonthEndTest, PostingsThatFailLeaveNothingCalculated) {
  OpenCompany("02").Execute(
      "CREATE TRIGGER x BEFORE INSERT ON Kv_Linii BEGIN SELECT RAISE(ABORT, 'plin'); END");
  const QJsonObject second = CompanyOf(Json({"--post"}), "02");
  EXPECT_EQ(Text(second["failedAt"]), "postings");
  EXPECT_TRUE(second["assets"].isNull());
  EXPECT_FALSE(second["files"]["backup"].isNull());
  EXPECT_TRUE(OpenCompany("02").QueryValue("SELECT DATA_CALCUL FROM I_IMO").IsNull());
}

TEST_F(MonthEndTest, AReportThatCannotBeWrittenLeavesTheMonthPosted) {
  const fs::path pdf = Folder("rapoarte");
  fs::create_directory(pdf / "Cheltuieli_01_2026-10_localizari.pdf");
  const QJsonObject run = Json({"--post", "--pdf", pdf.string()});
  const QJsonObject first = CompanyOf(run, "01");
  EXPECT_EQ(Text(first["failedAt"]), "reports");
  EXPECT_TRUE(Contains(Text(first["reason"]), "localizari.pdf"));
  EXPECT_EQ(first["files"]["reports"].toArray().size(), 2);
  EXPECT_EQ(first["postings"]["notes"].toInt(), 1);
  EXPECT_EQ(Lines("01"), kPosted);
  EXPECT_EQ(run["failed"].toInt(), 1);
}

TEST_F(MonthEndTest, RemarksTellWhatTheSumsHide) {
  Connection second = OpenCompany("02");
  second.Execute("UPDATE I_IMO SET CONT = '9999', DATA_CALCUL = '2026-12-31 00:00:00'");
  second.Close();
  const QJsonArray remarks = CompanyOf(Json({"--post"}), "02")["remarks"].toArray();
  ASSERT_EQ(remarks.size(), 2);
  EXPECT_EQ(Text(remarks[0]),
            "Imobilizarile erau calculate la 31.12.2026, dupa data ceruta; calculul le aduce "
            "inapoi.");
  EXPECT_EQ(Text(remarks[1]), "Notele contabile au 0,00 lei, cheltuielile calculate 100,00 lei.");
}

TEST_F(MonthEndTest, RightsAndChosenCompaniesHold) {
  OpenCompany("02").Execute("UPDATE UTILIZATORI SET TIP = 2");
  const std::string before = Content(FileOf("02"));
  const Result result = Run({"month-end", "--companies", "02,9", "--credentials",
                             Passwords("02;admin;1\n9;admin;1\n"), "--post"});
  EXPECT_EQ(result.code, kRefused);
  EXPECT_TRUE(Contains(result.out, "Utilizatorul admin nu are dreptul")) << result.out;
  EXPECT_TRUE(Contains(result.out, "9: NEEFECTUAT, la autentificare")) << result.out;
  EXPECT_TRUE(Contains(result.out, "Societatea cu codul 9 nu exista")) << result.out;
  EXPECT_FALSE(Contains(result.out, "Alfa"));
  EXPECT_EQ(Content(FileOf("02")), before);
}

TEST_F(MonthEndTest, NothingBeginsWhenTheRequestIsWrong) {
  const auto before = Everything();
  const std::pair<std::vector<std::string>, const char*> refused[] = {
      {{"--pdf", "lipsa"}, "Directorul \"lipsa\" nu exista !"},
      {{"--backup", "lipsa"}, "Directorul \"lipsa\" nu exista !"},
      {{"31.02.2026"}, "Data \"31.02.2026\" nu este corecta (ZZ.LL.AAAA sau LL.AAAA) !"},
      {{"12.2026"}, "Luna 12.2026 nu a inceput inca !"}};
  for (const auto& [arguments, text] : refused) {
    const Result result = End(arguments);
    EXPECT_EQ(result.code, kRefused) << text;
    EXPECT_EQ(result.out, "") << text;
    EXPECT_EQ(result.err, std::string(text) + "\n");
  }
  const std::pair<std::vector<std::string>, const char*> misused[] = {
      {{"--companies", "01"}, "Optiunea --companies exclude --all !"},
      {{"--again"}, "Optiunea --again cere --post !"},
      {{"--user", "admin"}, "Optiunea --user nu se potriveste cu month-end !"},
      {{"--company", "01"}, "Optiunea --company nu se potriveste cu month-end !"}};
  for (const auto& [arguments, text] : misused) {
    const Result result = End(arguments);
    EXPECT_EQ(result.code, kUsage) << text;
    EXPECT_TRUE(Contains(result.err, text)) << result.err;
  }
  for (const char* companies : {"01,,02", "", "01,01", "a1,A1"}) {
    const Result result = Run({"month-end", "--credentials", "x", "--companies", companies});
    EXPECT_EQ(result.code, kUsage) << companies << result.out << result.err;
  }
  EXPECT_EQ(Run({"month-end", "--credentials", "x"}).code, kUsage);
  EXPECT_EQ(Everything(), before);
}

TEST_F(MonthEndTest, TheDayIsTheMonthsLastUnlessItIsWritten) {
  EXPECT_EQ(ShortDate(MonthEndDay("")), "31.10.2026");
  EXPECT_EQ(ShortDate(MonthEndDay("02.2024")), "29.02.2024");
  EXPECT_EQ(ShortDate(MonthEndDay("11.2026")), "30.11.2026");
  EXPECT_EQ(ShortDate(MonthEndDay("15.09.2026")), "15.09.2026");
  EXPECT_EQ(ShortDate(MonthEndDay("2026-09-15")), "15.09.2026");
  for (const char* wrong :
       {"13.2026", "2026", "1.2026", "15.09.2026 10:00:00", "10.2026 10:00:00"}) {
    EXPECT_THROW(MonthEndDay(wrong), Refusal) << wrong;
  }
}

}  // namespace
}  // namespace tevra::batch::test
