// What is written as rowset XML: its exact form, and that all of it comes back.
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/rowset/Rowset.h"
#include "platform/rowset/RowsetReader.h"
#include "platform/rowset/RowsetWriter.h"
#include "tests/system/Folder.h"

namespace tevra {
namespace {

namespace fs = std::filesystem;

FieldInfo Column(const std::string& name, FieldType type, int size = 0) {
  FieldInfo field;
  field.def.name = name;
  field.def.type = type;
  field.def.size = size ? size : SizeOf(type);
  field.typed = true;
  return field;
}

Recordset Filled(const std::vector<FieldInfo>& fields, const std::vector<Values>& rows) {
  Recordset recordset = Recordset::Create(fields);
  for (const Values& row : rows) {
    recordset.AddNew();
    for (std::size_t i = 0; i < row.size(); ++i) recordset.Set(i, row[i]);
    recordset.Update();
  }
  return recordset;
}

std::vector<Values> RowsOf(Recordset recordset) {
  std::vector<Values> rows;
  for (recordset.MoveFirst(); !recordset.Eof(); recordset.MoveNext()) {
    Values row;
    for (std::size_t i = 0; i < recordset.FieldCount(); ++i) row.push_back(recordset.Get(i));
    rows.push_back(row);
  }
  return rows;
}

std::string Written(const Recordset& recordset) {
  std::ostringstream out;
  SaveRowset(recordset, out);
  return out.str();
}

Recordset Reread(const std::string& text) {
  std::istringstream in(text);
  return LoadRowset(in, "bloc.xml");
}

const std::vector<FieldInfo>& AllTypes() {
  static const std::vector<FieldInfo> kFields{
      Column("NRCRT", FieldType::Long),       Column("TIP", FieldType::Byte),
      Column("CATEG", FieldType::Integer),    Column("VALINV", FieldType::Double),
      Column("DATAIN", FieldType::DateTime),  Column("ACTIV", FieldType::YesNo),
      Column("DENUMIRE", FieldType::Text, 60)};
  return kFields;
}

TEST(RowsetRoundTrip, ValuesOfAllTypesComeBackToTheLastBit) {
  using Long = std::numeric_limits<std::int32_t>;
  using Double = std::numeric_limits<double>;
  const std::vector<Values> rows{
      {1, 0, -32768, 0.1 + 0.2, DateTime(2004, 12, 31), Value::YesNo(true), "strung"},
      {Long::min(), 255, 32767, Double::denorm_min(), DateTime(100, 1, 1), Value::YesNo(false), ""},
      {Long::max(), 7, 0, -Double::max(), DateTime(9999, 12, 31, 23, 59, 59), Value::YesNo(true),
       Value()},
      {Value(), Value(), Value(), Value(), Value(), Value(), Value()},
      {5, 5, 5, 1e21, DateTime(), Value::YesNo(false), "  blanks  around  "},
  };
  const Recordset read = Reread(Written(Filled(AllTypes(), rows)));
  EXPECT_EQ(RowsOf(read), rows);
  for (std::size_t i = 0; i < AllTypes().size(); ++i) {
    EXPECT_EQ(read.Field(i).def, AllTypes()[i].def) << AllTypes()[i].def.name;
  }
}

TEST(RowsetRoundTrip, TextsComeBackAsTheyWere) {
  const char* const kTexts[] = {"it's \"quoted\"",
                                "a & b < c > d ]]> &amp; &#10;",
                                "first\r\nsecond\rthird\nfourth\tfifth",
                                "\n",
                                "\xC8\x99\xC8\x9B\xC4\x83\xC3\xA2\xC3\xAE \xC5\xA3\xC5\x9F",
                                "\xF0\x9F\x93\x92 \xE2\x82\xAC",
                                "{0} %s '' \\"};
  for (const std::string text : kTexts) {
    const auto rows = RowsOf(Reread(Written(Filled({Column("A", FieldType::Text, 60)}, {{text}}))));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0], Value(text));
  }
}

