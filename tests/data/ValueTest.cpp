// Values and their conversions.

#include <cfloat>
#include <cstdlib>
#include <tuple>

#include "platform/data/CsvCell.h"
#include "tests/data/DataTest.h"

namespace tevra {
namespace {

TEST(ValueTest, Converts) {
  const DateTime date(2005, 1, 1);
  const std::vector<std::tuple<Value, double, std::string, bool>> cases = {
      {5, 5, "5", true},
      {0.0, 0, "0", false},
      {-2.5, -2.5, "-2,5", true},
      {"1.234,56", 1234.56, "1.234,56", true},
      {Value::YesNo(true), -1, "True", true},
      {Value::YesNo(false), 0, "False", false},
      {date, 38353, "01.01.2005", true}};
  for (const auto& [value, number, text, yes] : cases) {
    EXPECT_EQ(number, value.AsDouble()) << text;
    EXPECT_EQ(text, value.AsText());
    EXPECT_EQ(yes, value.AsBool()) << text;
  }
  EXPECT_EQ(2, Value(2.5).AsLong());
  EXPECT_EQ(4, Value("3,5").AsLong());
  EXPECT_EQ(date, Value(38353).AsDateTime());
  EXPECT_EQ(date, Value("1/1/2005").AsDateTime());
  EXPECT_TRUE(Value("da").AsBool());
  EXPECT_FALSE(Value("FALSE").AsBool());
  EXPECT_EQ("", Value().TextOrEmpty());
}

TEST(ValueTest, RefusesWhatDoesNotConvert) {
  const Value null;
  EXPECT_EQ(kInvalidUseOfNull, FailureOf([&] { null.AsDouble(); }));
  EXPECT_EQ(kInvalidUseOfNull, FailureOf([&] { null.AsText(); }));
  EXPECT_EQ(kInvalidUseOfNull, FailureOf([&] { null.AsBool(); }));
  EXPECT_EQ(kInvalidUseOfNull, FailureOf([&] { null.AsDateTime(); }));
  EXPECT_EQ(kTypeMismatch, FailureOf([&] { Value("maine").AsDateTime(); }));
  EXPECT_EQ(kOverflow, FailureOf([&] { Value(1e9).AsDateTime(); }));
}

TEST(ValueTest, OrdersAsTheFileDoes) {
  const std::vector<Value> ascending = {
      Value(), Value::YesNo(true), 0, 0.5, DateTime(2005, 1, 1), "", "2", "A", "ab", "B"};
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      const int order = CompareValues(ascending[i], ascending[j]);
      EXPECT_EQ(i < j, order < 0) << i << " " << j;
      EXPECT_EQ(i == j, order == 0) << i << " " << j;
    }
  }
  EXPECT_EQ(0, CompareValues("strung", "STRUNG"));
  EXPECT_FALSE(Value("strung") == Value("STRUNG"));
  EXPECT_FALSE(Value(1) == Value(1.0));
}

TEST(ValueTest, ATextIsMeasuredInCharacters) {
  FieldDef field;
  field.name = "T";
  field.size = 2;
  EXPECT_EQ(ConvertToField("șț", field), Value("șț"));
  EXPECT_EQ(FailureOf([&] { ConvertToField("șță", field); }), kValueNotAccepted);
}

TEST(ValueTest, ADeclaredTypeIsReadWholeOrNotAtAll) {
  FieldDef field;
  for (const auto& declared :
       Parts("|TEXT|TEXT()|TEXT(0)|TEXT(-1)|TEXT(5|TEXT(5x)|BLOB|TEXT(99999999999)")) {
    EXPECT_FALSE(ParseDeclaredType(declared, field)) << declared;
  }
}

TEST(ValueTest, ACsvCellHasAllDigitsAndNoExponent) {
  EXPECT_EQ(CsvCellOf(300000.0), "300000");
  EXPECT_EQ(CsvCellOf(-0.00001), "-0.00001");
  EXPECT_EQ(CsvCellOf(-0.0), "0");
  for (const double number : {DBL_MAX, -DBL_TRUE_MIN, 1.0 / 3, 1e22}) {
    const std::string text = CsvCellOf(number);
    EXPECT_EQ(text.find('e'), std::string::npos);
    EXPECT_EQ(std::strtod(text.c_str(), nullptr), number);
  }
}

}  // namespace
}  // namespace tevra
