// Damaged, foreign and hostile files: each is refused with its name and line, nothing is guessed.
#include <sstream>

#include <libxml/parser.h>

#include "platform/rowset/Rowset.h"
#include "platform/rowset/RowsetReader.h"
#include "tests/system/Folder.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

namespace fs = std::filesystem;

const std::string kRoot =
    "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'"
    " xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'"
    " xmlns:rs='urn:schemas-microsoft-com:rowset' xmlns:z='#RowsetSchema'>\n";
const std::string kSchema =
    "<s:Schema id='RowsetSchema'><s:ElementType name='row'>\n"
    "<s:AttributeType name='N'><s:datatype dt:type='i2'/></s:AttributeType>\n"
    "<s:AttributeType name='V'><s:datatype dt:type='float'/></s:AttributeType>\n"
    "<s:AttributeType name='D'><s:datatype dt:type='dateTime'/></s:AttributeType>\n"
    "<s:AttributeType name='B'><s:datatype dt:type='boolean'/></s:AttributeType>\n"
    "<s:AttributeType name='T'><s:datatype dt:type='string' dt:maxLength='3'/></s:AttributeType>\n"
    "</s:ElementType></s:Schema>\n";
const std::string kEnd = "</rs:data></xml>";

std::string WithData(const std::string& data) {
  return kRoot + kSchema + "<rs:data>\n" + data + kEnd;
}

/// The failure of reading `text`, as "number: description".
std::string Told(const std::string& text) {
  std::istringstream in(text);
  try {
    LoadRowset(in, "C:\\Date\\Export.xml");
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Source(), "C:\\Date\\Export.xml");
    return std::to_string(failure.Number()) + ": " + failure.Description();
  }
  return "read";
}

TEST(RowsetDamage, WhatIsNoRowsetIsRefusedWithItsLine) {
  const std::string row = "<z:row N='1'/>\n";
  // texts and what is told of them behind the name of the file
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "linia 1: "},
      {"SQLite format 3", "linia 1: "},
      {"<html><body/></html>", "linia 1: nu este un rowset: elementul este html"},
      {kRoot + "</xml>", "linia 1: nu este un rowset: fara schema"},
      {kRoot + kSchema + "</xml>", "linia 1: nu este un rowset: fara randuri"},
      {kRoot + "<rs:data/>\n</xml>", "linia 2: nu este un rowset: randuri fara schema"},
      {kRoot + "<s:Schema/><rs:data/></xml>", "linia 2: nu este un rowset: fara coloane"},
      {"<xml><s:Schema/></xml>", "linia 1: "},
      {kRoot + kSchema + kSchema + "<rs:data/></xml>", "linia 9: nu este un rowset: a doua schema"},
      {kRoot + "<s:Schema><s:AttributeType/></s:Schema></xml>",
       "linia 2: nu este un rowset: o coloana fara nume"},
      {kRoot +
           "<s:Schema><s:AttributeType name='A'/>\n<s:AttributeType name='A'/></s:Schema></xml>",
       "linia 2: nu este un rowset: coloana A apare de doua ori"},
      {kRoot + "<s:Schema><s:AttributeType name='A' dt:type='string' dt:maxLength='x'/></s:Schema>"
               "</xml>",
       "linia 2: nu este un rowset: lungimea x"},
      {WithData(row + "<other/>"), "linia 11: nu este un rowset: other intre randuri"},
      {WithData("<z:row N='1'><z:row N='2'/></z:row>"),
       "linia 10: nu este un rowset: row intr-un rand"},
      {WithData("<rs:update><z:row N='1'/></rs:update>"),
       "linia 10: nu este un rowset: un rand modificat fara originalul lui"},
      {WithData("<rs:update><rs:original><z:row N='1'/></rs:original><z:row N='2'/></rs:update>"
                "<rs:update><z:row N='3'/></rs:update>"),
       "linia 10: nu este un rowset: un rand modificat fara originalul lui"},
      {WithData(row) + std::string(100000, ' ') + "<more/>", "linia 11: "},
      {WithData("<rs:insert><other/></rs:insert>"),
       "linia 10: nu este un rowset: other intre randurile modificate"},
      {kRoot + kSchema + "<rs:data/><rs:data>\n" + row + kEnd,
       "linia 9: nu este un rowset: randuri de doua ori"},
      {WithData(row + row).substr(0, WithData(row + row).size() - 20), "linia 11: "},
      {WithData(row).substr(0, WithData(row).size() - 1), "linia 11: "},
      {WithData(row) + "<xml/>", "linia 11: "},
      {WithData(row + "<z:row N='1' N='2'/>"), "linia 11: "},
      {WithData(row + "<z:row T='\xBA'/>"), "linia 11: "},
      {WithData(row + "<z:row T='&#1;'/>"), "linia 11: "},
      {WithData(row + "<z:row T='&unknown;'/>"), "linia 11: "},
      {WithData(row + "<y:row N='1'/>"), "linia 11: "}};
  for (const auto& [text, expected] : cases) {
    const std::string start = "-2147467259: Export.xml, " + expected;
    EXPECT_EQ(Told(text).substr(0, start.size()), start) << text;
  }
}

