// The editors of the nine reference tables, worked through their boxes.
#include <QAbstractItemView>
#include <QCompleter>
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/forms/Boxes.h"
#include "platform/forms/DataCombo.h"
#include "platform/system/Clock.h"
#include "platform/text/Strings.h"
#include "reference/ReferenceScreen.h"
#include "reference/ReferenceTables.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class Editors : public ::testing::Test {
 protected:
  Editors() { clock::Set(DateTime(2026, 11, 23)); }
  ~Editors() override { clock::Reset(); }

  void Open(const char* screen) {
    screen_ = std::make_unique<ReferenceScreen>(ReferenceTableOf(screen));
    Activate(*screen_);
  }
  template <class Control>
  Control* Find(const char* name) const {
    auto* control = screen_->findChild<Control*>(name);
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  // Types into a box as a user does, over what is there.
  void Type(const char* name, const char* text) const { Retype(Find<QLineEdit>(name), text); }
  void Choose(const char* combo, const char* typed) const {
    auto* box = Find<DataCombo>(combo);
    box->lineEdit()->setFocus();
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), typed);
    box->completer()->popup()->hide();
    emit box->lineEdit()->editingFinished();
    screen_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(screen_.get()));
    QCoreApplication::processEvents();
  }
  std::string Add() {
    const std::size_t before = messages_.shown.size();
    Press(screen_->cmdAdauga);
    return messages_.shown.size() == before ? std::string() : messages_.shown.back().prompt;
  }
  // The question and what followed it.
  std::vector<MessageRequest> Delete(long answer) {
    messages_.shown.clear();
    messages_.answers = {answer};
    Press(screen_->cmdSterge);
    return messages_.shown;
  }
  bool SetCell(int column, const char* text) const {
    const auto row = static_cast<int>(screen_->datPrimaryRS->Recordset().Position());
    QAbstractItemModel* model = screen_->grdDataGrid->View()->model();
    return model->setData(model->index(row, column), text);
  }
  void GoTo(const std::string& criteria) const {
    screen_->datPrimaryRS->MoveFirst();
    screen_->datPrimaryRS->Recordset().Find(criteria);
    screen_->datPrimaryRS->Notify();
    ASSERT_TRUE(screen_->datPrimaryRS->HasRow());
  }
  std::string LastPrompt() const { return messages_.shown.back().prompt; }

  TestCompany company_;
  MessageRecorder messages_;
  std::unique_ptr<ReferenceScreen> screen_;
};

TEST_F(Editors, EveryTableOpensWithItsRowsAndColumns) {
  for (const ReferenceTable& table : ReferenceTables()) {
    Open(table.screen);
    EXPECT_TRUE(messages_.shown.empty()) << table.screen;
    const QAbstractItemModel* model = screen_->grdDataGrid->View()->model();
    const auto columns = static_cast<int>(table.columns.size());
    ASSERT_EQ(model->columnCount(), columns) << table.screen;
    for (int i = 0; i < columns; ++i) {
      EXPECT_EQ(model->headerData(i, Qt::Horizontal).toString(),
                table.columns[static_cast<std::size_t>(i)].caption);
    }
    EXPECT_EQ(std::to_string(model->rowCount()) + " \n",
              company_.Rows(std::string("SELECT COUNT(*) FROM ") + table.table));
    EXPECT_EQ(screen_->windowTitle(), table.caption);
  }
}

