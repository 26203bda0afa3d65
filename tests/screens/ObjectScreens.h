// A company with inventory objects and the hands of its user.
#pragma once

#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "inventory/frmObInv.h"
#include "inventory/frmObInvFisa.h"
#include "platform/data/Recordset.h"
#include "platform/forms/Windows.h"
#include "platform/system/Clock.h"
#include "platform/system/Settings.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {

class ObjectScreens : public ::testing::Test {
 protected:
  ObjectScreens() {
    SetSettings(nullptr);
    clock::Set(DateTime(2026, 11, 23));
    Connection file = company_.Open();
    file.Execute("DELETE * FROM kv_Ter");
    file.Execute("INSERT INTO kv_Ter (COD, NUME, TIP) VALUES (7, 'O''NEIL & FIII', 'F')");
    file.Execute("INSERT INTO kv_Ter (COD, NUME, TIP) VALUES (8, 'CLIENT', 'C')");
    file.Execute("INSERT INTO Kv_CC (COD, TITLU, UTILIZABIL) VALUES ('C1', 'Hala', 'D')");
    file.Execute("INSERT INTO Kv_CC (COD, TITLU, UTILIZABIL) VALUES ('C2', 'Veche', 'N')");
    file.Execute("INSERT INTO I_LOCALIZARE (COD, TITLU) VALUES ('H1', 'Hala 1')");
    Session& session = CurrentSession();
    session.contFurnizori = "401";
    session.contObiecteInventar = "303";
    session.dataIn = DateTime(2026, 1, 1);
    session.dataSn = DateTime(2026, 12, 31);
  }
  ~ObjectScreens() override {
    DeleteScreens<Form>();
    SetSettings(nullptr);
    clock::Reset();
  }

  int AddObject(const char* code, const char* name, const char* person, double lei) {
    Connection file = company_.Open();
    file.Execute(
        "INSERT INTO I_INV (COD, DENUMIRE, PERS, CONT, COD_CC, COD_FURNIZOR, COD_TVA_CUMP, "
        "VAL_CUMP, CURS, VAL_CUMP_VAL, DATA_ACH, DATA_PF) VALUES (?, ?, ?, '303', 'C1', 7, 5, ?, "
        "5, ?, '2026-03-16 00:00:00', '2026-04-01 00:00:00')",
        {code, name, person, lei, lei / 4});
    return file.QueryValue("SELECT MAX(NRCRT) FROM I_INV").AsLong();
  }
  std::string Objects(const char* fields) const {
    return company_.Rows(std::string("SELECT ") + fields + " FROM I_INV ORDER BY NRCRT");
  }
  std::string Lines(const char* fields) const {
    return company_.Rows(std::string("SELECT ") + fields + " FROM Kv_Linii ORDER BY NDI, NRLINIE");
  }

  // Its combos offer no entries while one types: offscreen nothing closes that list.
  frmObInvFisa& OpenCard(int id = 0) {
    frmObInvFisa& card = OpenObjectCard({id == 0, id == 0 ? std::string() : std::to_string(id)});
    for (auto* combo : card.findChildren<DataCombo*>()) combo->setCompleter(nullptr);
    return Activate(card);
  }

  static void Key(Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key);
    QCoreApplication::processEvents();
  }
  // Replaces what the box with the focus holds, and goes to the next one.
  static void Type(const char* text) {
    QWidget* box = QApplication::focusWidget();
    auto* combo = qobject_cast<DataCombo*>(box);
    auto* line = combo ? combo->lineEdit() : qobject_cast<QLineEdit*>(box);
    if (line) {
      line->selectAll();
      QTest::keyClick(line, Qt::Key_Delete);
    }
    QTest::keyClicks(line ? line : box, text);
    QTest::keyClick(box, Qt::Key_Tab);
    QCoreApplication::processEvents();
  }
  static void TypeIn(QWidget* box, const char* text) {
    box->setFocus();
    Type(text);
  }

  std::string LastPrompt() const {
    return messages_.shown.empty() ? "" : messages_.shown.back().prompt;
  }
  /// Title and icon of the last message.
  std::string LastBox() const {
    const MessageRequest& last = messages_.shown.back();
    return last.title + "|" + std::to_string(last.buttons);
  }

  TestCompany company_;
  MessageRecorder messages_;
};

}  // namespace tevra::test
