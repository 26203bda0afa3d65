// The query of accounting lines: its fields, what its statements show and in what order, the plans
// of all its conditions, and the deletion of a note.
#include <gtest/gtest.h>

#include "accounting/LineQuery.h"
#include "platform/data/Recordset.h"
#include "platform/text/Strings.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

class LineQueryTest : public ::testing::Test {
 protected:
  LineQueryTest() : connection_(company_.Open()), fields_(LineFields(connection_)) {}

  void AddLine(int note, int line, const char* account, double debit, const char* day,
               const char* source = "I") {
    connection_.Execute(
        "INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, CONT, DEBIT, CREDIT, DATAINR, TERT, PROV, "
        "COD) "
        "VALUES (?, ?, 'OD', ?, ?, 0, CDate(?), 7, ?, 'EUR')",
        {note, line, account, debit, day, source});
  }
  std::string Shown(const std::string& statement, const Values& params = {}) {
    std::string notes;
    for (Recordset rows = connection_.OpenKeyset(statement, params); !rows.Eof(); rows.MoveNext()) {
      notes += rows.Get("NDI").AsText() + "/" + rows.Get("NRLINIE").AsText() + " ";
    }
    return notes;
  }

  // How the lines are found; the tables with names always follow by their keys.
  std::string PlanOf(const std::string& statement, const Values& params = {}) {
    std::string plan;
    for (Recordset steps = connection_.OpenRecordset("EXPLAIN QUERY PLAN " + statement, params);
         !steps.Eof(); steps.MoveNext()) {
      const std::string step = steps.Get("detail").AsText();
      if (!step.starts_with("SEARCH kv_ter ") && !step.starts_with("SEARCH kv_CC ")) {
        plan += step + "; ";
      }
    }
    return plan;
  }
  std::string Plan(const std::vector<Condition>& conditions) {
    const WhereClause clause = ClauseOf(fields_, conditions);
    return PlanOf(LinesWhere(clause), clause.params);
  }

  TestCompany company_;
  Connection connection_;
  std::vector<WhereField> fields_;
};

TEST_F(LineQueryTest, HasTheFieldsOfTheLinesUnderTheNamesThatUsersKnow) {
  std::string all;
  for (const WhereField& field : fields_) {
    all += field.caption + (field.list.empty() ? "" : " [" + field.list + "]") + "; ";
  }
  EXPECT_EQ(all,
            "NDI; JURNAL [select COD, Titlu from Kv_Jur order by COD]; DATA INREGISTRARE; "
            "CONT [select Cont,Titlu from Kv_PC order by Cont]; DEBIT; CREDIT; DOC; MARCA; LITM; "
            "CENTRU DE COST; CURS; DEBIT VALUTA; CREDIT VALUTA; "
            "TERT [select COD,Nume from Kv_Ter order by Nume]; LINIA cu BAZA ptr TVA; COTATVA; "
            "PROVENIENTA; DATA SCADENTA; UTILIZATOR; DATA VALIDARII; Import\\Export; "
            "COD SUCURSALA; EXPL. DOCUMENT; EXPLICATIE; CODTREZO; DEVIZA; ");
  EXPECT_NE(FindField(fields_, kFirstLineField), nullptr);
  EXPECT_EQ(fields_.back().name, "Kv_Linii.COD");
}

TEST_F(LineQueryTest, ShowsTheNewestNoteFirstWithItsLinesInOrder) {
  connection_.Execute("INSERT INTO kv_Ter (COD, NUME) VALUES (7, 'ALFA')");
  AddLine(1, 1, "6811", 5, "31.10.2026");
  AddLine(1, 2, "2813", 5, "31.10.2026");
  AddLine(3, 1, "401", 9, "30.09.2026");
  AddLine(2, 1, "6811", 7, "31.10.2026");
  for (const std::string& statement : {LinesAtOpening(), LinesAfterDeletion(), LinesWhere({})}) {
    EXPECT_EQ(Shown(statement), "2/1 1/1 1/2 3/1 ");
    const Recordset rows = connection_.OpenRecordset(statement);
    EXPECT_EQ(rows.Get("NUME"), Value("ALFA"));
    EXPECT_EQ(rows.Get("COD"), Value("EUR"));
    EXPECT_EQ(rows.FindField("DocExplicatie").has_value(), statement != LinesAfterDeletion());
  }
  const WhereClause clause =
      ClauseOf(fields_, {{"Kv_Linii.CONT", WhereOperator::kBegins, "6"},
                         {"Kv_Linii.DATAINR", WhereOperator::kEqual, "31.10.2026"}});
  EXPECT_EQ(Shown(LinesWhere(clause), clause.params), "2/1 1/1 ");
  EXPECT_EQ(LinesTitle(clause),
            "R A P O R T     CONDITII: CONT incepe cu \"6\" SI DATA INREGISTRARE = 31.10.2026");
  EXPECT_EQ(LinesTitle({}), "R A P O R T");
}

