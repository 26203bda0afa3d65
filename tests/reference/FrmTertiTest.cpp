// Clients and suppliers on their screen, worked by keyboard.
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/forms/DataCombo.h"
#include "reference/frmTerti.h"
#include "session/CodeEditors.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class FrmTerti : public ::testing::Test {
 protected:
  FrmTerti() {
    Connection company = company_.Open();
    company.Execute("DELETE FROM kv_Ter");
    const char* rows[] = {"(3, 'BETA SRL', 'C', 'ana@beta.ro', 'DE')",
                          "(5, 'ALFA SRL', 'F', NULL, NULL)", "(8, 'ALBA''S', 'M', NULL, 'RO')"};
    for (const char* row : rows) {
      company.Execute(std::string("INSERT INTO kv_Ter (COD, NUME, TIP, EMAIL, CT) VALUES ") + row);
    }
  }
  void Open() {
    screen_ = std::make_unique<frmTerti>();
    Activate(*screen_);
  }
  void Type(party::Place box, const char* text) const { Retype(screen_->txtFields[box], text); }
  std::string Field(party::Place box) const { return screen_->txtFields[box]->Text(); }
  void Down() const { Press(screen_->TDBGrid1->View(), Qt::Key_Down); }
  void Up() const { Press(screen_->TDBGrid1->View(), Qt::Key_Up); }
  std::string Stored(const char* fields, int code) const {
    return company_.Rows(std::string("SELECT ") + fields +
                         " FROM kv_Ter WHERE COD = " + std::to_string(code));
  }
  std::string TakePrompt() {
    std::string prompts;
    for (const MessageRequest& each : messages_.shown) prompts += each.prompt + "|";
    messages_.shown.clear();
    return prompts;
  }
  std::string Names() const {
    std::string names;
    const QAbstractItemModel* model = screen_->TDBGrid1->View()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
      names += model->index(row, 1).data().toString().toStdString() + "|";
    }
    return names;
  }

  TestCompany company_;
  MessageRecorder messages_;
  std::unique_ptr<frmTerti> screen_;
};

TEST_F(FrmTerti, TwoPressesAddAThirdParty) {
  Open();
  EXPECT_EQ(Names(), "ALBA'S|ALFA SRL|BETA SRL|");
  Down();
  EXPECT_EQ(Field(party::kCode) + Field(party::kName) + screen_->TextCT->Text(), "5ALFA SRLRO");
  Press(screen_->cmdAdauga);
  EXPECT_EQ(Field(party::kCode) + Field(party::kName) + Field(party::kKind), "F");
  EXPECT_EQ(screen_->TextCT->Text(), "RO");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM kv_Ter"), "3 \n");
  Type(party::kName, "  ");
  Press(screen_->cmdAdauga);
  EXPECT_EQ(TakePrompt(),
            "Va rugam introduceti numele societatii ! Salvarea nu se poate efectua !|");

  screen_->txtCautare->SetText("BETA");
  Press(screen_->cmdCauta);
  Type(party::kName, "o'hara srl");
  Type(party::kKind, "m");
  Type(party::kEmail, "Ana@o-hara.ro");
  Retype(screen_->TextCT, "md");
  Press(screen_->cmdAdauga);
  EXPECT_EQ(TakePrompt(), "");
  EXPECT_EQ(Stored("NUME, TIP, EMAIL, CT, BANCA IS NULL", 9), "O'HARA SRL M Ana@o-hara.ro MD 1 \n");
  EXPECT_EQ(Names(), "ALBA'S|ALFA SRL|BETA SRL|O'HARA SRL|");
  EXPECT_EQ(screen_->TDBGrid1->SelectedRows(), std::vector<std::size_t>{3});
  EXPECT_EQ(screen_->TDBGrid1->ColumnText(0), "9");
  EXPECT_EQ(Field(party::kCode) + Field(party::kName) + Field(party::kKind), "F");
  EXPECT_FALSE(screen_->HasChanges());
}

TEST_F(FrmTerti, ASupplierAddedHereIsChosenInTheListThatAskedForHim) {
  Adodc suppliers("adoFur", nullptr);
  suppliers.SetConnectionString(company_.ConnectionString());
  suppliers.SetRecordSource("Select COD, NUME from kv_ter where Ucase(TIP) in ('F', 'M')");
  suppliers.Refresh();
  DataCombo list("cboFurnizori");
  list.SetRowSource(&suppliers);
  list.SetListField("NUME");
  list.SetBoundColumn("COD");
  SetCodeEditor("kv_Ter", [this](const CodeAdded& added) {
    Open();
    screen_->WhenAdded(added);
  });
  OfferCodeEditor(list, suppliers);
  QTest::keyClick(&list, Qt::Key_F4);
  ASSERT_NE(screen_, nullptr);
  EXPECT_TRUE(screen_->txtFields[party::kName]->hasFocus());
  Type(party::kName, "omega");
  Press(screen_->cmdAdauga);
  EXPECT_EQ(list.Text() + " " + list.BoundText(), "OMEGA 9");
  Type(party::kName, "client");  // no supplier: the list does not have him
  Type(party::kKind, "c");
  Press(screen_->cmdAdauga);
  EXPECT_EQ(list.Text(), "OMEGA");
  SetCodeEditor("kv_Ter", [](const CodeAdded&) {});
}

