// The rules that keep a company's users able to log in.
#include <gtest/gtest.h>

#include "session/Users.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

constexpr const char* kMustRemain =
    "Trebuie sa ramana cel putin un utilizator cu parola si de tipul 0 (Toate) !";

class Users : public ::testing::Test {
 protected:
  void Add(const char* name, const Value& password, const Value& type) {
    company_.Execute("INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES (?, ?, ?)",
                     {name, password, type});
  }
  std::string Change(const char* name, const char* field, const Value& value) {
    return RefusalOfUserChange(company_, name, field, value).value_or("");
  }
  std::string Delete(const char* name) {
    return RefusalOfUserDeletion(company_, name).value_or("");
  }

  TestCompany files_;
  Connection company_ = files_.Open();
};

TEST_F(Users, AdminKeepsItsNameAndItsType) {
  Add("Ana", "1", 0);
  const std::string name = "Numele utilizatorului admin nu se poate modifica !";
  for (const Value& value : {Value("Ion"), Value("Admin"), Value("admin "), Value(" "), Value()}) {
    EXPECT_EQ(Change("admin", "NUME", value), name);
  }
  EXPECT_EQ(Change("admin", "nume", "admin"), "");
  EXPECT_EQ(Change("admin", "TIP", 1), "Nu se poate modifica tipul pentru utilizatorul admin !");
  EXPECT_EQ(Delete("admin"), "Utilizatorul admin nu se poate sterge !");
  EXPECT_EQ(Change("admin", "PAROLA", "alta"), "");
}

TEST_F(Users, NoNameAndNoPasswordIsEmpty) {
  Add("Ana", "1", 1);
  for (const Value& blank : {Value(), Value(""), Value("  ")}) {
    EXPECT_EQ(Change("Ana", "PAROLA", blank), "Va rugam introduceti parola !");
    EXPECT_EQ(Change("admin", "PAROLA", blank), "Va rugam introduceti parola !");
    EXPECT_EQ(Change("Ana", "NUME", blank), "Va rugam introduceti numele !");
  }
}

TEST_F(Users, NamesThatDifferInCaseOrOuterBlanksAreOne) {
  Add("Ana", "1", 1);
  for (const char* taken : {"admin", "ADMIN", " admin", "Admin  "}) {
    EXPECT_EQ(Change("Ana", "NUME", taken),
              "Acest nume de utilizator exista deja ! Modificarea nu se poate efectua !");
  }
  EXPECT_EQ(Change("Ana", "NUME", "ANA"), "");
  EXPECT_EQ(Change("Ana", "NUME", "Ion"), "");
}

TEST_F(Users, TheLastWithFullRightsKeepsThem) {
  company_.Execute("DELETE * FROM UTILIZATORI");
  Add("Ana", "1", 0);
  Add("Ion", "1", 1);
  Add("Fara", Value(), 0);  // cannot log in
  Add("Gol", " ", 0);
  Add("Nimic", "1", Value());
  for (const Value& type : {Value(1), Value(2), Value()}) {
    EXPECT_EQ(Change("Ana", "TIP", type), kMustRemain);
  }
  EXPECT_EQ(Change("Ana", "TIP", 0), "");
  EXPECT_EQ(Delete("Ana"), kMustRemain);
  EXPECT_EQ(Delete("Ion") + Delete("Fara") + Delete("Nimic") + Delete("absent"), "");
  EXPECT_EQ(Change("Ion", "TIP", 2) + Change("Fara", "TIP", 2), "");
  Add("Dan", "1", 0);
  EXPECT_EQ(Change("Ana", "TIP", 2) + Delete("Ana") + Delete("Dan"), "");
}

}  // namespace
}  // namespace tevra::test
