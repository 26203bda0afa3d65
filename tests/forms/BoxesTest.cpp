// Boxes bound to the rows of a data source.
#include <QAbstractItemView>
#include <QCompleter>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/forms/Boxes.h"
#include "platform/forms/DataCombo.h"
#include "platform/system/Clock.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

class BoundBoxes : public ::testing::Test {
 protected:
  BoundBoxes() {
    Connection file = company_.Open();
    company_.AddAsset({{"COD", "1"},
                       {"DENUMIRE", "Strung O'Hara"},
                       {"CURS", 0.1 + 0.2},
                       {"DATA_ACH", DateTime(2026, 3, 14, 10, 20)},
                       {"BLOCATA", Value::YesNo(true)}});
    company_.AddAsset({{"COD", "2"}});
    source_.SetConnectionString(company_.ConnectionString());
    source_.SetRecordSource("select * from I_IMO order by COD");
    name_.SetDataField(&source_, "DENUMIRE");
    rate_.SetDataField(&source_, "CURS");
    bought_.SetDataField(&source_, "DATA_ACH");
    blocked_.SetDataField(&source_, "BLOCATA");
    source_.Refresh();
  }
  Value Stored(const std::string& field, const char* cod = "1") {
    return company_.Open().QueryValue("SELECT " + field + " FROM I_IMO WHERE COD = ?", {cod});
  }

  TestCompany company_;
  QWidget window_;
  Adodc source_{"source", &window_};
  TextBox name_{"name", &window_};
  NumberBox rate_{"rate", "Standard", &window_};
  DateBox bought_{"bought", &window_};
  CheckBox blocked_{"blocked", "Blocata", &window_};
};

TEST_F(BoundBoxes, ShowTheRowAndWriteOnlyWhatWasChanged) {
  EXPECT_EQ(name_.Text(), "Strung O'Hara");
  EXPECT_EQ(name_.maxLength(), 50);
  EXPECT_EQ(rate_.Text(), "0,30");
  EXPECT_EQ(bought_.Date(), DateTime(2026, 3, 14));
  EXPECT_EQ(bought_.text(), "14.03.2026");
  EXPECT_TRUE(blocked_.isChecked());
  name_.SetText("Freza");
  blocked_.setChecked(false);
  source_.UpdateRow();
  EXPECT_EQ(Stored("DENUMIRE"), Value("Freza"));
  EXPECT_EQ(Stored("BLOCATA"), Value::YesNo(false));
  // To the last bit, and with its time of day.
  EXPECT_EQ(Stored("CURS"), Value(0.1 + 0.2));
  EXPECT_EQ(Stored("DATA_ACH"), Value(DateTime(2026, 3, 14, 10, 20)));
}

TEST_F(BoundBoxes, EmptyBoxesWriteNullAndANullRowIsEmpty) {
  name_.clear();
  rate_.clear();
  bought_.SetDate(std::nullopt);
  source_.UpdateRow();
  EXPECT_TRUE(Stored("DENUMIRE").IsNull());
  EXPECT_TRUE(Stored("CURS").IsNull());
  EXPECT_TRUE(Stored("DATA_ACH").IsNull());
  source_.MoveNext();
  EXPECT_EQ(name_.Text(), "");
  EXPECT_FALSE(bought_.Date());
  EXPECT_EQ(rate_.Text(), "0,00");
}

TEST_F(BoundBoxes, AFailureKeepsWhatWasTypedAndWritesNothing) {
  name_.SetText("Freza");
  rate_.setText("1.23");
  try {
    source_.UpdateRow();
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), 13);
  }
  EXPECT_EQ(name_.Text(), "Freza");
  EXPECT_EQ(rate_.Text(), "1.23");
  EXPECT_EQ(Stored("DENUMIRE"), Value("Strung O'Hara"));
  rate_.setText("1.234,5");
  source_.UpdateRow();
  EXPECT_EQ(Stored("CURS"), Value(1234.5));
  EXPECT_EQ(rate_.Text(), "1.234,50");
  name_.SetText("altceva");
  source_.CancelRow();
  EXPECT_EQ(name_.Text(), "Freza");
}

