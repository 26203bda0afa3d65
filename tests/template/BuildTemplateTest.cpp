// The building of a template from its sources: whole, or the old file stays.
#include "session/Module1.h"
#include "template/BuildTemplate.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSchema =
    "table kv_par\n  DATAIN date\n  DATASN date\n  DATAIN1 date\n  DATASN1 date\n  DATAIC date\n"
    "  DATASC date\n  CONTFURNIZORI text(16)\n  CONTCLIENTI text(16)\n  CODDeviza text(3)\n"
    "  CONTObiecteInventar text(16)\n"
    "table kv_info\n  VERSIUNE integer\n"
    "table T\n  COD text(2) key\n  NOTA text(9)\n"
    "query qT = SELECT COD FROM T\n";

class Building : public ::testing::Test {
 protected:
  void Write(const std::string& name, const std::string& text) const {
    WriteFile(Sources() / name, text);
  }
  fs::path Sources() const { return folder_.Path() / "sources"; }
  fs::path Target() const { return folder_.Path() / "out" / "Kelnar.mdb"; }
  Connection Open() const {
    return Connection(CompanyConnectionString(Target().parent_path().string(), "Kelnar.mdb"));
  }
  Building() {
    fs::create_directories(Target().parent_path());
    Write("schema.txt", kSchema);
    Write("data/T.csv", "COD,NOTA\n\"a\",\"\"\n\"b\",\n");
    BuildTemplate(Sources(), Target());
  }

  TemporaryFolder folder_;
};

TEST_F(Building, GivesAFileWithItsDataAndReplacesAnOlderOne) {
  EXPECT_EQ(Open().QueryValue("SELECT COUNT(*) FROM qT").AsLong(), 2);
  EXPECT_EQ(Open().QueryValue("SELECT NOTA FROM T WHERE COD = 'a'"), Value(""));
  EXPECT_EQ(Open().QueryValue("SELECT NOTA FROM T WHERE COD = 'b'"), Value());
  Write("data/T.csv", "COD\n\"c\"\n");
  BuildTemplate(Sources(), Target());
  EXPECT_EQ(Open().QueryValue("SELECT COD FROM T"), Value("c"));
}

TEST_F(Building, AMistakeNamesItsSourceAndLeavesTheOldFile) {
  const struct {
    const char* name;
    const char* text;
    const char* told;
  } cases[] = {{"data/T.csv", "COD\n\"c\"\n\"C\"\n", "T.csv:3: "},
               {"data/T.csv", "COD,CULOARE\n", "T.csv: "},
               {"data/NIMIC.csv", "COD\n", "NIMIC.csv: "},
               {"schema.txt", "table T\n  COD lung\n", "schema.txt: Line 2: "},
               {"schema.txt", "table T\n  COD text(2) key\nquery qR = SELECT COD FROM\n", ""},
               {"schema.txt", "table T\n  COD text(2) key\n  NOTA text(9)\n", ""}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.name) + " " + c.text);
    Write(c.name, c.text);
    const std::string told = DescriptionOf([&] { BuildTemplate(Sources(), Target()); });
    EXPECT_NE(told, "(no failure)");
    EXPECT_NE(told.find(c.told), std::string::npos) << told;
    EXPECT_EQ(NamesIn(Target().parent_path()), (std::vector<std::string>{"Kelnar.mdb"}));
    EXPECT_EQ(Open().QueryValue("SELECT COUNT(*) FROM T").AsLong(), 2);
    fs::remove_all(Sources());
    Write("schema.txt", kSchema);
    Write("data/T.csv", "COD\n");
  }
  fs::remove(Sources() / "schema.txt");
  EXPECT_EQ(FailureOf([&] { BuildTemplate(Sources(), Target()); }), kFileNotFound);
}

}  // namespace
}  // namespace tevra
