// Clients and suppliers in the file, without their screen.
#include <gtest/gtest.h>

#include "platform/text/Failure.h"
#include "reference/ThirdParties.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

class ThirdParties : public ::testing::Test {
 protected:
  ThirdParties() : connection_(company_.Open()) { connection_.Execute("DELETE FROM kv_Ter"); }

  static Party Named(const std::string& name) {
    Party party;
    for (std::size_t i = party::kFiscalCode; i < party::kCount; ++i) {
      party.text[i] = "T" + std::to_string(i);
    }
    party.text[party::kName] = name;
    party.text[party::kKind] = "M";
    party.countryCode = "MD";
    return party;
  }

  TestCompany company_;
  Connection connection_;
};

TEST_F(ThirdParties, EveryFieldComesBackAndAnEmptyOneIsNull) {
  EXPECT_EQ(AddParty(connection_, Named("O'BRIEN")), 1);
  connection_.Execute("UPDATE kv_Ter SET COD = 41, SOLD = 12.5, UTILIZABIL = 'D'");
  EXPECT_EQ(AddParty(connection_, Party()), 42);
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM kv_Ter WHERE COD = 42 AND NUME IS NULL AND "
                          "CT IS NULL AND EMAIL IS NULL"),
            "1 \n");
  Party read = ReadParty(connection_, "41").value();
  Party expected = Named("O'BRIEN");
  expected.text[party::kCode] = "41";
  EXPECT_EQ(read.text, expected.text);
  EXPECT_EQ(read.countryCode, "MD");
  EXPECT_EQ(ReadParty(connection_, "42")->countryCode, "RO");
  EXPECT_FALSE(ReadParty(connection_, "43"));

  read.text[party::kEmail] = "ana@exemplu.ro";
  read.countryCode.clear();
  EXPECT_TRUE(ChangeParty(connection_, read));
  EXPECT_EQ(company_.Rows("SELECT EMAIL, CT, SOLD, UTILIZABIL FROM kv_Ter WHERE COD = 41"),
            "ana@exemplu.ro RO 12,5 D \n");
  read.text[party::kCode] = "99";
  EXPECT_FALSE(ChangeParty(connection_, read));
  read.text[party::kCode] = "41";
  read.text[party::kName] = std::string(300, 'A');
  EXPECT_THROW(ChangeParty(connection_, read), Failure);
  EXPECT_EQ(company_.Rows("SELECT NUME FROM kv_Ter WHERE COD = 41"), "O'BRIEN \n");
}

TEST_F(ThirdParties, OnlyOneWithoutLinesIsDeleted) {
  AddParty(connection_, Named("A"));
  AddParty(connection_, Named("B"));
  connection_.Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, TERT) VALUES (1, 1, 2)");
  EXPECT_FALSE(DeleteParty(connection_, "2"));
  EXPECT_TRUE(DeleteParty(connection_, "1"));
  EXPECT_EQ(company_.Rows("SELECT COD FROM kv_Ter"), "2 \n");
}

TEST_F(ThirdParties, TheBalanceIsThatOfTheLastAccountOfClassFour) {
  for (const char* name : {"A", "B", "C"}) AddParty(connection_, Named(name));
  connection_.Execute("UPDATE kv_Ter SET SOLD = 7");
  int line = 0;
  const auto add = [&](const char* account, Value party, Value debit, Value credit) {
    connection_.Execute(
        "INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, TERT, DEBIT, CREDIT) VALUES (1, ?, ?, ?, ?, ?)",
        {++line, account, std::move(party), std::move(debit), std::move(credit)});
  };
  add("401", 1, 100, 0);
  add("401", 1, 0, 30.5);
  add("404", 1, 0, 250.25);
  add("404", 1, 0.25, Value());
  add("628", 1, 999, 0);
  add("401", Value(), 5, 0);
  add("411", 2, Value(), 40);
  add("5121", 3, 1, 0);
  EXPECT_EQ(UpdateBalances(connection_), 3);
  EXPECT_EQ(company_.Rows("SELECT COD, SOLD FROM kv_Ter ORDER BY COD"), "1 -250 \n2 -40 \n3 7 \n");
  EXPECT_EQ(connection_.TransactionDepth(), 0);
}

}  // namespace
}  // namespace tevra::test
