// The conversion to new lei: what it divides, what it asks, and that it never happens by half or
// twice.
#include "care/Backup.h"
#include "care/Denominare.h"
#include "platform/data/CompanyFile.h"
#include "platform/system/Clock.h"
#include "tests/KilledWrites.h"
#include "tests/care/CareTest.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

constexpr const char* kMoney[] = {"VAL_CUMP",    "VAL_AMOR_CUMULATA", "VAL_RAMASA",
                                  "VAL_BLOCATA", "VAL_IESIRE",        "VAL_RAMASA_IESIRE",
                                  "CURS",        "VALCONSERVARE",     "VALCHELEI"};

constexpr const char* kTimely = " Convertirea bazei de date trebuie facuta incepand cu 01.07.2005";
constexpr const char* kIrreversible =
    " Inregistrarile cu data achizitiei pana la 01.07.2005 vor fi convertite ireversibil in LEI "
    "NOI.";

class DenominareTest : public CareTest {
 protected:
  DenominareTest() {
    clock::Set(DateTime(2005, 7, 1, 9, 30, 0));
    CurrentSession().connectionString += ";Lock Timeout=100";
    Execute("DELETE FROM kv_val WHERE COD = 'ROL'");
    Execute("DELETE FROM I_IMO");
    for (const char* table : {"I_IMO", "I_INV"}) {
      for (const char* bought :
           {"CDate('30.06.2005 23:59:59')", "CDate('01.07.2005')", "NULL", "CDate('07.01.2005')"}) {
        Add(table, bought);
      }
    }
    Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, DEBIT, CURS) VALUES (1, 1, '1', 50000, 3)");
  }
  ~DenominareTest() override { clock::Reset(); }

  // Every field of money with another number, a half of a leu each.
  void Add(const std::string& table, const std::string& bought) const {
    std::string names = "DATA_ACH, VAL_CUMP_VAL";
    std::string values = bought + ", 12345.5";
    int number = 0;
    for (const char* field : kMoney) {
      names += std::string(", ") + field;
      values += ", " + std::to_string(12345 + number++) + ".5";
    }
    Execute("INSERT INTO " + table + " (" + names + ") VALUES (" + values + ")");
  }
  std::string Values(const char* table) const {
    std::string names = "VAL_CUMP_VAL";
    for (const char* field : kMoney) names += std::string(", ") + field;
    return company_.Rows("SELECT " + names + " FROM " + table + " ORDER BY NRCRT");
  }
  std::string Limits() const {
    return company_.Rows(
        "SELECT VALIM FROM I_VALIM WHERE DATVALIM BETWEEN CDate('02.01.2004') AND "
        "CDate('31.12.2006')");
  }
  std::string Said() {
    std::string said;
    for (const MessageRequest& each : messages_.shown) {
      said += each.prompt + "|" + std::to_string(each.buttons) + "|" + each.title + "\n";
    }
    messages_.shown.clear();
    return said;
  }
  // The rows of the company, whoever asks.
  std::string All() const { return Dump(File()); }

  MessageRecorder messages_;
};

// Halves go to the even leu before they are divided.
constexpr const char* kNew =
    "12345,5 1,2346 1,2346 1,2348 1,2348 1,235 1,235 1,2352 1,2352 1,2354 \n";
constexpr const char* kOld =
    "12345,5 12345,5 12346,5 12347,5 12348,5 12349,5 12350,5 12351,5 12352,5 12353,5 \n";
constexpr const char* kSaved = "Salvare cu succes a bazei de date Kelnar01.mdb|64|\n";
constexpr const char* kDone = "Baza de date a fost convertita in LEI NOI|0|\n";
constexpr const char* kBefore = " Convertirea bazei de date a fost deja facuta.|0|\n";
const std::string kAsked = std::string(kIrreversible) + "|36|Confirmati, va rog denominarea\n";

TEST_F(DenominareTest, DividesWhatWasBoughtBeforeTheDayAndNothingElse) {
  EXPECT_EQ(ROL(), false);
  int steps = 0;
  Denominare([&](const auto& step) {
    ++steps;
    step({});
  });
  EXPECT_EQ(Said(), kAsked + kSaved + kDone);
  EXPECT_EQ(steps, 2);
  const std::string expected = std::string(kNew) + kOld + kOld + kNew;
  EXPECT_EQ(Values("I_IMO"), expected);
  EXPECT_EQ(Values("I_INV"), expected);
  EXPECT_EQ(company_.Rows("SELECT DEBIT, CURS FROM Kv_Linii"), "50000 3 \n");
  EXPECT_EQ(Limits(), "1500 \n");
  EXPECT_EQ(company_.Rows("SELECT TITLU FROM kv_val WHERE COD = 'ROL'"), "LEI VECHI \n");

  const std::vector<std::string> backups = NamesIn(BackupFolder());
  EXPECT_EQ(backups, std::vector<std::string>{"Firma Vech_Kelnar01_01.07.2005_09.30.mdb"});
  Connection backup("Data Source=" + (BackupFolder() / backups.at(0)).string() +
                    ";Mode=Read;PWD=" + kFilePassword);
  EXPECT_EQ(backup.QueryValue("SELECT VAL_CUMP FROM I_IMO WHERE DATA_ACH IS NULL").AsDouble(),
            12345.5);
  EXPECT_FALSE(IsRedenominated(backup));

  EXPECT_EQ(ROL(), true);
  const std::string converted = All();
  for (const DateTime& today : {DateTime(2005, 7, 2), DateTime(2001, 1, 1)}) {
    clock::Set(today);
    Denominare();
    EXPECT_EQ(Said(), kBefore);
  }
  EXPECT_EQ(All(), converted);
}

