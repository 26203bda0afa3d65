// The turnovers of the chart of accounts.
#include <gtest/gtest.h>

#include "reference/Turnovers.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

TEST(Turnovers, AreTheSumsOfTheLinesOrStayAsTheyWere) {
  const TestCompany company;
  Connection connection = company.Open();
  connection.Execute("UPDATE kv_pc SET DEBITN = 7, CREDITN = 8");
  connection.Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, DEBIT, CREDIT) VALUES (1, 1, '2131', 100.25, 0)");
  connection.Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, DEBIT, CREDIT) VALUES (1, 2, '404', 0, 100.25)");
  connection.Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, DEBIT, CREDIT) VALUES (2, 1, '2131', 0.5, NULL)");
  const char* accounts =
      "SELECT CONT, DEBITN, CREDITN FROM kv_pc WHERE CONT IN ('2131', '404', '6811') ORDER BY CONT";
  EXPECT_EQ(UpdateTurnovers(connection), 2);
  EXPECT_EQ(company.Rows(accounts), "2131 100,75 0 \n404 0 100,25 \n6811 7 8 \n");

  connection.Execute(
      "CREATE TRIGGER stop BEFORE UPDATE ON kv_PC WHEN NEW.CONT = '404' BEGIN "
      "SELECT RAISE(ABORT, 'stop'); END");
  connection.Execute("UPDATE Kv_Linii SET DEBIT = 1 WHERE NDI = 2");
  EXPECT_THROW(UpdateTurnovers(connection), Failure);
  EXPECT_EQ(company.Rows(accounts), "2131 100,75 0 \n404 0 100,25 \n6811 7 8 \n");
}

}  // namespace
}  // namespace tevra::test