TEST_F(FrmTerti, ASavedChangeStandsInTheListAndAnEmptyCountryIsRomania) {
  Open();
  Down();
  Down();
  EXPECT_EQ(Field(party::kName) + Field(party::kEmail) + screen_->TextCT->Text(),
            "BETA SRLana@beta.roDE");
  Type(party::kName, "gama");
  Retype(screen_->TextCT, "");
  Press(screen_->cmdModifica);
  EXPECT_EQ(Stored("NUME, TIP, EMAIL, CT", 3), "GAMA C ana@beta.ro RO \n");
  EXPECT_EQ(Names(), "ALBA'S|ALFA SRL|GAMA|");
  EXPECT_EQ(Field(party::kCode), "");
  // The form is empty, so there is nothing to save; Enter on the row shows it again.
  Press(screen_->cmdModifica);
  Press(screen_->TDBGrid1->View(), Qt::Key_Return);
  EXPECT_EQ(Field(party::kName), "GAMA");
  company_.Open().Execute("DELETE FROM kv_Ter WHERE COD = 3");
  Type(party::kName, "delta");
  Press(screen_->cmdModifica);
  EXPECT_EQ(TakePrompt(),
            "Tertul nu mai exista, a fost sters intre timp ! Salvarea nu se poate efectua !|");
  EXPECT_EQ(Field(party::kName), "DELTA");
}

TEST_F(FrmTerti, AnotherTypeKeepsTheFocus) {
  Open();
  for (const char* typed : {"x", "", " "}) {
    Type(party::kKind, typed);
    QTest::keyClick(screen_->txtFields[party::kKind], Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_EQ(TakePrompt(),
              "Va rugam completati C (de la Client)sau F (de la Furnizor) sau M (de la Mixt - "
              "client si furnizor) !|");
    EXPECT_TRUE(screen_->txtFields[party::kKind]->hasFocus());
  }
  EXPECT_EQ(screen_->txtFields[party::kKind]->selectedText(), " ");
  Type(party::kKind, "c");
  QTest::keyClick(screen_->txtFields[party::kKind], Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(TakePrompt(), "");
  EXPECT_TRUE(screen_->TextCT->hasFocus());
}

TEST_F(FrmTerti, ASearchForABeginning) {
  Open();
  Retype(screen_->txtCautare, "al");
  EXPECT_EQ(screen_->txtCautare->Text(), "AL");
  Press(screen_->txtCautare, Qt::Key_Return);
  EXPECT_EQ(Names(), "ALBA'S|ALFA SRL|");
  Retype(screen_->txtCautare, "alba'");
  Press(screen_->cmdCauta);
  EXPECT_EQ(Names(), "ALBA'S|");
  Retype(screen_->txtCautare, "zz");
  Press(screen_->cmdCauta);
  EXPECT_EQ(TakePrompt(), "Nu exista societati ale caror nume sa inceapa cu ZZ !|");
  EXPECT_EQ(Names(), "ALBA'S|");
  screen_->datPrimaryRS->SetConnectionString("Data Source=/nu/este.mdb");
  Retype(screen_->txtCautare, "");
  Press(screen_->cmdCauta);
  EXPECT_EQ(messages_.shown.back().title, "Cautare");
}

TEST_F(FrmTerti, OneThatIsUsedStays) {
  Connection company = company_.Open();
  company_.AddAsset({{"COD_FURNIZOR", 5}});
  company_.AddAsset({{"ID_Client", 5}});
  company.Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, TERT) VALUES (1, 1, 5)");
  Open();
  Down();
  messages_.answers = {kYes};
  Press(screen_->cmdSterge);
  ASSERT_EQ(messages_.shown.size(), 2u);
  EXPECT_EQ(messages_.shown[0].title, "Confirmare stergere");
  EXPECT_EQ(messages_.shown[0].buttons, 0L + kYesNo + kDefaultStep);
  EXPECT_EQ(
      TakePrompt(),
      "Sunteti sigur ca doriti sa stergeti societatea : ALFA SRL ?\n\nEste folosit in 2 "
      "imobilizari.|Societatea nu se poate sterge deoarece este utilizata in Inregistrari !|");
  company.Execute("DELETE FROM Kv_Linii");
  messages_.answers = {kNo, kYes};
  Press(screen_->cmdSterge);
  EXPECT_EQ(Names(), "ALBA'S|ALFA SRL|BETA SRL|");
  Press(screen_->cmdSterge);
  EXPECT_EQ(Names(), "ALBA'S|BETA SRL|");
  EXPECT_EQ(Field(party::kCode) + Field(party::kName), "");
}

TEST_F(FrmTerti, WhatWasTypedIsNotLostUnasked) {
  Open();
  Down();
  Type(party::kContact, "ion");
  messages_.answers = {kNo, kNo, kYes};
  Up();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_EQ(Field(party::kCode) + Field(party::kContact), "5ION");
  EXPECT_EQ(screen_->TDBGrid1->ColumnText(0), "5");
  Press(screen_->cmdAdauga);
  EXPECT_EQ(Field(party::kCode), "5");
  Up();
  EXPECT_EQ(messages_.shown.size(), 3u);
  EXPECT_EQ(Field(party::kCode) + Field(party::kContact), "8");
  EXPECT_EQ(Stored("REPREZ IS NULL", 5), "1 \n");
}

}  // namespace
}  // namespace tevra::test