TEST_F(Editors, CostCentre) {
  Open("frmCentreCost");
  EXPECT_EQ(Add(), "Va rugam introduceti codul centrului de cost !");
  EXPECT_TRUE(Find<TextBox>("txtCod")->hasFocus());
  Type("txtCod", "  ate'1");
  EXPECT_EQ(Add(), "Va rugam introduceti denumirea centrului de cost !");
  EXPECT_TRUE(Find<TextBox>("txtTitlu")->hasFocus());
  Type("txtTitlu", "atelierul lui o'brien");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT * FROM kv_cc WHERE COD = 'ATE''1'"),
            "ATE'1 ATELIERUL LUI O'BRIEN D \n");
  EXPECT_EQ(Find<TextBox>("txtCod")->Text(), "  ATE'1");
  EXPECT_EQ(screen_->grdDataGrid->ColumnText(0), "ATE'1");
  company_.Open().Execute("UPDATE kv_cc SET COD = 'Ate''1'");  // by another program
  EXPECT_EQ(Add(), "Acest cod exista deja ! Adaugarea nu se poate efectua !");
  EXPECT_EQ(messages_.shown.back().buttons, kCritical);

  EXPECT_FALSE(SetCell(2, "d"));
  EXPECT_EQ(LastPrompt(), "Va rugam completati D (de la DA) sau N (de la NU) !");
  screen_->datPrimaryRS->Refresh();
  EXPECT_TRUE(SetCell(2, "N"));

  company_.AddAsset({{"COD_CC", "ATE'1"}});
  Connection lines = company_.Open();
  lines.Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, CODBUG) VALUES (1, 1, 'ATE''1')");
  auto shown = Delete(kYes);
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(
      shown[0].prompt,
      "Sunteti sigur ca doriti sa stergeti centrul de cost cu codul : Ate'1 ?\n\nEste folosit "
      "in o imobilizare.");
  EXPECT_EQ(shown[0].title, "Confirmare stergere");
  EXPECT_EQ(shown[0].buttons, kYesNo | kQuestion | kDefaultStep);
  EXPECT_EQ(shown[1].prompt,
            "Centrul de cost nu se poate sterge deoarece este utilizat in Inregistrari !");
  lines.Execute("DELETE FROM Kv_Linii");
  EXPECT_EQ(Delete(kNo).size(), 1u);
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM kv_cc"), "1 \n");
  EXPECT_EQ(Delete(kYes).size(), 1u);
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM kv_cc"), "0 \n");
  EXPECT_TRUE(Delete(kYes).empty());  // nothing is left to ask about
}

TEST_F(Editors, ClassOfAssets) {
  Open("frmClasificare");
  EXPECT_EQ(Add(), "Va rugam completati codul !");
  Type("txtCodClasif", "9.9.9.99.999.9");
  EXPECT_EQ(Find<TextBox>("txtCodClasif")->Text(), "9.9.9.99.99");
  EXPECT_EQ(Add(), "Va rugam completati denumirea  !");
  Type("txtDenumire", "Drone");
  const char* number = "Va rugam introduceti o valoare numerica pentru durata normala !";
  EXPECT_EQ(Add(), number);
  Type("txtDN", "4,5");
  Type("TextLimSup", "7,5,1");
  EXPECT_EQ(Add(), number);
  Type("TextLimSup", "7");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT COD_GR, DEN_GR, DURNOR, COD_GR_NOU, LIM_INF, LIM_SUP, DURNOR_NOU "
                          "FROM I_CLASIFICARE WHERE DEN_GR = 'Drone'"),
            "9.9.9.99.99 Drone 4,5 9.9.9.99.99 4,5 7  \n");
  EXPECT_EQ(Add(), "Acest cod de clasificare exista deja ! Adaugarea nu se poate efectua !");
  EXPECT_EQ(Delete(kYes).front().prompt,
            "Sunteti sigur ca doriti sa stergeti codul : 9.9.9.99.99 ?");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM I_CLASIFICARE WHERE DEN_GR = 'Drone'"), "0 \n");
}

