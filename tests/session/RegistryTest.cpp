// The registry of companies: its default, adding and removing, and what stays as it was in the
// file.
#include "session/CompanyRegistry.h"
#include "tests/session/RegistryRows.h"
#include "tests/system/Folder.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

namespace fs = std::filesystem;

class Registry : public FolderTest {
 protected:
  std::string Directory() const { return folder_.string(); }
};

std::string ColumnOf(const std::string& name, int number, int length) {
  return "\t\t<s:AttributeType name='" + name + "' rs:number='" + std::to_string(number) +
         "' rs:nullable='true' rs:write='true' rs:basetable='Societat' rs:basecolumn='" + name +
         "'><s:datatype dt:type='string' rs:dbtype='str' dt:maxLength='" + std::to_string(length) +
         "'/></s:AttributeType>\n";
}

const std::string kHead =
    "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'"
    " xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'"
    " xmlns:rs='urn:schemas-microsoft-com:rowset' xmlns:z='#RowsetSchema'>\n"
    "<s:Schema id='RowsetSchema'>\n"
    "\t<s:ElementType name='row' content='eltOnly' rs:updatable='true'>\n" +
    ColumnOf("COD", 1, 2) + ColumnOf("DENUMIRE", 2, 50) + ColumnOf("NUMEBD", 3, 15) +
    "\t\t<s:extends type='rs:rowbase'/>\n\t</s:ElementType>\n</s:Schema>\n<rs:data>\n";
const std::string kTail = "</rs:data>\n</xml>\n";

TEST_F(Registry, TheDefaultHoldsTheFirstCompany) {
  EXPECT_FALSE(CompanyRegistry::Exists(Directory()));
  CompanyRegistry::WriteDefault(Directory() + "\\");
  EXPECT_EQ(Content(folder_ / "Societat.XML"),
            kHead + "\t<z:row COD='01' DENUMIRE='SOCIETATE' NUMEBD='Kelnar01.mdb'/>\n" + kTail);
  EXPECT_TRUE(CompanyRegistry::Exists(Directory()));
  EXPECT_EQ(CompanyRegistry::Load(Directory()).Companies(),
            (std::vector<Company>{{"01", "SOCIETATE", "Kelnar01.mdb"}}));
  EXPECT_EQ(FailureOf([&] { CompanyRegistry::WriteDefault(Directory()); }), 58);
}

TEST_F(Registry, ADirectoryWithoutOneOrWithoutANameIsToldAsSuch) {
  EXPECT_FALSE(CompanyRegistry::Exists(""));
  EXPECT_EQ(FailureOf([&] { CompanyRegistry::Load(""); }), kPathNotFound);
  EXPECT_EQ(FailureOf([&] { CompanyRegistry::Load(Directory()); }), kFileNotFound);
  EXPECT_EQ(FailureOf([&] { CompanyRegistry::WriteDefault(Directory() + "\\no such"); }),
            kPathNotFound);
}

