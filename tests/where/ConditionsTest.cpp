// Conditions on the fields of a table: what they find, in words, and what is refused.
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "platform/data/Recordset.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "platform/where/Conditions.h"
#include "tests/Hostile.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

const std::vector<std::string> kTexts{
    "",  "a", "A", "ab",  "AB%", "a_b",  "a!b", "O'B",  "ă",      "Ă",
    "%", "_", "!", "b a", "ab ", "6811", "681", "68 1", "\"ab\"", "zz\xF4\x8F\xBF\xBF"};
const std::vector<std::string> kNumbers{"0",    "-1",  "0,1", "0,3",      "1.234,56",
                                        "1000", "1e3", "12",  "-1234567", "12,5"};
const std::vector<std::string> kDays{"31.12.2025", "1.1.2026", "15.01.2026", "28.02.2026"};

class ConditionsTest : public ::testing::Test {
 protected:
  ConditionsTest() : connection_(company_.Open()) {
    fields_ = WhereFieldsOf(connection_, "Kv_Linii", {"NRLINIE"});
  }
  WhereField Field(const std::string& name) const {
    return *FindField(fields_, "Kv_Linii." + name);
  }
  void Fill() {
    const auto text = [&] { return random_() % 6 == 0 ? Value() : Value(Any(kTexts)); };
    // Sums whose last digits are those that adding up leaves.
    const auto number = [&] {
      return random_() % 6 == 0 ? Value() : Value(CDbl(Any(kNumbers)) + 0.1 + 0.2 - 0.3);
    };
    const auto moment = [&] {
      const DateTime day = CDate(Any(kDays));
      const bool late = random_() % 2 == 0;
      return random_() % 6 == 0 ? Value()
                                : Value(DateTime(day.Year(), day.Month(), day.Day(), late ? 23 : 0,
                                                 late ? 59 : 0, late ? 59 : 0));
    };
    Transaction transaction(connection_);
    for (int note = 1; note <= 400; ++note) {
      connection_.Execute(
          "INSERT INTO Kv_Linii (NDI, NRLINIE, DOC, DEBIT, TIMP, TERT) VALUES (?, 1, ?, ?, ?, ?)",
          {note, text(), number(), moment(),
           random_() % 6 == 0 ? Value() : Value(static_cast<int>(random_() % 20))});
    }
    transaction.Commit();
  }
  const std::string& Any(const std::vector<std::string>& of) { return of[random_() % of.size()]; }

  std::string Found(const WhereClause& clause) {
    std::string notes;
    for (Recordset rows = connection_.OpenRecordset(
             "SELECT NDI FROM Kv_Linii" + (clause.sql.empty() ? "" : " WHERE " + clause.sql) +
                 " ORDER BY NDI",
             clause.params);
         !rows.Eof(); rows.MoveNext()) {
      notes += rows.Get("NDI").AsText() + " ";
    }
    return notes;
  }
  std::string Refusal(const std::vector<Condition>& conditions) const {
    try {
      return "taken: " + ClauseOf(fields_, conditions).sql;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kTypeMismatch);
      return failure.Description();
    }
  }

  TestCompany company_;
  Connection connection_;
  std::vector<WhereField> fields_;
  std::mt19937 random_{20261123};
};