TEST_F(Editors, AssociationOfAccounts) {
  company_.Open().Execute("DELETE FROM I_CONTURIIM WHERE CONT = '2131'");
  Open("frmConturi");
  EXPECT_EQ(Add(), "Va rugam introduceti Cont imobilizare");
  Choose("cboCont(0)", "2131");
  EXPECT_EQ(Find<TextBox>("txtCont(0)")->Text(), "2131");
  EXPECT_EQ(Add(), "Va rugam introduceti Cont cheltuiala cu amortizarea");
  Choose("cboCont(1)", "6811-");
  Type("txtCont(2)", "2813");
  EXPECT_EQ(Add(), "Va rugam introduceti Cont cheltuieli exceptionale");
  EXPECT_EQ(Find<DataCombo>("cboCont(2)")->BoundText(), "2813");
  Type("txtCont(3)", "6583");
  Type("txtCont(4)", "7583");
  EXPECT_EQ(Add(), "");
  const std::string name = company_.Rows("SELECT LEFT(TITLU, 30) FROM kv_pc WHERE CONT = '2131'");
  EXPECT_EQ(company_.Rows("SELECT DENUMIRE FROM I_CONTURIIM WHERE CONT = '2131'"), name);
  EXPECT_EQ(company_.Rows("SELECT CONT_CHELT, CONT_AMO, CONT_CH_EX, CONT_VEN_EX, CENTR_C FROM "
                          "I_CONTURIIM WHERE CONT = '2131'"),
            "6811 2813 6583 7583  \n");
  EXPECT_EQ(Find<TextBox>("txtCont(0)")->Text(), "");
  EXPECT_EQ(Find<DataCombo>("cboCont(0)")->Text(), "");
  GoTo("CONT = '2131'");
  EXPECT_FALSE(SetCell(1, " "));
  EXPECT_EQ(LastPrompt(), "Va rugam completati titlul contului !");
  EXPECT_EQ(Delete(kNo).front().prompt, "Sunteti sigur ca doriti sa stergeti contul 2131 ?");
  for (int i = 0; i < 5; ++i) Type(("txtCont(" + std::to_string(i) + ")").c_str(), "2131");
  EXPECT_EQ(Add(), "Acest cont de imobilizare exista deja ! Adaugarea nu se poate efectua !");
}

TEST_F(Editors, VatRate) {
  Open("frmCoteTVA");
  EXPECT_EQ(Find<DataCombo>("cboCont")->currentIndex(), 0);
  Type("txtProcent", "1,1,1");
  EXPECT_EQ(Add(), "Va rugam introduceti o valoare numerica pentru cota TVA !");
  Type("txtProcent", "23,5");
  Find<DataCombo>("cboCont")->SetText("44");
  EXPECT_EQ(Add(), "Va rugam selectati un cont corespunzator (minim 3 caractere) !");
  Choose("cboCont", "4427-");
  const std::string next = company_.Rows("SELECT MAX(COD) + 1 FROM kv_cote");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT COD FROM kv_cote WHERE CONT = '4427' AND PROCENT = 23.5"), next);
  EXPECT_EQ(Delete(kYes).front().prompt,
            "Sunteti sigur ca doriti sa stergeti cota TVA : 4427 - 23,5% ?");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM kv_cote WHERE PROCENT = 23.5"), "0 \n");
}

TEST_F(Editors, DegreeOfUse) {
  Open("frmGrade");
  EXPECT_EQ(Add(), "Va rugam completati o valoare numerica pentru limita inferioara !");
  Type("txtInf", "90");
  EXPECT_EQ(Add(), "Va rugam completati o valoare numerica pentru limita superioara!");
  Type("txtSup", "10");  // the order of the limits is the user's
  EXPECT_EQ(Add(), "Va rugam completati o valoare numerica pentru gradul de utilizare  !");
  Type("txtIndice", "1,25");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT INF, SUP, INDICE FROM I_GRADE WHERE INDICE = 1.25"),
            "90 10 1,25 \n");
  EXPECT_EQ(Delete(kYes).front().prompt, "Sunteti sigur ca doriti sa efectuati stergerea ?");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM I_GRADE WHERE INDICE = 1.25"), "0 \n");
}