TEST(RowsetRoundTrip, SchemaAndRowsHaveTheirAgreedForm) {
  auto fields = AllTypes();
  fields[0].def.required = true;
  fields[0].baseTable = "I_IMO";
  fields[0].baseColumn = "NRCRT";
  const std::string text = Written(
      Filled(fields, {{7, 2, 3, 1234.5, DateTime(2004, 12, 31), Value::YesNo(true), "l'etat"},
                      {8, Value(), Value(), Value(), Value(), Value::YesNo(false)}}));
  EXPECT_EQ(
      text,
      "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'"
      " xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'"
      " xmlns:rs='urn:schemas-microsoft-com:rowset' xmlns:z='#RowsetSchema'>\n"
      "<s:Schema id='RowsetSchema'>\n"
      "\t<s:ElementType name='row' content='eltOnly' rs:updatable='true'>\n"
      "\t\t<s:AttributeType name='NRCRT' rs:number='1' rs:write='true' rs:basetable='I_IMO'"
      " rs:basecolumn='NRCRT'><s:datatype dt:type='int' dt:maxLength='4' rs:precision='10'"
      " rs:fixedlength='true' rs:maybenull='false'/></s:AttributeType>\n"
      "\t\t<s:AttributeType name='TIP' rs:number='2' rs:nullable='true'><s:datatype dt:type='ui1'"
      " dt:maxLength='1' rs:precision='3' rs:fixedlength='true'/></s:AttributeType>\n"
      "\t\t<s:AttributeType name='CATEG' rs:number='3' rs:nullable='true'><s:datatype dt:type='i2'"
      " dt:maxLength='2' rs:precision='5' rs:fixedlength='true'/></s:AttributeType>\n"
      "\t\t<s:AttributeType name='VALINV' rs:number='4' rs:nullable='true'><s:datatype"
      " dt:type='float' dt:maxLength='8' rs:precision='15' rs:fixedlength='true'/>"
      "</s:AttributeType>\n"
      "\t\t<s:AttributeType name='DATAIN' rs:number='5' rs:nullable='true'><s:datatype"
      " dt:type='dateTime' rs:dbtype='variantdate' dt:maxLength='16' rs:fixedlength='true'/>"
      "</s:AttributeType>\n"
      "\t\t<s:AttributeType name='ACTIV' rs:number='6' rs:nullable='true'><s:datatype"
      " dt:type='boolean' dt:maxLength='2' rs:fixedlength='true'/></s:AttributeType>\n"
      "\t\t<s:AttributeType name='DENUMIRE' rs:number='7' rs:nullable='true'><s:datatype"
      " dt:type='string' rs:dbtype='str' dt:maxLength='60'/></s:AttributeType>\n"
      "\t\t<s:extends type='rs:rowbase'/>\n"
      "\t</s:ElementType>\n"
      "</s:Schema>\n"
      "<rs:data>\n"
      "\t<z:row NRCRT='7' TIP='2' CATEG='3' VALINV='1234.5' DATAIN='2004-12-31T00:00:00'"
      " ACTIV='True' DENUMIRE='l&apos;etat'/>\n"
      "\t<z:row NRCRT='8' ACTIV='False'/>\n"
      "</rs:data>\n"
      "</xml>\n");
  EXPECT_TRUE(Reread(text).Field(0).def.required);
  EXPECT_EQ(Reread(text).Field(0).baseTable, "I_IMO");
}

TEST(RowsetRoundTrip, NamesThatXmlDoesNotTakeAreKept) {
  const std::vector<std::string> names{"c0",  "Data intrarii", "1",   "COD:2",    "xmlns",   "c1",
                                       "COD", "COD",           "cod", "a'<&>\"b", "\xC8\x99"};
  std::vector<FieldInfo> fields;
  Values row;
  for (const auto& name : names) {
    fields.push_back(Column(name, FieldType::Long));
    row.push_back(static_cast<int>(row.size()));
  }
  const std::string text = Written(Filled(fields, {row}));
  EXPECT_NE(text.find("name='c1_' rs:name='Data intrarii'"), text.npos) << text;
  const Recordset read = Reread(text);
  ASSERT_EQ(read.FieldCount(), names.size());
  for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(read.Field(i).def.name, names[i]);
  EXPECT_EQ(RowsOf(read), std::vector<Values>{row});
}

TEST(RowsetRoundTrip, ExpressionsGetTheTypeOfTheirValues) {
  struct Case {
    Values values;
    FieldType type;
    int size;
  };
  const Case kCases[] = {
      {{1, Value(), -5}, FieldType::Long, 4},
      {{1, 2.5}, FieldType::Double, 8},
      {{Value(std::int64_t{1} << 40)}, FieldType::Double, 8},
      {{DateTime(2005, 1, 1), Value()}, FieldType::DateTime, 8},
      {{Value::YesNo(true)}, FieldType::YesNo, 1},
      {{std::string(300, 'x')}, FieldType::Text, 300},
      {{1, "a"}, FieldType::Text, 255},
      {{Value()}, FieldType::Text, 255},
  };
  for (const Case& c : kCases) {
    FieldInfo field;
    field.def.name = "E";
    std::vector<Values> rows;
    for (const Value& value : c.values) rows.push_back({value});
    const Recordset read = Reread(Written(Filled({field}, rows)));
    EXPECT_EQ(read.Field(0).def.type, c.type);
    EXPECT_EQ(read.Field(0).def.size, c.size);
    EXPECT_EQ(read.RecordCount(), c.values.size());
  }
}

