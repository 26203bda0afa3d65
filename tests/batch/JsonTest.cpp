// The JSON writer, read back by another parser.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <limits>
#include <sstream>

#include <gtest/gtest.h>

#include "app/batch/monthend/Json.h"

namespace tevra::batch::test {
namespace {

TEST(Json, AnyTextAndNumberIsReadBack) {
  const std::string all = std::string("\0\x01\x1F\x7F\"\\/\n\t ăâîșț €\xF0\x9F\x98\x80", 28);
  std::ostringstream out;
  JsonWriter json(out);
  json.Open('{');
  json.Key("a\"b").Text(all);
  json.Key("bad").Text("x\xFFy\xC3");
  json.Key("list").Open('[');
  for (const double number : {0.1, -1234567890123.45, 1e300, 0.0}) json.Number(number);
  json.Number(std::numeric_limits<double>::infinity());
  json.Open('[');
  json.Close(']');
  json.TextOrNull("");
  json.Bool(true);
  json.Close(']');
  json.Close('}');
  QJsonParseError error;
  const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(out.str()), &error);
  ASSERT_EQ(error.error, QJsonParseError::NoError) << out.str();
  EXPECT_EQ(document["a\"b"].toString().toStdString(), all);
  EXPECT_EQ(document["bad"].toString().toStdString(), "x\uFFFDy\uFFFD");
  const QJsonArray list = document["list"].toArray();
  ASSERT_EQ(list.size(), 8);
  EXPECT_EQ(list[0].toDouble(), 0.1);
  EXPECT_EQ(list[1].toDouble(), -1234567890123.45);
  EXPECT_TRUE(list[4].isNull() && list[6].isNull() && list[5].isArray());
  EXPECT_TRUE(list[7].toBool());
}

}  // namespace
}  // namespace tevra::batch::test
