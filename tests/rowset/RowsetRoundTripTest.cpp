// What is written as rowset XML: its exact form, and that all of it comes back.
#include <limits>
#include <sstream>

#include "platform/rowset/Rowset.h"
#include "platform/rowset/RowsetReader.h"
#include "platform/rowset/RowsetWriter.h"
#include "tests/system/FileSizeLimit.h"
#include "tests/system/Folder.h"
#include "tests/text/Expect.h"

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
      {5, 5, 5, 1e21, DateTime(), Value::YesNo(false), "  blanks  around  "}};
  const Recordset read = Reread(Written(Filled(AllTypes(), rows)));
  EXPECT_EQ(RowsOf(read), rows);
  for (std::size_t i = 0; i < AllTypes().size(); ++i) {
    EXPECT_EQ(read.Field(i).def, AllTypes()[i].def) << AllTypes()[i].def.name;
  }
}

TEST(RowsetRoundTrip, TextsComeBackAsTheyWere) {
  const std::vector<Values> texts{{"it's \"quoted\""},
                                  {"a & b < c > d ]]> &amp; &#10;"},
                                  {"first\r\nsecond\rthird\nfourth\tfifth"},
                                  {"\n"},
                                  {"\xC8\x99\xC8\x9B\xC4\x83 \xF0\x9F\x93\x92 \xE2\x82\xAC"},
                                  {"{0} %s '' \\"}};
  EXPECT_EQ(RowsOf(Reread(Written(Filled({Column("A", FieldType::Text, 60)}, texts)))), texts);
}

TEST(RowsetRoundTrip, SchemaAndRowsHaveTheirAgreedForm) {
  auto fields = AllTypes();
  fields[0].def.required = true;
  fields[0].baseTable = "I_IMO";
  fields[0].baseColumn = "NRCRT";
  const std::string text = Written(
      Filled(fields, {{7, 2, 3, 1234.5, DateTime(2004, 12, 31), Value::YesNo(true), "l'etat"},
                      {8, Value(), Value(), Value(), Value(), Value::YesNo(false)}}));
  EXPECT_EQ(text, Content(TEVRA_AGREED_FORM));
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
  const std::vector<std::pair<Values, FieldType>> cases = {
      {{1, Value(), -5}, FieldType::Long},
      {{1, 2.5}, FieldType::Double},
      {{Value(std::int64_t{1} << 40)}, FieldType::Double},
      {{DateTime(2005, 1, 1), Value()}, FieldType::DateTime},
      {{Value::YesNo(true)}, FieldType::YesNo},
      {{std::string(300, 'x')}, FieldType::Text},
      {{1, "a"}, FieldType::Text},
      {{Value()}, FieldType::Text}};
  for (const auto& [values, type] : cases) {
    FieldInfo field;
    field.def.name = "E";
    std::vector<Values> rows;
    for (const Value& value : values) rows.push_back({value});
    const Recordset read = Reread(Written(Filled({field}, rows)));
    const int longest = values[0].TextOrEmpty().size() > 255 ? 300 : 255;
    EXPECT_EQ(read.Field(0).def.type, type);
    EXPECT_EQ(read.Field(0).def.size, type == FieldType::Text ? longest : SizeOf(type));
    EXPECT_EQ(read.RecordCount(), values.size());
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
    ASSERT_TRUE(reader.NextChild(0) && reader.Is("", "Linii") && reader.NextChild(1));
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

using RowsetInFolder = FolderTest;

TEST_F(RowsetInFolder, AFileIsReplacedWholeOrNotAtAll) {
  const fs::path file = folder_ / "Societat.XML";
  const auto fields = std::vector<FieldInfo>{Column("A", FieldType::Text, 9)};
  SaveRowset(Filled(fields, {{"old"}}), file);
  FieldInfo untyped = fields[0];
  untyped.typed = false;
  for (const char* refused : {"\x01", "\xFF", "\xEF\xBF\xBF"}) {
    const auto save = [&] { SaveRowset(Filled({untyped}, {{"new"}, {refused}}), file); };
    EXPECT_EQ(FailureOf(save), kValueNotAccepted);
    EXPECT_EQ(DescriptionOf(save).substr(0, 3), "A: ");
  }
  EXPECT_EQ(RowsOf(LoadRowset(file)), (std::vector<Values>{{"old"}}));
  EXPECT_EQ(NamesIn(folder_), (std::vector<std::string>{"Societat.XML"}));
}

TEST_F(RowsetInFolder, AFullDiskIsToldWithTheNameOfTheFile) {
  const std::vector<Values> rows(2000, {"a row that takes some room"});
  const Recordset recordset = Filled({Column("A", FieldType::Text, 30)}, rows);
  const FileSizeLimit full(20000);
  const fs::path file = folder_ / "Societat.XML";
  const Refusal refusal = RefusalOf([&] { SaveRowset(recordset, file); });
  EXPECT_EQ(refusal.number, kDiskFull);
  EXPECT_NE(refusal.text.find("Societat.XML"), std::string::npos) << refusal.text;
  EXPECT_TRUE(NamesIn(folder_).empty());
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