TEST_F(BoundBoxes, AnEmptyTableGetsItsFirstRow) {
  company_.Open().Execute("DELETE * FROM I_IMO");
  source_.Refresh();
  EXPECT_EQ(name_.Text(), "");
  source_.UpdateRow();
  EXPECT_EQ(source_.Recordset().RecordCount(), 0u);
  name_.SetText("Prima");
  source_.UpdateRow();
  EXPECT_EQ(source_.Recordset().RecordCount(), 1u);
  EXPECT_EQ(company_.Open().QueryValue("SELECT DENUMIRE FROM I_IMO"), Value("Prima"));
}

TEST_F(BoundBoxes, ABoxCutLooseKeepsItsText) {
  name_.SetDataField(nullptr);
  source_.MoveNext();
  EXPECT_EQ(name_.Text(), "Strung O'Hara");
  name_.SetText("nelegata");
  source_.UpdateRow();
  EXPECT_TRUE(Stored("DENUMIRE", "2").IsNull());
}

TEST(Boxes, ANumberSettlesWhenItIsLeft) {
  struct Case {
    const char* typed;
    const char* settled;
    std::optional<double> number;
  };
  const Case kCases[] = {
      {"1234,5", "1.234,50", 1234.5}, {"1.234,567", "1.234,57", 1234.567},
      {"", "", std::nullopt},         {"-3", "-3,00", -3.0},
      {"0.5", "0.5", std::nullopt},   {"abc", "abc", std::nullopt},
  };
  for (const Case& c : kCases) {
    NumberBox box("box", "Standard");
    QTest::keyClicks(&box, c.typed);
    EXPECT_EQ(box.Text(), c.typed);
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(&box, &out);
    EXPECT_EQ(box.Text(), c.settled);
    EXPECT_EQ(box.IsNumeric(), c.number.has_value()) << c.typed;
    if (c.number) {
      EXPECT_EQ(box.Number(), c.number);
    }
  }
}

TEST(Boxes, ADataComboStandsForItsBoundColumn) {
  TestCompany company;
  QWidget window;
  Adodc accounts("adoCont", &window);
  accounts.SetConnectionString(company.ConnectionString());
  accounts.SetRecordSource(
      "Select CONT, CONT & '-' & TITLU As CONT_TITLU from kv_PC WHERE LEN(CONT) >=3 order by CONT");
  DataCombo combo("cboCont", &window);
  combo.SetListField("CONT_TITLU");
  combo.SetBoundColumn("CONT");
  combo.SetRowSource(&accounts);
  accounts.Refresh();
  EXPECT_GT(combo.count(), 100);
  EXPECT_EQ(combo.BoundText(), "");
  combo.SetBoundText("401");
  EXPECT_EQ(combo.Text().substr(0, 4), "401-");
  accounts.Refresh();
  EXPECT_EQ(combo.BoundText(), "401");
  combo.SetText("999-nu exista");
  EXPECT_EQ(combo.BoundText(), "");
  // Typed to its end an entry counts as picked.
  int picked = 0;
  QObject::connect(&combo, &DataCombo::Picked, [&] { ++picked; });
  combo.setEditText(combo.itemText(3).toLower());
  QTest::keyClick(&combo, Qt::Key_Return);
  EXPECT_EQ(picked, 1);
  EXPECT_EQ(combo.currentIndex(), 3);
  combo.lineEdit()->selectAll();
  QTest::keyClick(&combo, Qt::Key_Delete);
  emit combo.lineEdit()->editingFinished();
  EXPECT_EQ(combo.BoundText(), "");
  EXPECT_EQ(picked, 2);
}