std::string Folded(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

int Order(const Value& stored, FieldType type, const std::string& typed) {
  if (type == FieldType::Text) return Folded(stored.Text()).compare(Folded(typed));
  const auto sign = [](double difference) { return (difference > 0) - (difference < 0); };
  if (type == FieldType::DateTime) {
    return sign(std::floor(stored.AsDateTime().Serial()) - CDate(typed).Serial());
  }
  const double difference = stored.AsDouble() - CDbl(typed);
  return std::abs(difference) < 1e-7 ? 0 : sign(difference);
}

// The plain meaning of a condition, row by row.
bool Meets(const Value& stored, FieldType type, const Condition& condition) {
  const bool text = type == FieldType::Text;
  if (condition.op == WhereOperator::kEmpty) {
    return stored.IsNull() || (text && stored.Text().empty());
  }
  if (stored.IsNull()) return condition.op == WhereOperator::kNotEqual;
  if (condition.op == WhereOperator::kBegins || condition.op == WhereOperator::kContains) {
    const std::size_t at = Folded(stored.Text()).find(Folded(condition.value));
    return condition.op == WhereOperator::kBegins ? at == 0 : at != std::string::npos;
  }
  const int order = Order(stored, type, condition.value);
  switch (condition.op) {
    case WhereOperator::kEqual:
      return order == 0;
    case WhereOperator::kNotEqual:
      return order != 0;
    case WhereOperator::kGreater:
      return order > 0;
    case WhereOperator::kLess:
      return order < 0;
    default:
      return order >= 0 && Order(stored, type, condition.second) <= 0;
  }
}

TEST_F(ConditionsTest, FindWhatTheyMeanWhateverIsStored) {
  Fill();
  const Recordset rows = connection_.OpenRecordset("SELECT * FROM Kv_Linii ORDER BY NDI");
  int found = 0;
  for (int round = 0; round < 1500; ++round) {
    std::vector<Condition> conditions;
    for (std::size_t i = 0; i <= random_() % 3; ++i) {
      const WhereField field =
          Field(std::vector<std::string>{"DOC", "DEBIT", "TIMP", "TERT"}[random_() % 4]);
      const auto value = [&]() -> std::string {
        if (field.type == FieldType::Text) return Any(kTexts);
        if (field.type == FieldType::DateTime) return Any(kDays);
        return field.type == FieldType::Long ? std::to_string(random_() % 20) : Any(kNumbers);
      };
      const std::vector<WhereOperator> operators = OperatorsOf(field);
      Condition condition{field.name, operators[random_() % operators.size()], value(), value()};
      const bool text = field.type == FieldType::Text;
      if (condition.op == WhereOperator::kBetween &&
          (condition.value.empty() || condition.second.empty() ||
           (text ? CompareNoCase(condition.value, condition.second) > 0
                 : Order(field.type == FieldType::DateTime ? Value(CDate(condition.value))
                                                           : Value(CDbl(condition.value)),
                         field.type, condition.second) > 0))) {
        continue;
      }
      if (ValueCount(condition.op) < 2) condition.second.clear();
      conditions.push_back(condition);
    }
    std::string expected;
    for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
      bool meets = true;
      for (const Condition& condition : conditions) {
        if (IsBlank(condition)) continue;
        const std::string name = condition.field.substr(std::string("Kv_Linii.").size());
        meets =
            meets && Meets(rows.ValueAt(row, rows.FieldIndex(name)), Field(name).type, condition);
      }
      if (meets) expected += std::to_string(row + 1) + " ";
    }
    const WhereClause clause = ClauseOf(fields_, conditions);
    ASSERT_EQ(Found(clause), expected) << clause.sql << "\n" << clause.text;
    if (!expected.empty()) ++found;
  }
  EXPECT_GT(found, 500);
}

TEST_F(ConditionsTest, AreTextsForTheUser) {
  const auto words = [&](const std::vector<Condition>& conditions) {
    return ClauseOf(fields_, conditions).text;
  };
  fields_[0].caption = "NOTA";
  EXPECT_EQ(words({}), "");
  EXPECT_EQ(words({{"kv_linii.ndi", WhereOperator::kEqual, " 12 "},
                   {"Kv_Linii.CONT", WhereOperator::kBegins, "6"},
                   {"Kv_Linii.DOC", WhereOperator::kContains, ""},
                   {"Kv_Linii.DATAINR", WhereOperator::kBetween, "1.10.26", "31/10/2026"},
                   {"Kv_Linii.LITM", WhereOperator::kEmpty}}),
            "NOTA = 12 SI CONT incepe cu \"6\" SI DATAINR intre 01.10.2026 si 31.10.2026 SI LITM "
            "este gol");
  EXPECT_EQ(words({{"Kv_Linii.TERT", WhereOperator::kNotEqual, "7", "", "ALFA SRL"},
                   {"Kv_Linii.DEBIT", WhereOperator::kGreater, "1.234,50"},
                   {"Kv_Linii.DEBIT", WhereOperator::kLess, "0,1"},
                   {"Kv_Linii.DOC", WhereOperator::kContains, "%"}}),
            "TERT <> 7 (ALFA SRL) SI DEBIT > 1234,5 SI DEBIT < 0,1 SI DOC contine \"%\"");
}