TEST_F(Registry, AddingTakesCapitalsAndRefusesWhatIsNoCompany) {
  const std::vector<std::pair<Company, long>> cases = {
      {{"2b", "  Ferma \"Dâmbovița\" & fiii <SRL>  ", "Kelnar2B.mdb"}, 0},
      {{"2B", "Alta", "Kelnar2B.mdb"}, 457},
      {{"x", std::string(49, 'n') + "ș", "KelnarX.mdb"}, 0},
      {{"y", std::string(50, 'n') + "ș", "KelnarY.mdb"}, kInvalidArgument},
      {{"y", "  ", "KelnarY.mdb"}, kInvalidArgument},
      {{"y", "Y", ""}, kInvalidArgument},
      {{"y", "Y", "KelnarYYYYYY.mdb"}, kValueNotAccepted},
      {{"", "Y", "Kelnar.mdb"}, kInvalidArgument},
      {{"123", "Y", "Kelnar123.mdb"}, kInvalidArgument},
      {{"ș", "Y", "Kelnarș.mdb"}, kInvalidArgument},
      {{"..", "Y", "Kelnar...mdb"}, kInvalidArgument},
      {{"1 ", "Y", "Kelnar1 .mdb"}, kInvalidArgument},
      {{"y", "Y", "KelnarY.mdb"}, 0}};
  CompanyRegistry::WriteDefault(Directory());
  CompanyRegistry registry = CompanyRegistry::Load(Directory());
  for (const auto& [company, number] : cases) {
    EXPECT_EQ(FailureOf([&, &added = company] { registry.Add(added); }), number) << company.numeBd;
    EXPECT_FALSE(registry.Rows().IsEditing()) << company.numeBd;
  }
  registry.Save();
  const auto companies = CompanyRegistry::Load(Directory()).Companies();
  EXPECT_EQ(companies, registry.Companies());
  ASSERT_EQ(companies.size(), 4u);
  EXPECT_EQ(companies[1], (Company{"2B", "Ferma \"Dâmbovița\" & fiii <SRL>", "Kelnar2B.mdb"}));
  EXPECT_EQ(registry.Find("X")->numeBd, "KelnarX.mdb");
  EXPECT_EQ(registry.Find("2b")->cod, "2B");
  EXPECT_FALSE(registry.Find("2"));
}

TEST_F(Registry, RemovingTakesOneRowAndNothingElse) {
  CompanyRegistry registry = CompanyRegistry::Empty(Directory());
  for (const char* code : {"03", "01", "02"}) registry.Add({code, code, "Kelnar.mdb"});
  registry.Rows().SetFilter("COD = '03'");
  EXPECT_EQ(FailureOf([&] { registry.Remove(RowOf(registry, "04")); }), kItemNotFound);
  registry.Remove(RowOf(registry, "02"));
  registry.Rows().SetFilter("COD = '03'");
  registry.Save();
  const auto companies = CompanyRegistry::Load(Directory()).Companies();
  ASSERT_EQ(companies.size(), 2u) << "a filter hides rows from the grid, not from the file";
  EXPECT_EQ(companies[0].cod, "01");
  EXPECT_EQ(companies[1].cod, "03");
  registry.Remove(RowOf(registry, "01"));
  registry.Remove(RowOf(registry, "03"));
  registry.Save();
  EXPECT_EQ(Content(folder_ / "Societat.XML"), kHead + kTail);
}

// Two programs work with one file: what each did stays.
TEST_F(Registry, WhatOthersDidMeanwhileIsTakenIn) {
  CompanyRegistry mine = CompanyRegistry::Empty(Directory());
  for (const char* code : {"01", "02"}) mine.Add({code, "Una", std::string("Kelnar") + code});
  mine.Save();
  CompanyRegistry other = CompanyRegistry::Load(Directory());
  other.Remove({"02", "Una", "Kelnar02"});
  other.Add({"02", "Alta", "Tevra02"});
  other.Add({"03", "Trei", "Kelnar03"});
  Recordset rows = other.Rows();
  rows.MoveFirst();
  rows.Find("COD = '01'");
  rows.Set("DENUMIRE", "A lor");
  rows.Update();
  other.Save();
  rows = mine.Rows();
  rows.MoveFirst();
  rows.Find("COD = '01'");
  rows.Set("DENUMIRE", "A mea");
  rows.Update();
  mine.Refresh();
  EXPECT_EQ(mine.Companies(), (std::vector<Company>{{"01", "A mea", "Kelnar01"},
                                                    {"02", "Alta", "Tevra02"},
                                                    {"03", "Trei", "Kelnar03"}}));
  mine.Remove({"03", "Trei", "Kelnar03"});
  mine.Refresh();
  EXPECT_FALSE(mine.Find("03")) << "taken in once";
}