TEST_F(Editors, Journal) {
  Open("frmJurnale");
  EXPECT_EQ(Find<DataCombo>("cboTip")->Text(), "B");
  EXPECT_EQ(Add(), "Va rugam completati codul jurnalului  !");
  Type("txtCodJurnal", "xyz1");
  EXPECT_EQ(Add(), "Va rugam completati titlul  !");
  Type("txtTitluJurnal", "Diverse");
  Find<DataCombo>("cboCont")->SetText("");
  Choose("cboTip", "D");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT COD, TITLU, CONT, TIP FROM KV_JUR WHERE COD = 'xyz'"),
            "xyz Diverse  D \n");
  Type("txtCodJurnal", "XYZ");
  EXPECT_EQ(Add(), "Acest cod de jurnal exista deja ! Adaugarea nu se poate efectua !");
  Type("txtCodJurnal", "XY");
  Find<DataCombo>("cboCont")->SetText("53-Casa");
  EXPECT_EQ(Add(), "Va rugam selectati un cont corespunzator (minim 3 caractere) !");
  Choose("cboCont", "5311-");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT CONT FROM KV_JUR WHERE COD = 'XY'"), "5311 \n");
  EXPECT_FALSE(SetCell(2, "53"));
  EXPECT_EQ(LastPrompt(), "Introduceti un cont format din minim 3 caractere !");
  company_.Open().Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL) VALUES (1, 1, 'XY')");
  const auto shown = Delete(kYes);
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[0].prompt, "Sunteti sigur ca doriti sa stergeti jurnalul cu codul : XY ?");
  EXPECT_EQ(shown[1].prompt,
            "Jurnalul nu se poate sterge deoarece este utilizat in Inregistrari !");
}

TEST_F(Editors, Location) {
  Open("frmLocalizare");
  EXPECT_EQ(Add(), "Va rugam introduceti codul centrului de cost !");
  Type("txtCod", "hala");
  EXPECT_EQ(Add(), "Va rugam introduceti denumirea centrului de cost !");
  Type("txtTitlu", "hala mare");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT * FROM I_LOCALIZARE WHERE COD = 'HALA'"), "HALA HALA MARE \n");
  EXPECT_EQ(Add(), "Acest cod exista deja ! Adaugarea nu se poate efectua !");
  for (int i = 0; i < 21; ++i) company_.AddAsset({{"COD_LOC", "HALA"}});
  company_.Open().Execute("INSERT INTO I_INV (NRCRT, COD_LOC) VALUES (1, 'hala')");
  EXPECT_EQ(Delete(kYes).front().prompt,
            "Sunteti sigur ca doriti sa stergeti centrul de cost cu codul : HALA ?\n\nEste folosit "
            "in 21 de imobilizari si un obiect de inventar.");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM I_LOCALIZARE WHERE COD = 'HALA'"), "0 \n");
}

TEST_F(Editors, Account) {
  company_.Open().Execute("INSERT INTO kv_cc (COD, TITLU, UTILIZABIL) VALUES ('C1', 'SEDIU', 'd')");
  Open("frmPC");
  auto* list = Find<DataCombo>("cboCentruCost");
  EXPECT_FALSE(list->isVisible());
  EXPECT_EQ(Add(), "Va rugam completati un numar de cont !");
  Type("txtCont", "213.O'1");
  EXPECT_EQ(Add(), "Va rugam completati titlul contului !");
  Type("txtTitlu", "masini");
  QTest::mouseClick(Find<TextBox>("txtCC"), Qt::LeftButton);
  QCoreApplication::processEvents();
  ASSERT_TRUE(list->isVisible());
  Choose("cboCentruCost", "SEDIU");
  EXPECT_EQ(Find<TextBox>("txtCC")->Text(), "C1");
  EXPECT_FALSE(list->isVisible());
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT CONT, TITLU, DEBITN, CREDITN, CODBUG FROM kv_pc WHERE CONT = "
                          "'213.O''1'"),
            "213.O'1 MASINI 0 0 C1 \n");
  EXPECT_EQ(screen_->grdDataGrid->ColumnText(0), "213.O'1");
  for (const char* box : {"txtCont", "txtTitlu", "txtCC"})
    EXPECT_EQ(Find<TextBox>(box)->Text(), "");
  EXPECT_FALSE(SetCell(1, ""));
  EXPECT_EQ(LastPrompt(), "Va rugam completati titlul contului !");
  Type("txtCont", "213.o'1");
  Type("txtTitlu", "x");
  EXPECT_EQ(Add(), "Acest numar de cont exista deja ! Adaugarea nu se poate efectua !");
  EXPECT_EQ(Delete(kYes).front().prompt, "Sunteti sigur ca doriti sa stergeti contul 213.O'1 ?");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM kv_pc WHERE CONT = '213.o''1' AND CODBUG = ''"),
            "1 \n");  // no cost centre
}

