// Damage that a work would not meet by itself: found, told with a backup, and nothing is written.
#include "app/batch/Batch.h"
#include "platform/system/Clock.h"
#include "session/Module1.h"
#include "tests/batch/BatchTest.h"
#include "tests/data/Damage.h"

namespace fs = std::filesystem;

namespace tevra::batch::test {
namespace {

class CheckTest : public BatchTest {
 protected:
  CheckTest() { clock::Set(DateTime(2026, 11, 24, 10, 30)); }
  ~CheckTest() override { clock::Reset(); }
  void Damage() const { DamageTable(company_.ConnectionString(), "I_CLASIFICARE"); }
};

TEST_F(CheckTest, ReadsAFileAndSaysWhetherItIsInOrder) {
  const std::string before = Content(company_.File());
  EXPECT_EQ(RunAsAdmin({"check"}).out,
            "Baza de date Kelnar01.mdb este in ordine (verificare rapida).\n");
  const Result full = RunAsAdmin({"check", "--full"});
  EXPECT_EQ(full.code, kDone) << full.err;
  EXPECT_EQ(full.out, "Baza de date Kelnar01.mdb este in ordine (verificare completa).\n");
  EXPECT_TRUE(Content(company_.File()) == before);
  ASSERT_EQ(RunAsAdmin({"backup"}).code, kDone);
  Damage();
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"check"}, {"check", "--full"}}) {
    const Result result = RunAsAdmin(command);
    EXPECT_EQ(result.code, kRefused);
    EXPECT_FALSE(result.out.empty());
    EXPECT_EQ(result.err,
              "Baza de date Kelnar01.mdb este deteriorata !\n"
              "Cea mai noua salvare buna: " +
                  (Directory() / "Salv_Tevra" / "_Kelnar01_24.11.2026_10.30.mdb").string() + "\n");
  }
}

TEST_F(CheckTest, NoWorkIsDoneOnADamagedFile) {
  company_.Open().Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, DATAINR, CONT, DEBIT, CREDIT) VALUES "
      "(1, 1, CDate('30.06.2006'), '6811', 10, 0)");
  ASSERT_EQ(RunAsAdmin({"export", "01.01.2006", "31.12.2006"}).code, kDone);
  const fs::path exported = Directory() / "Export" / "01";
  std::string text = Content(exported / NamesIn(exported).at(0));
  text.replace(text.find(">01<"), 4, ">S1<");
  const std::string document = File("sucursala.xml", text);
  Damage();
  const std::string damaged = "Baza de date este deteriorata: " + company_.File().string();
  const std::string none =
      "In " + (Directory() / "Salv_Tevra").string() + " nu este nici o salvare buna.";
  const std::string before = Content(company_.File());
  // A work that needs the file alone also changes the engine's mark for shared use.
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"calculate", "31.10.2026"},
                                             {"calculate", "31.10.2026", "--post"},
                                             {"import", document},
                                             {"backup"},
                                             {"upgrade"},
                                             {"compact"}}) {
    if (command[0] == "upgrade") {
      EXPECT_TRUE(Content(company_.File()) == before);
    }
    const Result result = RunAsAdmin(command);
    EXPECT_EQ(result.code, kRefused) << command[0];
    EXPECT_NE(result.err.find(damaged), std::string::npos) << command[0] << result.err;
    EXPECT_NE(result.err.find(none), std::string::npos) << command[0] << result.err;
    EXPECT_EQ(result.err.find(none), result.err.rfind(none)) << "said once" << result.err;
  }
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM Kv_Linii"), "1 \n");
  const std::string passwords = File("parole", "01;admin;1\n");
  fs::permissions(passwords, fs::perms::owner_read);
  const Result result = Run({"month-end", "--all", "--credentials", passwords});
  EXPECT_EQ(result.code, kRefused);
  EXPECT_NE(result.out.find("  " + none), std::string::npos) << result.out;
}

TEST_F(CheckTest, AMonthsRunChecksTheFileOnceADay) {
  const auto checked = [this] {
    return company_.Rows("SELECT VALOARE FROM kv_setari WHERE NUME = 'VerificatLa'");
  };
  ASSERT_EQ(RunAsAdmin({"calculate", "31.10.2026"}).code, kDone);
  EXPECT_EQ(checked(), "2026-11-24 00:00:00 \n");
  Damage();
  EXPECT_EQ(RunAsAdmin({"calculate", "31.10.2026"}).code, kDone);
  clock::Set(DateTime(2026, 11, 25));
  ExpectRefused({"calculate", "31.10.2026"}, "Eroare la CALCUL !\n");
}

}  // namespace
}  // namespace tevra::batch::test
