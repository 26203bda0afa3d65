// A card over a fresh company, and the hands of its user.
#pragma once

#include <QtTest>

#include <gtest/gtest.h>

#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "register/frmFisaImo.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {

using enum text::Place;
using enum number::Place;
using enum date::Place;

class CardTest : public ::testing::Test {
 protected:
  CardTest() {
    clock::Set(DateTime(2026, 11, 23));
    Connection file = company_.Open();
    file.Execute("DELETE * FROM kv_Ter");
    file.Execute("INSERT INTO kv_Ter (COD, NUME, TIP) VALUES (7, 'O''NEIL & FIII', 'F')");
    file.Execute("INSERT INTO Kv_CC (COD, TITLU, UTILIZABIL) VALUES ('C1', 'Hala', 'D')");
    file.Execute(
        "UPDATE I_CLASIFICARE SET DURNOR_NOU = 8, DURNOR = 6 WHERE COD_GR_NOU = '1.1.1.1'");
    file.Execute("UPDATE I_COEFAD SET coef1 = 1.5, coef2 = 2, coef3 = 2.5");
    CurrentSession().contFurnizori = "404";
    CurrentSession().codDeviza = "EUR";
  }
  ~CardTest() override { clock::Reset(); }

  std::unique_ptr<frmFisaImo> Open(const AssetToOpen& asset = {}) {
    auto card = std::make_unique<frmFisaImo>(asset);
    Activate(*card);
    return card;
  }
  std::unique_ptr<frmFisaImo> OpenStored() { return Open({false, Stored("NRCRT")}); }

  static void Type(QWidget* box, const char* text) {
    box->setFocus();
    if (auto* line = qobject_cast<QLineEdit*>(box)) line->selectAll();
    QTest::keyClicks(box, text);
    QTest::keyClick(box, Qt::Key_Tab);
    QCoreApplication::processEvents();
  }
  static void Pick(DataCombo* combo, const char* bound) {
    combo->SetBoundText(bound);
    ASSERT_GE(combo->currentIndex(), 0) << combo->objectName().toStdString() << " lacks " << bound;
    emit combo->Picked();
  }
  static void Press(QAbstractButton* button) {
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    QCoreApplication::processEvents();
  }
  // All that the card needs but the method: 8 years, 12,000 lei at the rate 5.
  static void Fill(frmFisaImo& card, const char* normal = "8") {
    card.txtText[kCode]->SetText("INV1");
    card.txtText[kName]->SetText("Strung");
    card.txtText[kDocument]->SetText("F1");
    Pick(card.cboGrupa, "1.1.1.1");
    Pick(card.cboCont, "2131");
    Pick(card.cboFurnizori, "7");
    Pick(card.cboTVA, "5");
    Pick(card.cboGradUtiliz, "100");
    card.DTPicker1[kBought]->SetDate(DateTime(2026, 1, 15));
    Type(card.txtNumar[kValue], "12000");
    Type(card.txtNumar[kExchangeRate], "5");
    Type(card.txtNumar[kNormalYears], normal);
    card.DTPicker1[kBought]->setFocus();
    card.DTPicker1[kInService]->setFocus();
    QCoreApplication::processEvents();
  }
  std::string Boxes(frmFisaImo& card, std::initializer_list<int> numbers) {
    std::string text;
    for (const int i : numbers) {
      text += (text.empty() ? "" : " ") + card.txtNumar[static_cast<std::size_t>(i)]->Text();
    }
    return text;
  }
  std::string Stored(const std::string& fields) {
    const Recordset row = OpenRecordset("SELECT " + fields + " FROM I_IMO ORDER BY NRCRT DESC");
    std::string text;
    for (std::size_t i = 0; i < row.FieldCount(); ++i) {
      text += (text.empty() ? "" : " ") + row.Get(i).TextOrEmpty();
    }
    return text;
  }
  std::string LastPrompt() const {
    return messages_.shown.empty() ? "" : messages_.shown.back().prompt;
  }

  TestCompany company_;
  MessageRecorder messages_;
};

}  // namespace tevra::test