TEST_F(DenominareTest, TheMinimumValueOfTheDayIsReplacedOrAdded) {
  Execute("UPDATE I_VALIM SET VALIM = 7 WHERE DATVALIM = CDate('01.07.2005')");
  const std::string before = company_.Rows("SELECT * FROM I_VALIM WHERE VALIM <> 7");
  Denominare();
  EXPECT_EQ(company_.Rows("SELECT * FROM I_VALIM WHERE VALIM <> 1500"), before);
  EXPECT_EQ(Limits(), "1500 \n");
  Execute("DELETE FROM I_VALIM WHERE DATVALIM >= CDate('01.07.2005')");
  Execute("DELETE FROM kv_val WHERE COD = 'ROL'");
  Denominare();
  EXPECT_EQ(company_.Rows("SELECT VALIM FROM I_VALIM ORDER BY DATVALIM DESC").substr(0, 4), "1500");
}

TEST_F(DenominareTest, AsksBeforeItsTimeAndAlways) {
  const std::string before = All();
  clock::Set(DateTime(2005, 6, 30));
  const std::string early = std::string(kTimely) + "|36|Confirmati, va rog.\n";
  messages_.answers = {kNo};
  Denominare();
  EXPECT_EQ(Said(), early);
  messages_.answers = {kYes, kNo};
  Denominare();
  EXPECT_EQ(Said(), early + kAsked);
  EXPECT_EQ(All(), before);
  EXPECT_FALSE(fs::exists(BackupFolder()));
  Denominare();
  EXPECT_EQ(Said(), early + kAsked + kSaved + kDone);
}

TEST_F(DenominareTest, AFailureLeavesEverythingInOldLei) {
  const std::string before = All();
  const auto refused = [&](const std::string& backUp, const std::string& error) {
    Denominare();
    const std::string said = Said();
    EXPECT_TRUE(said.starts_with(kAsked + backUp + "Eroare " + error)) << said;
    EXPECT_NE(said.find(" in procedura Denominare din Module Module1 Linia: "), std::string::npos)
        << said;
  };
  WriteFile(BackupFolder(), "in calea directorului");
  refused("", "70 - ");
  EXPECT_EQ(All(), before);
  fs::remove(BackupFolder());
  {
    Connection other = company_.Open();
    const Transaction busy(other);
    refused(kSaved, "");
  }
  EXPECT_EQ(All(), before);
  {
    Connection company = company_.Open();
    company.Execute("ALTER TABLE Kv_Val RENAME TO alta");
    company.Execute("CREATE VIEW Kv_Val AS SELECT * FROM alta");
  }
  refused(kSaved, "");  // in the last statement
  {
    Connection company = company_.Open();
    company.Execute("DROP VIEW Kv_Val");
    company.Execute("ALTER TABLE alta RENAME TO KV_VAL");
  }
  EXPECT_EQ(Values("I_IMO"), std::string(kOld) + kOld + kOld + kOld);
  EXPECT_EQ(Values("I_INV"), Values("I_IMO"));
  fs::permissions(File(), fs::perms::owner_read);
  refused(kSaved, "70 - ");
  EXPECT_EQ(ROL(), false);
  fs::remove(File());
  EXPECT_EQ(ROL(), std::nullopt);
  Denominare();
  EXPECT_EQ(messages_.shown.size(), 2U);
  for (const MessageRequest& each : messages_.shown) {
    EXPECT_NE(each.prompt.find(" in procedura ROL din Module Module1 Linia: "), std::string::npos)
        << each.prompt;
  }
}

TEST_F(DenominareTest, TwoProgramsConvertOnce) {
  Connection other = company_.Open();
  bool first = true;
  Denominare([&](const auto& step) {
    step({});
    if (!std::exchange(first, false)) return;
    EXPECT_TRUE(Redenominate(other));
  });
  EXPECT_EQ(Said(), kAsked + kSaved + kBefore);
  EXPECT_EQ(Values("I_IMO"), std::string(kNew) + kOld + kOld + kNew);
  // The user who cancels the backup has changed nothing.
  Execute("DELETE FROM kv_val WHERE COD = 'ROL'");
  const std::string before = All();
  EXPECT_THROW(Denominare([](const auto& step) { step([](int, int) { return false; }); }), GivenUp);
  EXPECT_EQ(All(), before);
}

TEST_F(DenominareTest, AKilledOneLeavesTheOldOrTheNewState) {
  for (int i = 0; i < 300; ++i) Add(i % 2 ? "I_IMO" : "I_INV", "CDate('01.01.2005')");
  RequireSoleUse(File());
  const std::string content = Content(File());
  const std::string before = All();
  const auto convert = [] {
    Connection company(CurrentSession().connectionString);
    Redenominate(company);
  };
  WriteCounter counter;
  const int writes = counter.WritesOf(convert);
  const std::string after = All();
  ASSERT_NE(after, before);
  ASSERT_GT(writes, 20);
  for (int killed = 1; killed <= writes; killed += 1 + writes / 40) {
    for (const char* side : {"-wal", "-shm"}) fs::remove(File().string() + side);
    WriteFile(File(), content);
    EXPECT_TRUE(counter.KilledIn(killed, convert)) << killed;
    const std::string found = Dump(company_.Open());
    EXPECT_TRUE(found == before || found == after) << killed;
    convert();
    EXPECT_EQ(Dump(company_.Open()), after) << killed;
  }
}

}  // namespace
}  // namespace tevra::test