TEST_F(ConditionsTest, RefuseWhatAFieldCannotHave) {
  using enum WhereOperator;
  EXPECT_EQ(Refusal({{"Kv_Linii.DATAINR", kBetween, "01.10.2026", ""}}),
            "Conditia \"DATAINR\": completati ambele capete ale intervalului");
  EXPECT_EQ(Refusal({{"Kv_Linii.CONT", kBetween, "", "7"}}),
            "Conditia \"CONT\": completati ambele capete ale intervalului");
  EXPECT_EQ(Refusal({{"Kv_Linii.CONT", kBetween, "7", "6"}}),
            "Conditia \"CONT\": primul capat al intervalului este mai mare decat al doilea");
  EXPECT_EQ(Refusal({{"Kv_Linii.TIMP", kBetween, "02.10.2026", "01.10.2026"}}),
            "Conditia \"TIMP\": primul capat al intervalului este mai mare decat al doilea");
  EXPECT_EQ(Refusal({{"Kv_Linii.DATAINR", kEqual, "31.02.2026"}}),
            "Conditia \"DATAINR\": \"31.02.2026\" nu este o data. Datele se scriu 31.12.2026");
  EXPECT_EQ(Refusal({{"Kv_Linii.DEBIT", kLess, "1,2,3"}}),
            "Conditia \"DEBIT\": \"1,2,3\" nu este un numar. Numerele se scriu ca 1.234,56");
  EXPECT_EQ(Refusal({{"Kv_Linii.DEBIT", kLess, "0.5"}}),
            "Conditia \"DEBIT\": \"0.5\" nu este un numar. Numerele se scriu ca 1.234,56");
  EXPECT_EQ(Refusal({{"Kv_Linii.NDI", kEqual, "1,5"}}),
            "Conditia \"NDI\": \"1,5\" nu este un numar intreg");
  EXPECT_EQ(Refusal({{"Kv_Linii.DEBIT", kContains, "1"}}),
            "Conditia \"DEBIT\": nu se poate compara prin \"contine\"");
  EXPECT_THROW((void)ClauseOf(fields_, {{"Kv_Linii.NIMIC", kEqual, "1"}}), Failure);
  EXPECT_THROW((void)WhereFieldsOf(connection_, "Lipsa", {}), Failure);
  const std::vector<WhereField> assets = WhereFieldsOf(connection_, "I_IMO", {});
  EXPECT_TRUE(FindField(assets, "I_IMO.COD"));
  EXPECT_FALSE(FindField(assets, "I_IMO.BLOCATA"));  // yes or no
}

TEST_F(ConditionsTest, ABeginningGoesOnWithAnyCharacter) {
  int note = 0;
  for (const char* text : {"IM", "IMO", "IMO~", "imoz", "IMO\xC8\x9B", "IMP"}) {
    connection_.Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, DOC) VALUES (?, 1, ?)",
                        {++note, text});
  }
  EXPECT_EQ(Found(ClauseOf(fields_, {{"Kv_Linii.DOC", WhereOperator::kBegins, "imo"}})),
            "2 3 4 5 ");
}

TEST_F(ConditionsTest, NoTextIsReadAsPartOfTheStatement) {
  connection_.Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, DOC) VALUES (1, 1, 'obisnuit')");
  int note = 1;
  for (const std::string& text : HostileTexts()) {
    if (!IsValidUtf8(text) || text.find('\0') != std::string::npos) {
      EXPECT_EQ(Refusal({{"Kv_Linii.DOC", WhereOperator::kContains, text}}),
                "Conditia \"DOC\": textul are semne care nu pot fi citite");
      continue;
    }
    if (Len(text) > 255) {
      EXPECT_EQ(Found(ClauseOf(fields_, {{"Kv_Linii.DOC", WhereOperator::kContains, text}})), "");
      continue;
    }
    const std::string row = std::to_string(++note) + " ";
    connection_.Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, DOC) VALUES (?, 1, ?)", {note, text});
    for (const WhereOperator op : {WhereOperator::kEqual, WhereOperator::kBegins}) {
      EXPECT_EQ(Found(ClauseOf(fields_, {{"Kv_Linii.DOC", op, text}})), row) << text;
    }
    EXPECT_EQ(Found(ClauseOf(fields_, {{"Kv_Linii.DOC", WhereOperator::kContains, text},
                                       {"Kv_Linii.DOC", WhereOperator::kEqual, text}})),
              row)
        << text;
    EXPECT_NE(Refusal({{"Kv_Linii.DEBIT", WhereOperator::kEqual, text}}).find("nu este un numar"),
              std::string::npos);
  }
}

}  // namespace
}  // namespace tevra::test