TEST_F(Editors, MinimumValue) {
  company_.Open().Execute("DELETE FROM I_VALIM");
  Open("frmValImob");
  EXPECT_EQ(Find<DateBox>("dtpInitial")->Date(), DateTime(2026, 11, 23));
  Type("txtValoare", "o mie");
  EXPECT_EQ(Add(), "Va rugam introduceti o valoare numerica !");
  Type("txtValoare", "2.500");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT * FROM I_VALIM"), "23.11.2026 2500 \n");
  EXPECT_EQ(screen_->grdDataGrid->ColumnText(1), "2.500");
  EXPECT_EQ(Add(), "Data initiala exista deja ! Adaugarea nu se poate efectua !");
  EXPECT_EQ(Delete(kYes).front().prompt, "Sunteti sigur ca doriti sa efectuati stergerea ?");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM I_VALIM"), "0 \n");
}

TEST_F(Editors, ARowAddedInTheEditorOfAListIsChosenThere) {
  std::unique_ptr<ReferenceScreen> chart;
  SetCodeEditor("KV_pc", [&chart](const CodeAdded& added) {
    chart = std::make_unique<ReferenceScreen>(ReferenceTableOf("frmPC"));
    chart->WhenAdded(added);
  });
  Open("frmConturi");
  auto* list = Find<DataCombo>("cboCont(1)");
  QTest::keyClick(list, Qt::Key_F4);
  QCoreApplication::processEvents();
  ASSERT_NE(chart, nullptr);
  const auto add = [&](const char* account) {
    chart->findChild<TextBox*>("txtCont")->SetText(account);
    chart->findChild<TextBox*>("txtTitlu")->SetText("AMORTIZARE");
    Press(chart->cmdAdauga);
  };
  add("ZZ");  // too short for the list
  EXPECT_EQ(Find<TextBox>("txtCont(1)")->Text(), "");
  add("6898");
  EXPECT_EQ(list->Text(), "6898-AMORTIZARE");
  EXPECT_EQ(Find<TextBox>("txtCont(1)")->Text(), "6898");
  EXPECT_EQ(Find<TextBox>("txtCont(0)")->Text(), "");
  screen_.reset();
  add("6899");  // the list is gone by now
  EXPECT_TRUE(messages_.shown.empty()) << LastPrompt();
  SetCodeEditor("kv_pc", [](const CodeAdded&) {});
}

TEST_F(Editors, FailuresAreShownUnderTheTitlesOfTheirScreens) {
  CurrentSession().connectionString += ";Lock Timeout=50";
  Open("frmConturi");
  for (int i = 0; i < 5; ++i) Type(("txtCont(" + std::to_string(i) + ")").c_str(), "9999");
  Connection other = company_.Open();
  other.BeginTrans();
  const std::string shown = Add();
  EXPECT_EQ(messages_.shown.back().title, " EroareAdauga");
  EXPECT_EQ(shown.substr(shown.size() - 8), "Linia: 2");
  EXPECT_EQ(Find<TextBox>("txtCont(0)")->Text(), "9999");
  other.RollbackTrans();
  EXPECT_EQ(Add(), "");
}

}  // namespace
}  // namespace tevra::test