// A combo over entries of its own, left by leaving its line.
class TypedCombo : public ::testing::Test {
 protected:
  TypedCombo() {
    for (const char* each : {"2131-Echipamente tehnologice", "2133-Mijloace de transport",
                             "214-Mobilier, aparatur\xC4\x83 birotic\xC4\x83",
                             "\xC8\x98tef \xC8\x9A\xC4\x83r\xC4\x83nescu"}) {
      combo_.addItem(each, QString(each).section('-', 0, 0));
    }
    combo_.SetBoundText("2131");
  }
  std::string Type(const char* text) {
    combo_.lineEdit()->selectAll();
    QTest::keyClicks(combo_.lineEdit(), QString(text));
    emit combo_.lineEdit()->editingFinished();
    return combo_.BoundText();
  }

  DataCombo combo_{"combo"};
};

TEST_F(TypedCombo, ATextInsideAnEntryMeansItWithoutCaseAndMarks) {
  EXPECT_EQ(Type("mijloace"), "2133");
  EXPECT_EQ(Type("214-m"), "214") << "by its beginning";
  EXPECT_EQ(Type("2133"), "2133") << "by its value";
  EXPECT_EQ(Type("APARATURA BIR"), "214");
  EXPECT_EQ(Type("stef tara"), "\xC8\x98tef \xC8\x9A\xC4\x83r\xC4\x83nescu");
  EXPECT_EQ(Type("TEHNO"), "2131");
  EXPECT_TRUE(combo_.Refused().isEmpty());
}

TEST_F(TypedCombo, WhatIsNotTakenIsMarkedUntilTheUserGoesOn) {
  EXPECT_EQ(Type("masini"), "2131");
  EXPECT_EQ(combo_.Text(), "2131-Echipamente tehnologice");
  EXPECT_EQ(combo_.Refused().toStdString(), "\"masini\" nu este in lista");
  EXPECT_EQ(combo_.toolTip(), combo_.Refused());
  EXPECT_NE(combo_.lineEdit()->palette().color(QPalette::Base), QPalette().color(QPalette::Base));
  EXPECT_EQ(Type("213"), "2131") << "two entries begin so";
  EXPECT_EQ(combo_.Refused().toStdString(),
            "\"213\" se potriveste cu mai multe randuri ale listei");
  QTest::keyClicks(combo_.lineEdit(), "x");
  EXPECT_TRUE(combo_.Refused().isEmpty());
  EXPECT_TRUE(combo_.toolTip().isEmpty());
  EXPECT_EQ(combo_.lineEdit()->palette().color(QPalette::Base), QPalette().color(QPalette::Base));
}

TEST_F(TypedCombo, TheListOffersWhatHasTheTextInside) {
  QCompleter* offers = combo_.completer();
  offers->setCompletionPrefix("BIROTICA");
  ASSERT_EQ(offers->completionCount(), 1);
  EXPECT_EQ(offers->currentCompletion(), combo_.itemText(2));
  offers->setCompletionPrefix("2");
  EXPECT_EQ(offers->completionCount(), 3);
}

TEST(Boxes, RowsReadAnewTakeNothingFromWhatIsBeingTyped) {
  TestCompany company;
  QWidget window;
  Adodc accounts("adoCont", &window);
  accounts.SetConnectionString(company.ConnectionString());
  accounts.SetRecordSource("Select CONT, TITLU from kv_PC WHERE LEN(CONT) >=3 order by CONT");
  DataCombo combo("cboCont", &window);
  combo.SetListField("CONT");
  combo.SetBoundColumn("CONT");
  combo.SetRowSource(&accounts);
  accounts.Refresh();
  combo.SetBoundText("401");
  combo.lineEdit()->selectAll();
  QTest::keyClicks(combo.lineEdit(), "213");
  accounts.Refresh();
  EXPECT_EQ(combo.Text(), "213");
  QTest::keyClicks(combo.lineEdit(), "1");
  emit combo.lineEdit()->editingFinished();
  EXPECT_EQ(combo.BoundText(), "2131");
}

