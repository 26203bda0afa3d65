// A company for inventory objects, and a card filled in.
#pragma once

#include <gtest/gtest.h>

#include "inventory/ObjectNotes.h"
#include "inventory/ObjectSave.h"
#include "session/Session.h"
#include "tests/TestCompany.h"

namespace tevra::test {

using namespace object;

/// All boxes filled: 486.50 lei at 3.9913, VAT of 19 %.
inline ObjectCard FullCard() {
  ObjectCard card;
  card.text = {"07", "C1", " Trusa 'mare' ", "H1", " F'1 ", "7", "90", "303", "obs", " Ion ", ""};
  card.number = {486.5, 3.9913, 121.8906};
  card.date = {DateTime(2026, 3, 16), DateTime(2026, 4, 1), DateTime(2026, 9, 30)};
  card.vat = "4426-19";
  return card;
}

class ObjectTest : public ::testing::Test {
 protected:
  ObjectTest() {
    Connection file = company_.Open();
    file.Execute("DELETE * FROM kv_Ter");
    file.Execute("INSERT INTO kv_Ter (COD, NUME, TIP) VALUES (7, 'O''NEIL & FIII', 'F')");
    file.Execute("INSERT INTO kv_cote (COD, CONT, PROCENT) VALUES (90, '4426', 19)");
    Session& session = CurrentSession();
    session.contFurnizori = "401";
    session.contObiecteInventar = "303";
    session.dataIn = DateTime(2026, 1, 1);
    session.dataSn = DateTime(2026, 12, 31);
  }

  std::string Objects(const char* fields) const {
    return company_.Rows(std::string("SELECT ") + fields + " FROM I_INV ORDER BY NRCRT");
  }
  std::string Lines(const char* fields) const {
    return company_.Rows(std::string("SELECT ") + fields + " FROM Kv_Linii ORDER BY NDI, NRLINIE");
  }
  void AddLine(int note, const char* document, double lei) const {
    company_.Open().Execute(
        "INSERT INTO Kv_Linii (NDI, NrLinie, Jurnal, Cont, Doc, Debit) VALUES (?, 1, 'OD', '6811', "
        "?, ?)",
        {note, document, lei});
  }

  TestCompany company_;
};

}  // namespace tevra::test
