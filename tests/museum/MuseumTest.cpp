// What released programs wrote is opened, calculated, posted and printed as ever. See README.md.
//
// With TEVRA_WRITE_AGREED set what is missing is written, to be read before it is agreed.
#include <QSettings>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "accounting/ChargePostings.h"
#include "care/Upgrade.h"
#include "engine/Module3.h"
#include "engine/PlanAmortizare.h"
#include "platform/data/Recordset.h"
#include "platform/data/TableLoader.h"
#include "platform/system/Clock.h"
#include "platform/system/QtSettings.h"
#include "reports/Reports.h"
#include "session/ApplicationFiles.h"
#include "session/CompanyRegistry.h"
#include "session/Login.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "session/Version.h"
#include "tests/TestCompany.h"
#include "tests/batch/BatchTest.h"

namespace tevra::test {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> Structures() {
  std::vector<fs::path> found;
  for (const auto& entry : fs::directory_iterator(TEVRA_MUSEUM)) {
    if (entry.is_directory()) found.push_back(entry.path());
  }
  return found;
}

void Unpack(const fs::path& archive, const fs::path& folder) {
  const std::string command =
      "cd '" + folder.string() + "' && LC_ALL=C.UTF-8 cmake -E tar xf '" + archive.string() + "'";
  ASSERT_EQ(std::system(command.c_str()), 0) << archive;
}

/// The directory of companies of one structure, unpacked, with its company open in the session.
class Museum : public ::testing::TestWithParam<fs::path> {
 protected:
  Museum() {
    clock::Set(DateTime(2026, 11, 23, 10, 30, 15));
    Unpack(GetParam() / "firma.tar.gz", Folder());
    Session& session = CurrentSession();
    session = {};
    session.databasesPath = Folder() + "/";
    session.selectedDatabase = "Kelnar01.mdb";
    session.connectionString = CompanyConnectionString(Folder(), "Kelnar01.mdb");
    session.userName = "admin";
  }
  ~Museum() override { clock::Reset(); }

  std::string Folder() const { return folder_.Path().string(); }
  static bool IsOfThisStructure() {
    return GetParam().filename() == "structure-" + std::to_string(kRevision);
  }
  // The museum keeps no template; the program's own one is taken.
  static UpgradeResult Upgrade() {
    SetProgramDirectory(fs::path(TEVRA_TEMPLATE).parent_path());
    UpgradeResult result = UpgradeStructure(SessionCompany(), false);
    SetProgramDirectory({});
    return result;
  }
  TemporaryFolder folder_;
};

constexpr const char* kAssets =
    "SELECT NRCRT, COD, TIP_AM, DATA_CALCUL, DALUNI, COTAL_LUNARA, VAL_AMOR_CUMULATA, VAL_RAMASA, "
    "VAL_AMOR_CUMULATA_VAL, VAL_RAMASA_VAL, VALCHELEI FROM I_IMO ORDER BY NRCRT";
constexpr const char* kLines =
    "SELECT NDI, NRLINIE, DATAINR, CONT, DEBIT, CREDIT, DOC, CODBUG, UTILIZATOR FROM Kv_Linii "
    "ORDER BY NDI, NRLINIE";

// Without what later programs print around the report: company and days.
std::string Printed(BandedReport& report) {
  report.LayOutAll();
  std::string text;
  for (int page = 0; page < report.PageCount(); ++page) {
    for (const BandedReport::Band& band : report.BandsOf(page)) {
      if (band.section->role == BandRole::kPageTop) continue;
      for (const auto& [control, shown] : band.texts) {
        if (control->name == "lblTiparit") continue;
        if (!shown.isEmpty()) text += shown.toStdString() + "|";
      }
      text += "\n";
    }
  }
  return text;
}

std::string Rows(Connection& company, const std::string& sql) {
  std::string text;
  for (Recordset rows = company.OpenRecordset(sql); !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
      text += (i > 0 ? "|" : "") + rows.Get(i).TextOrEmpty();
    }
    text += "\n";
  }
  return text;
}

// What the company holds, then what today's routines make of it.
std::string Results(Connection& company) {
  std::ostringstream out;
  const auto part = [&](const char* title, const std::string& text) {
    out << "== " << title << "\n" << text;
  };
  const auto rows = [&](const std::string& sql) { return Rows(company, sql); };
  part("assets as stored", rows(kAssets));
  part("lines as stored", rows(kLines));
  part("objects", rows("SELECT nrcrt, cod, denumire, val_cump, data_ach, pers FROM I_INV"));
  part("run of March 2027", std::to_string(RunMonth(company, DateTime(2027, 3, 31))) + "\n");
  part("assets", rows(kAssets));
  part("posted", std::to_string(PostCharges(company, DateTime(2027, 3, 31)).notes) + "\n");
  part("lines", rows(kLines));
  part("plan of number 2", std::to_string(MakePlan(company, "2")) + "\n");
  part("plan",
       rows("SELECT AN, VALAMO, AMO_AN, VALAMOCUM, VALRAMASA, VALRAMASA_VAL FROM I_PLANAMO"));
  part("charges by account", Printed(*ChargesReport({0, "LEI", 3, 2027, true})));
  return out.str();
}

