// Rowset XML as other tools write it.
#include <sstream>

#include <gtest/gtest.h>

#include "platform/rowset/Rowset.h"

namespace tevra {
namespace {

Recordset Read(const std::string& text) {
  std::istringstream in(text);
  return LoadRowset(in, "bloc.xml");
}

/// A rowset with these columns and this content of its data, with prefixes of its own.
std::string Foreign(const std::string& columns, const std::string& data) {
  return "<?xml version=\"1.0\"?>\n<!-- from elsewhere -->\n"
         "<xml xmlns:row=\"#RowsetSchema\" xmlns:R=\"urn:schemas-microsoft-com:rowset\"\n"
         "  xmlns:t=\"uuid:C2F41010-65B3-11d1-A29F-00AA00C14882\""
         " xmlns='' xmlns:sch='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'>"
         "<sch:Schema id='RowsetSchema'><sch:description>x</sch:description>"
         "<sch:ElementType content='eltOnly' name='row'>" +
         columns +
         "<sch:extends type='R:rowbase'/></sch:ElementType></sch:Schema>"
         "<R:data>" +
         data + "</R:data></xml>";
}

std::string TypedColumn(const std::string& type) {
  return "<sch:AttributeType name='A'><sch:datatype " + type + "/></sch:AttributeType>";
}

TEST(RowsetRead, PrefixesQuotesAndOrderAreFree) {
  const Recordset read = Read(
      Foreign("<sch:AttributeType R:basecolumn=\"B1\" R:number='2' zzz='?' name=\"B\""
              " R:basetable='T'><sch:datatype R:fixedlength='true' t:maxLength='8'"
              " t:type='float'/></sch:AttributeType>"
              "<sch:AttributeType R:number='1' name='c0' R:name='Data intrarii' t:type='string'"
              " t:maxLength='4'/>",
              "<row:row B='-.5e1' unknown='1' c0=\"a'b\" R:B='9'></row:row>text<row:row/>"));
  ASSERT_EQ(read.FieldCount(), 2u);
  EXPECT_EQ(read.Field(0).def.name, "Data intrarii");
  EXPECT_EQ(read.Field(0).def.size, 4);
  EXPECT_EQ(read.Field(1).baseTable, "T");
  EXPECT_EQ(read.Field(1).baseColumn, "B1");
  ASSERT_EQ(read.RecordCount(), 2u);
  EXPECT_EQ(read.Get(0), Value("a'b"));
  EXPECT_EQ(read.Get(1), Value(-5.0));
}

TEST(RowsetRead, ValuesFollowTheTypesOfTheirColumns) {
  const struct {
    const char* type;
    const char* text;
    Value value;
  } cases[] = {
      {"t:type='i4'", " +12 ", 12},
      {"t:type='ui1'", "255", 255},
      {"t:type='i8'", "3000000000", 3e9},
      {"t:type='number' R:dbtype='currency'", "1234.5600", 1234.56},
      {"t:type='boolean'", "0", Value::YesNo(false)},
      {"t:type='boolean'", "TRUE", Value::YesNo(true)},
      {"t:type='dateTime' R:dbtype='timestamp'", "2004-12-31T10:20:30.900000000",
       DateTime(2004, 12, 31, 10, 20, 30)},
      {"t:type='date'", "2004-12-31", DateTime(2004, 12, 31)},
      {"t:type='string' R:dbtype='variantdate'", "2004-12-31T00:00:00", DateTime(2004, 12, 31)},
      {"t:type='string'", "any length goes without a length", "any length goes without a length"},
      {"t:type='uuid' t:maxLength='16'", "{BDC6E3F0-6DA3-11d1}", "{BDC6E3F0-6DA3-11d1}"},
      {"t:type='string' t:maxLength='1'", "&#x219;", "\xC8\x99"},
      {"t:type='string'", "a\nb", "a b"}};
  for (const auto& c : cases) {
    const std::string row = std::string("<row:row A='") + c.text + "'/>";
    EXPECT_EQ(Read(Foreign(TypedColumn(c.type), row)).Get("A"), c.value) << c.type << c.text;
  }
}

TEST(RowsetRead, AValueLeftOutIsTheDefaultOrNull) {
  const Recordset read = Read(Foreign(
      "<sch:AttributeType name='A' default='5'><sch:datatype t:type='int'/></sch:AttributeType>"
      "<sch:AttributeType name='B'/>",
      "<row:row/>"));
  EXPECT_EQ(read.Get("A"), Value(5));
  EXPECT_TRUE(read.Get("B").IsNull());
}

TEST(RowsetRead, AColumnIsRequiredUnlessOneOfItsMarksLetsItBeNull) {
  const auto required = [](const std::string& mark, const std::string& ofType) {
    const std::string column = "<sch:AttributeType name='A' " + mark + "><sch:datatype " + ofType +
                               " t:type='int'/></sch:AttributeType>";
    return Read(Foreign(column, "<row:row A='1'/>")).Field(0).def.required;
  };
  EXPECT_TRUE(required("", "R:maybenull='false'"));
  EXPECT_FALSE(required("R:nullable='true'", "R:maybenull='false'"));
  EXPECT_FALSE(required("", ""));
}

TEST(RowsetRead, RowsWithPendingChangesAreReadAsChanged) {
  Recordset read = Read(Foreign(
      "<sch:AttributeType name='A'/><sch:AttributeType name='B'/>",
      "<row:row A='1' B='one'/>"
      "<R:insert><row:row A='2' B='two'/><row:row A='3'/></R:insert><R:insert/>"
      "<R:delete><row:row A='4' B='four'/></R:delete>"
      "<R:update><R:original><row:row A='5' B='five'/></R:original><row:row B='fünf'/></R:update>"
      "<R:update><R:original><row:row A='6' B='six'/></R:original>"
      "<row:row R:forcenull='B'/></R:update>"
      "<row:row A='7'/>"));
  std::string told;
  for (; !read.Eof(); read.MoveNext()) {
    told += read.Get("A").AsText() + "=" + read.Get("B").TextOrEmpty() + ";";
  }
  EXPECT_EQ(told, "1=one;2=two;3=;5=fünf;6=;7=;");
}

TEST(RowsetRead, OtherEncodingsAreTakenAsDeclared) {
  std::string text = Foreign("<sch:AttributeType name='A'/>", "<row:row A='\xBA'/>");
  text.replace(0, 21, "<?xml version='1.0' encoding='ISO-8859-2'?>");
  EXPECT_EQ(Read(text).Get("A"), Value("\xC5\x9F"));
}

}  // namespace
}  // namespace tevra