TEST(Boxes, OfEntriesWithTheSameTextTheOneChosenStays) {
  TestCompany company;
  Connection file = company.Open();
  for (const char* name : {"ALFA", "BETA", "ALFA"}) {
    file.Execute("INSERT INTO kv_Ter (COD, NUME) VALUES (?, ?)",
                 {file.QueryValue("SELECT Count(*) + 1 FROM kv_Ter"), name});
  }
  QWidget window;
  Adodc suppliers("adoFurnizori", &window);
  suppliers.SetConnectionString(company.ConnectionString());
  suppliers.SetRecordSource("SELECT COD, NUME FROM kv_Ter ORDER BY COD");
  DataCombo combo("cboFurnizor", &window);
  combo.SetListField("NUME");
  combo.SetBoundColumn("COD");
  combo.SetRowSource(&suppliers);
  suppliers.Refresh();
  const std::string third = std::to_string(combo.count());
  combo.SetBoundText(third);
  QTest::keyClick(&combo, Qt::Key_Return);
  EXPECT_EQ(combo.BoundText(), third);
  suppliers.Refresh();
  EXPECT_EQ(combo.BoundText(), third);
}

TEST(Boxes, ANumberTypedOverIsWhatWasTyped) {
  NumberBox box("box", "Standard");
  box.SetNumber(333.3333);
  EXPECT_EQ(box.Number(), 333.3333);
  box.selectAll();
  QTest::keyClicks(&box, "333,33");
  EXPECT_EQ(box.Number(), 333.33);
}

TEST(Boxes, ATextForAValueThatTheListLacksIsShownUntilItIsEmptied) {
  DataCombo combo("combo");
  int picked = 0;
  QObject::connect(&combo, &DataCombo::Picked, [&] { ++picked; });
  const auto type = [&combo](const char* text) {
    combo.lineEdit()->selectAll();
    *text ? QTest::keyClicks(combo.lineEdit(), text)
          : QTest::keyClick(combo.lineEdit(), Qt::Key_Delete);
    emit combo.lineEdit()->editingFinished();
  };
  combo.SetBoundText("C2", "C2-Hala veche");
  EXPECT_EQ(combo.BoundText(), "C2");
  type("altceva");
  EXPECT_EQ(combo.Text(), "C2-Hala veche");
  EXPECT_EQ(combo.BoundText(), "C2");
  EXPECT_EQ(picked, 0);
  type("");
  EXPECT_EQ(combo.BoundText(), "");
  EXPECT_EQ(picked, 1);
  type("altceva");
  EXPECT_EQ(combo.Text(), "") << "what was emptied does not come back";
}

TEST(Boxes, AValueThatTheListLacksStaysUntilTheUserTypes) {
  TestCompany company;
  company.Open().Execute("UPDATE kv_par SET CODDeviza = 'XYZ'");
  QWidget window;
  Adodc values("adoDeviza", &window);
  Adodc parameters("adoConfigurari", &window);
  for (Adodc* source : {&values, &parameters}) {
    source->SetConnectionString(company.ConnectionString());
  }
  values.SetRecordSource("SELECT COD from KV_VAL Order By Cod");
  parameters.SetRecordSource("select CODDeviza from kv_par");
  DataCombo combo("cboDeviza", &window);
  combo.SetListField("COD");
  combo.SetBoundColumn("COD");
  combo.SetRowSource(&values);
  combo.SetDataField(&parameters, "CODDeviza");
  const auto stored = [&] { return company.Open().QueryValue("SELECT CODDeviza FROM kv_par"); };
  parameters.Refresh();
  parameters.UpdateRow();
  EXPECT_EQ(stored(), Value("XYZ")) << "the list is not even loaded";
  values.Refresh();
  EXPECT_EQ(combo.Text(), "");
  parameters.UpdateRow();
  EXPECT_EQ(stored(), Value("XYZ"));
  QTest::keyClicks(&combo, "E");
  QTest::keyClick(&combo, Qt::Key_Backspace);
  QTest::keyClick(&combo, Qt::Key_Delete);
  EXPECT_EQ(combo.Text(), "");
  parameters.UpdateRow();
  EXPECT_TRUE(stored().IsNull());
}

}  // namespace
}  // namespace tevra::test
