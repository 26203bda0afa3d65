// Files that an import refuses, without changing anything.
#include <array>

#include "tests/exchange/ImportTest.h"
#include "tests/text/Expect.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

template <typename Call>
std::string ToldBy(Call call) {
  const Refusal refusal = RefusalOf(call);
  return std::to_string(refusal.number) + ": " + refusal.text;
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
  const std::string first = "Cut.xml, linia 1: ";
  for (const auto& [text, told] : std::vector<std::array<std::string, 2>>{
           {deep, first + "documentul are prea multe niveluri ("},
           {bomb, first},
           {"<!DOCTYPE IE>" + whole.substr(whole.find("<IE>")),
            "tipul de document (DOCTYPE) nu se accepta"},
           {"no XML", first + "documentul este gol ("},
           {"<IE a='1' a='2'/>", first + "un atribut apare de doua ori ("},
           {"<IE>\xff</IE>", first + "un caracter nu este permis ("},
           {whole + std::string(100000, ' ') + "<more/>", "documentul nu este intreg ("}}) {
    WriteFile(cut, text);
    const Refusal refusal = RefusalOf([&] { LoadExchange(cut.string()); });
    EXPECT_EQ(refusal.number, kDatabaseNotOpened);
    EXPECT_NE(refusal.text.find(told), std::string::npos) << refusal.text;
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
  own.code = "S1";
  EXPECT_EQ(OwnFileText(own), "");
}

TEST_F(Import, ReadsTheHeaderOfAnotherTool) {
  const auto header = [this](const char* from, const char* to) {
    const std::string file = Changed(from, to);
    return GetXMLHeader(LoadExchange(file), file);
  };
  EXPECT_EQ(header("01.01.2006</DataInceput>", "\r\n\t01/02/2006\n</DataInceput>").from,
            DateTime(2006, 2, 1));
  EXPECT_EQ(header(">S1<", "><![CDATA[S1]]>\n <").code, "S1");
  for (const char* word : {">Fals<", ">no<", ">0<", ">Nu<"}) {
    EXPECT_FALSE(header(">False<", word).isCentre) << word;
  }
  for (const char* word : {">Adevarat<", ">YES<", ">-1<", ">Da<"}) {
    EXPECT_TRUE(header(">False<", word).isCentre) << word;
  }
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
           {"NUME='Gama'", "Nume='Gama'", "schema nu are coloana Nume"},
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
  for (const char* table : {"tmp_CC", "tmp_Jurnale"}) {
    centre.Execute(std::string("ALTER TABLE ") + table + " ADD COLUMN X TEXT(5)");
  }
  const std::string before = Dump(centre_);
  ImportRequest request = Request(file_);
  std::string failed;
  request.load.run = [&](const char* procedure, const std::string&, const auto& step) {
    const bool done = RefusalOf(step).number == 0;
    if (!done) failed += procedure + std::string(" ");
    return done;
  };
  EXPECT_EQ(ImportFile(centre, request).result, Imported::Result::kFailed);
  // Each step runs whatever the one before returned.
  EXPECT_EQ(failed, "PrelCentreCost PrelJurnale ");
  const std::string refusal =
      "Versiunile dintre bazele de date de Export si Import sunt diferite, nu am putut importa: ";
  EXPECT_EQ(refused_, (std::vector<std::string>{refusal + "Kv_CC", refusal + "Kv_Jur"}));
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

}  // namespace
}  // namespace tevra::test