TEST(RowsetRoundTrip, WritesTheFilteredRowsAndLeavesThePosition) {
  Recordset recordset = Filled({Column("A", FieldType::Long)}, {{3}, {1}, {2}});
  recordset.SetFilter("A >= 2");
  recordset.SetSort("A");
  recordset.MoveLast();
  EXPECT_EQ(RowsOf(Reread(Written(recordset))), (std::vector<Values>{{2}, {3}}));
  EXPECT_EQ(recordset.Get("A"), Value(3));
}

TEST(RowsetRoundTrip, BlocksStandWithinALargerDocument) {
  std::ostringstream out;
  XmlWriter xml(out);
  xml.StartElement("IE");
  for (const int rows : {2, 0}) {
    xml.StartElement("Linii");
    RowsetWriter writer(xml);
    writer.Begin({Column("A", FieldType::Long)});
    for (int i = 0; i < rows; ++i) writer.Row({i});
    writer.End();
    xml.EndElement();
  }
  xml.StartElement("CodCC");
  xml.Text("0<1");
  xml.EndElement();
  xml.EndElement();
  xml.Flush();

  std::istringstream in(out.str());
  XmlReader reader(in, "Export.xml");
  for (const std::size_t expected : {2u, 0u}) {
    ASSERT_TRUE(reader.NextChild(0));
    ASSERT_TRUE(reader.Is("", "Linii"));
    ASSERT_TRUE(reader.NextChild(1));
    RowsetReader rows(reader);
    Values values;
    std::size_t count = 0;
    for (; rows.Next(values); ++count) EXPECT_EQ(values[0], Value(static_cast<int>(count)));
    EXPECT_EQ(count, expected);
  }
  ASSERT_TRUE(reader.NextChild(0));
  EXPECT_EQ(reader.Text(), "0<1");
  EXPECT_FALSE(reader.NextChild(0));
  reader.Finish();
}

class RowsetInFolder : public FolderTest {};

TEST_F(RowsetInFolder, AFileIsReplacedWholeOrNotAtAll) {
  const fs::path file = folder_ / "Societat.XML";
  const auto fields = std::vector<FieldInfo>{Column("A", FieldType::Text, 9)};
  SaveRowset(Filled(fields, {{"old"}}), file);
  for (const char* refused : {"\x01", "\xFF", "\xEF\xBF\xBF"}) {
    FieldInfo untyped = fields[0];
    untyped.typed = false;
    try {
      SaveRowset(Filled({untyped}, {{"new"}, {refused}}), file);
      ADD_FAILURE() << "written";
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kValueNotAccepted);
      EXPECT_EQ(failure.Description().substr(0, 3), "A: ");
    }
  }
  EXPECT_EQ(RowsOf(LoadRowset(file)), (std::vector<Values>{{"old"}}));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 1);
}

TEST(RowsetRoundTrip, AStreamThatTakesNoMoreIsAFullDisk) {
  std::ofstream full("/dev/full");
  RowsetWriter writer(full);
  try {
    writer.Begin({Column("A", FieldType::Text, 9)});
    writer.End();
    ADD_FAILURE() << "written";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kDiskFull);
  }
}

TEST(RowsetRoundTrip, AWriterConvertsByTheFieldAndRefusesTheRest) {
  std::ostringstream out;
  RowsetWriter writer(out);
  writer.Begin({Column("A", FieldType::Byte), Column("B", FieldType::Text, 3)});
  writer.Row({Value::YesNo(false), 12});
  EXPECT_THROW(writer.Row({256, Value()}), Failure);
  EXPECT_THROW(writer.Row({1, "1234"}), Failure);
  EXPECT_THROW(writer.Row({1}), Failure);
  writer.Row({2.0, "\xC8\x99\xC8\x99\xC8\x99"});
  writer.End();
  EXPECT_EQ(RowsOf(Reread(out.str())),
            (std::vector<Values>{{0, "12"}, {2, "\xC8\x99\xC8\x99\xC8\x99"}}));
}

}  // namespace
}  // namespace tevra