TEST(RowsetDamage, AValueThatDoesNotConvertIsRefusedWithItsLine) {
  for (const auto& value :
       Parts("N='x'|N=''|N='1.5'|N='40000'|N='1 "
             "2'|N='+-5'|V='1,5'|V='1e999'|V='nan'|V='inf'|V='0x10'|"
             "B='Da'|B=''|T='four'|D='31.12.2004'|D='2004-02-30'|D='2004-12-31T25:00:00'|"
             "D='2004-12-31T00:00:00Z'|D='2004-12-31T00:00:00.'")) {
    const std::string start = "13: Export.xml, linia 11: " + value.substr(0, 1) + ": Type mismatch";
    EXPECT_EQ(Told(WithData("<z:row/>\n<z:row " + value + "/>")).substr(0, start.size()), start)
        << value;
  }
}

/// Counts what the parser asks to be fetched while it lives.
class FetchWatch {
 public:
  FetchWatch() : former_(xmlGetExternalEntityLoader()) {
    fetched = 0;
    xmlSetExternalEntityLoader([](const char*, const char*, xmlParserCtxtPtr) {
      ++fetched;
      return xmlParserInputPtr{};
    });
  }
  ~FetchWatch() { xmlSetExternalEntityLoader(former_); }
  static inline int fetched = 0;

 private:
  xmlExternalEntityLoader former_;
};

TEST(RowsetDamage, EntitiesAreNeitherGrownNorFetched) {
  const FetchWatch watch;
  std::string bomb = "<!DOCTYPE xml [<!ENTITY e0 'aaaaaaaaaa'>";
  for (int i = 1; i < 12; ++i) {
    const std::string before = "&e" + std::to_string(i - 1) + ";";
    std::string ten;
    for (int k = 0; k < 10; ++k) ten += before;
    bomb += "<!ENTITY e" + std::to_string(i) + " '" + ten + "'>";
  }
  const std::string file = "file:///etc/hostname";
  const std::string kDocuments[] = {
      bomb + "]>" + WithData("<z:row T='&e11;'/>"),
      "<!DOCTYPE xml [<!ENTITY e SYSTEM '" + file + "'>]>" + WithData("&e;<z:row/>"),
      "<!DOCTYPE xml [<!ENTITY % p SYSTEM '" + file + "'>%p;]>" + WithData("<z:row T='&e;'/>"),
      "<!DOCTYPE xml SYSTEM '" + file + "'>" + WithData("<z:row T='&e;'/>"),
      "<!DOCTYPE xml [<!ATTLIST z:row N CDATA '1'>]>" + WithData("<z:row/>")};
  for (const std::string& document : kDocuments) {
    const std::string told = Told(document);
    EXPECT_EQ(told.substr(0, 31), "-2147467259: Export.xml, linia ") << told;
    EXPECT_NE(told.find("tipul de document (DOCTYPE) nu se accepta"), told.npos) << told;
  }
  std::string deep = WithData("");
  for (int i = 0; i < 10000; ++i) deep.insert(deep.size() - kEnd.size(), "<a>");
  EXPECT_NE(Told(deep), "read");
  EXPECT_EQ(FetchWatch::fetched, 0);
}

using RowsetFile = FolderTest;

TEST_F(RowsetFile, AMissingFileIsToldAsSuch) {
  for (const fs::path& file : {folder_ / "no such.xml", folder_}) {
    EXPECT_EQ(FailureOf([&] { LoadRowset(file); }), kFileNotFound) << file;
  }
}

TEST(RowsetDamage, RowsBeforeTheDamageCanBeReadOneByOne) {
  std::string data;
  for (int i = 0; i < 2000; ++i) data += "<z:row N='" + std::to_string(i) + "'/>\n";
  std::istringstream in(WithData(data + "<z:row N='x'/>"));
  RowsetReader reader(in, "Export.xml");
  Values values;
  for (int i = 0; i < 2000; ++i) {
    ASSERT_TRUE(reader.Next(values));
    ASSERT_EQ(values[0], Value(i));
  }
  EXPECT_THROW(reader.Next(values), Failure);
}

}  // namespace
}  // namespace tevra