TEST_F(LineQueryTest, NoConditionReadsAllLinesWhereAnIndexLeadsToThem) {
  const std::string inOrder = "SCAN kv_LINII USING INDEX Kv_Linii.DATAINR; ";
  EXPECT_EQ(PlanOf(LinesAtOpening()), "SCAN KV_LINII USING INDEX Kv_Linii.DATAINR; ");
  EXPECT_EQ(PlanOf(LinesWhere({})), inOrder);
  int searched = 0;
  for (const WhereField& field : fields_) {
    const std::string column = field.name.substr(field.name.find('.') + 1);
    const bool indexed = column == "NDI" || column == "DATAINR" || column == "CONT" ||
                         column == "DOC" || column == "TERT";
    const bool day = field.type == FieldType::DateTime;
    for (const WhereOperator op : OperatorsOf(field)) {
      const bool narrow =
          op == WhereOperator::kEqual || op == WhereOperator::kBetween ||
          op == WhereOperator::kBegins || (op == WhereOperator::kEmpty && column != "NDI") ||
          (column == "DATAINR" && (op == WhereOperator::kGreater || op == WhereOperator::kLess));
      const std::string value = day ? "15.10.2026" : "12";
      const std::string plan = Plan({{field.name, op, value, value}});
      if (!indexed || !narrow) {
        EXPECT_EQ(plan, inOrder) << field.name << CaptionOf(op);
        continue;
      }
      ++searched;
      EXPECT_NE(plan.find("SEARCH"), std::string::npos) << field.name << CaptionOf(op) << plan;
      EXPECT_NE(plan.find("(" + column), std::string::npos) << plan;
      EXPECT_EQ(plan.find("SCAN"), std::string::npos) << plan;
      EXPECT_FALSE(column == "DATAINR" && plan.find("B-TREE") != std::string::npos) << plan;
    }
  }
  EXPECT_EQ(searched, 18);
}

TEST_F(LineQueryTest, TheDaysNarrowTheLinesOfAnAccountAndOfAThirdParty) {
  const auto with = [&](const Condition& days, const char* field) {
    return Plan({{std::string("Kv_Linii.") + field, WhereOperator::kEqual, "12"}, days});
  };
  const std::string day = "Kv_Linii.DATAINR";
  const std::pair<Condition, std::string> kDays[] = {
      {{day, WhereOperator::kEqual, "1.10.2026"}, "DATAINR>? AND DATAINR<?"},
      {{day, WhereOperator::kBetween, "1.10.2026", "31.10.2026"}, "DATAINR>? AND DATAINR<?"},
      {{day, WhereOperator::kGreater, "1.10.2026"}, "DATAINR>?"},
      {{day, WhereOperator::kLess, "1.10.2026"}, "DATAINR<?"},
      {{day, WhereOperator::kEmpty}, "DATAINR=?"}};
  for (const auto& [days, range] : kDays) {
    const std::string column = "Kv_Linii.CONT (CONT=? AND " + range + "); ";
    EXPECT_EQ(with(days, "CONT"), "SEARCH kv_LINII USING INDEX " + column);
    // Lines without a day are few, and come in order by the index of days.
    const std::string party = days.op == WhereOperator::kEmpty
                                  ? "Kv_Linii.DATAINR (" + range + ")"
                                  : "Kv_Linii.TERT (TERT=? AND " + range + ")";
    EXPECT_EQ(with(days, "TERT").find("SEARCH kv_LINII USING INDEX " + party), 0U)
        << with(days, "TERT");
    // Any other field is looked at in the lines of those days, which come in order.
    EXPECT_EQ(with(days, "EXPL").find("SEARCH kv_LINII USING INDEX Kv_Linii.DATAINR ("), 0U);
    EXPECT_EQ(with(days, "EXPL").find("B-TREE"), std::string::npos);
  }
}

TEST_F(LineQueryTest, DeletesAWholeNoteOrNothing) {
  AddLine(1, 1, "6811", 5, "31.10.2026");
  AddLine(1, 2, "2813", 5, "31.10.2026");
  AddLine(2, 1, "6811", 7, "31.10.2026");
  EXPECT_EQ(DeleteNote(connection_, 1), 2);
  EXPECT_EQ(Shown(LinesAtOpening()), "2/1 ");
  EXPECT_EQ(DeleteNote(connection_, 1), 0);
  Connection other(company_.ConnectionString());
  const Transaction writing(other);
  Connection waiting(company_.ConnectionString() + ";Lock Timeout=1");
  EXPECT_THROW(DeleteNote(waiting, 2), Failure);
  EXPECT_EQ(Shown(LinesAtOpening()), "2/1 ");
  EXPECT_EQ(waiting.TransactionDepth(), 0);
}

TEST_F(LineQueryTest, OnlyStockKeepingDeletesItsNotes) {
  EXPECT_TRUE(IsFromStock("G"));
  EXPECT_FALSE(IsFromStock("I"));
  EXPECT_FALSE(IsFromStock(""));
}

}  // namespace
}  // namespace tevra::test