TEST_F(Registry, OfTwoRowsOfOneCompanyTheNamedOneGoes) {
  const std::string row = "\t<z:row COD='01' NUMEBD='Kelnar01.mdb' DENUMIRE='";
  Make("Societat.XML", kHead + row + "Una'/>\n" + row + "Alta'/>\n" + kTail);
  CompanyRegistry registry = CompanyRegistry::Load(Directory());
  registry.Remove({"01", "Alta", "Kelnar01.mdb"});
  EXPECT_EQ(registry.Companies(), (std::vector<Company>{{"01", "Una", "Kelnar01.mdb"}}));
}

TEST_F(Registry, TheFileKeepsItsSpellingAndItsOtherColumns) {
  Make("SOCIETAT.xml",
       "<xml xmlns:s=\"uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882\""
       " xmlns:dt=\"uuid:C2F41010-65B3-11d1-A29F-00AA00C14882\""
       " xmlns:rs=\"urn:schemas-microsoft-com:rowset\" xmlns:z=\"#RowsetSchema\">"
       "<s:Schema id=\"RowsetSchema\"><s:ElementType name=\"row\">"
       "<s:AttributeType name=\"NumeBD\"/><s:AttributeType name=\"Cod\"/>"
       "<s:AttributeType name=\"Denumire\"/>"
       "<s:AttributeType name=\"ANUL\" dt:type=\"int\"/></s:ElementType></s:Schema>"
       "<rs:data><rs:insert><z:row Cod=\"02\" NumeBD=\"Tevra02.mdb\" ANUL=\"2004\"/></rs:insert>"
       "<z:row Cod=\"01\" Denumire=\"Una\" NumeBD=\"Kelnar01.mdb\"/></rs:data></xml>");
  CompanyRegistry registry = CompanyRegistry::Load(Directory() + "/");
  EXPECT_EQ(registry.Companies(),
            (std::vector<Company>{{"01", "Una", "Kelnar01.mdb"}, {"02", "", "Tevra02.mdb"}}));
  registry.Add({"03", "Trei", "Kelnar03.mdb"});
  registry.Save();
  EXPECT_EQ(NamesIn(folder_), (std::vector<std::string>{"SOCIETAT.xml"}));
  registry = CompanyRegistry::Load(Directory());
  Recordset rows = registry.Rows();
  rows.Find("COD = '02'");
  EXPECT_EQ(rows.Get("anul"), Value(2004));
  EXPECT_TRUE(rows.Get("DENUMIRE").IsNull());
  registry.Remove(RowOf(registry, "03"));
  registry.Remove(RowOf(registry, "02"));
  registry.PutBack();
  EXPECT_EQ(rows.Get("COD"), Value("02")) << "the last one, and it is the current row";
  EXPECT_EQ(rows.Get("ANUL"), Value(2004));
  registry.Remove(RowOf(registry, "02"));
  CompanyRegistry other = CompanyRegistry::Load(Directory());
  registry.Save();
  EXPECT_EQ(other.Companies().size(), 3U);
  other.Refresh();
  EXPECT_EQ(other.Companies(), (std::vector<Company>{{"01", "Una", "Kelnar01.mdb"}}));
}

TEST_F(Registry, AFileThatIsNoRegistryIsRefusedAndStays) {
  std::string lacking = kHead + kTail;
  lacking.replace(lacking.find("name='NUMEBD'"), 13, "name='NUMELE'");
  const std::string whole = kHead + "\t<z:row COD='01' NUMEBD='Kelnar01.mdb'/>\n" + kTail;
  const std::string kFiles[] = {"", "Societat", lacking, whole.substr(0, whole.size() - 9)};
  for (const std::string& text : kFiles) {
    const fs::path file = Make("Societat.XML", text);
    EXPECT_EQ(FailureOf([&] { CompanyRegistry::Load(Directory()); }), -2147467259) << text;
    EXPECT_EQ(FailureOf([&] { CompanyRegistry::WriteDefault(Directory()); }), 58);
    EXPECT_EQ(Content(file), text);
  }
  Make("Societat.XML", kHead + "\t<z:row COD='001'/>\n" + kTail);
  EXPECT_EQ(FailureOf([&] { CompanyRegistry::Load(Directory()); }), kTypeMismatch);
}

}  // namespace
}  // namespace tevra