TEST_P(Museum, TheCompanyGivesTheSameResults) {
  const fs::path file = GetParam() / "results.txt";
  Connection company(CurrentSession().connectionString);
  const std::string results = Results(company);
  if (std::getenv("TEVRA_WRITE_AGREED") && !fs::exists(file)) std::ofstream(file) << results;
  EXPECT_EQ(results, Content(file));
}

TEST_P(Museum, AfterTheUpgradeItGivesThemToo) {
  const UpgradeResult upgraded = Upgrade();
  EXPECT_TRUE(upgraded.left.empty());
  EXPECT_EQ(upgraded.changes.empty(), IsOfThisStructure());
  EXPECT_FALSE(StructuraDiferita());
  Connection company(CurrentSession().connectionString);
  EXPECT_EQ(Results(company), Content(GetParam() / "results.txt"));
}

TEST_P(Museum, ItsUsersLogIn) {
  const LoadedCompanies loaded = LoadSocietati(Folder());
  ASSERT_FALSE(loaded.failure) << loaded.failure->Description();
  EXPECT_EQ(loaded.registry->Companies(),
            (std::vector<Company>{{"01", "Muzeul SRL", "Kelnar01.mdb"}}));
  EXPECT_EQ(StructuraDiferita(), !IsOfThisStructure());
  EXPECT_TRUE(ExistaUtilizator("admin"));
  EXPECT_TRUE(ParolaValida("admin", "1"));
  EXPECT_FALSE(ParolaValida("admin", "2"));
  EXPECT_EQ(TipUtilizator("admin"), 0);
}

TEST_P(Museum, ItsRowsLoadIntoANewCompany) {
  std::ifstream csv(folder_.Path() / "I_IMO.csv", std::ios::binary);
  const TestCompany company;
  Connection connection = company.Open();
  EXPECT_EQ(LoadTable(connection, csv, "I_IMO").rows, 15);
  Connection old(CompanyConnectionString(Folder(), "Kelnar01.mdb"));
  constexpr const char* kNamed = "SELECT NRCRT, COD, DENUMIRE, DATA_SF, VAL_CUMP FROM I_IMO";
  EXPECT_EQ(Rows(connection, kNamed), Rows(old, kNamed));
}

// Other programs take these lists: today's are the same to the letter.
TEST_P(Museum, ItsListsAreWrittenAsBefore) {
  Upgrade();  // a command refuses another structure
  const std::string password = WriteFile(folder_.Path() / "parola", "1\n").string();
  for (const auto& [command, list] :
       {std::pair{"assets", "active.csv"}, {"charges", "cheltuieli.csv"}}) {
    const auto result = batch::test::RunProgram(
        {"--dir", Folder(), "--user", "admin", "--password-file", password, command, "--csv"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, Content(folder_.Path() / list));
  }
}

TEST_P(Museum, ItsSettingsAreUnderstood) {
  const fs::path kept = GetParam() / "Setari_IMO.ini";
  const fs::path own = folder_.Path() / "KELNAR" / "Setari_IMO.ini";
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(Folder()));
  const std::pair<const char*, const char*> values[] = {{kDatabasesPath, "C:\\Firme, \"mele\"\\"},
                                                        {"Settings/MainLeft", "-150"},
                                                        {"Settings/MainWidth", "9600"}};
  QtSettings settings;
  if (std::getenv("TEVRA_WRITE_AGREED") && !fs::exists(kept)) {
    for (const auto& [key, value] : values) settings.Set(key, value);
    fs::copy_file(own, kept);
  }
  fs::create_directories(own.parent_path());
  fs::copy_file(kept, own, fs::copy_options::overwrite_existing);
  for (const auto& [key, value] : values) EXPECT_EQ(settings.Get(key), value) << key;
}

INSTANTIATE_TEST_SUITE_P(Structures, Museum, ::testing::ValuesIn(Structures()),
                         [](const auto& tested) {
                           std::string name = tested.param.filename().string();
                           name[name.find('-')] = '_';
                           return name;
                         });

}  // namespace
}  // namespace tevra::test
