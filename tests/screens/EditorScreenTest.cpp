// The pattern of a reference table's editor, by a small editor of cost centres.
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/screens/EditorScreen.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class frmCentre : public EditorScreen {
 public:
  frmCentre() : EditorScreen("frmCentre", "Centre", nullptr) {
    EditorDescription editor;
    editor.connection = CurrentSession().connectionString;
    editor.statement = "select COD,TITLU,UTILIZABIL from kv_cc Order by COD";
    editor.columns = {{"Cod", "COD"}, {"Denumire", "TITLU"}, {"Utilizabil", "UTILIZABIL"}};
    editor.frame = MakeInputFrame("fraCC", "Centru", this);
    txtCod = new TextBox("txtCod", editor.frame, 16);
    txtTitlu = new TextBox("txtTitlu", editor.frame, 30);
    editor.boxes = {{"Cod", txtCod}, {"Denumire", txtTitlu, 2}};
    editor.checks = {
        {[this] { return Trim(txtCod->Text()).empty(); }, "Lipseste codul !", txtCod},
        {[this] { return Trim(txtTitlu->Text()).empty(); }, "Lipseste denumirea !", txtTitlu},
        {[this] { return ExistaInTabela(txtCod->Text(), "CodCentruCost"); }, "Exista deja !"}};
    editor.row = [this] {
      return std::vector<std::pair<std::string, Value>>{
          {"COD", Trim(txtCod->Text())}, {"TITLU", Trim(txtTitlu->Text())}, {"UTILIZABIL", "D"}};
    };
    editor.question = [this] { return "Stergeti " + Text("COD") + " ?"; };
    editor.uses = {
        {[this] { return ExistaInTabela(Text("COD"), "CentreCostLinii"); }, "Este utilizat !"}};
    editor.addFailure = "EroareAdaugare";
    editor.deleteFailure = "EroareStergere";
    editor.cells = {
        {2, [](const std::string& text) { return text != "D" && text != "N"; }, "D sau N !"}};
    Edit(std::move(editor));
  }
  TextBox* txtCod;
  TextBox* txtTitlu;
};

class EditorScreens : public ::testing::Test {
 protected:
  EditorScreens() {
    company_.Open().Execute("DELETE * FROM kv_cc");
    screen_ = std::make_unique<frmCentre>();
    Activate(*screen_);
  }
  void Add(const char* code, const char* title) {
    screen_->txtCod->SetText(code);
    screen_->txtTitlu->SetText(title);
    Press(screen_->cmdAdauga);
  }
  static void Press(QPushButton* button) {
    button->click();
    QCoreApplication::processEvents();
  }
  std::string Stored() const { return company_.Rows("SELECT COD, TITLU, UTILIZABIL FROM kv_cc"); }
  std::string LastPrompt() const {
    return messages_.shown.empty() ? "" : messages_.shown.back().prompt;
  }

  TestCompany company_;
  MessageRecorder messages_;
  std::unique_ptr<frmCentre> screen_;
};

TEST_F(EditorScreens, AddsWhatTheBoxesHoldOnceTheyAreValid) {
  Add(" ", "Atelier");
  EXPECT_EQ(LastPrompt(), "Lipseste codul !");
  EXPECT_EQ(messages_.shown.back().buttons, kCritical);
  EXPECT_TRUE(screen_->txtCod->hasFocus());
  Add("A1", "");
  EXPECT_EQ(LastPrompt(), "Lipseste denumirea !");
  EXPECT_TRUE(screen_->txtTitlu->hasFocus());
  Add(" A1 ", " Atelier ");
  Add("A1", "Altul");
  EXPECT_EQ(LastPrompt(), "Exista deja !");
  EXPECT_EQ(messages_.shown.size(), 3u);
  EXPECT_EQ(Stored(), "A1 Atelier D \n");
  EXPECT_EQ(screen_->grdDataGrid->ColumnText(0), "A1");
}

TEST_F(EditorScreens, DeletesWhatIsNotInUseWhenAsked) {
  Press(screen_->cmdSterge);
  EXPECT_TRUE(messages_.shown.empty());
  Add("A1", "Atelier");
  Add("B1", "Birou");
  company_.Open().Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, CODBUG) VALUES (1, 1, 'B1')");
  messages_.answers = {kYes, kOk, kNo, kYes};
  Press(screen_->cmdSterge);
  EXPECT_EQ(LastPrompt(), "Este utilizat !");
  screen_->datPrimaryRS->MoveFirst();
  Press(screen_->cmdSterge);
  EXPECT_EQ(LastPrompt(), "Stergeti A1 ?");
  EXPECT_EQ(messages_.shown.back().buttons, kYesNo | kQuestion | kDefaultStep);
  EXPECT_EQ(Stored(), "A1 Atelier D \nB1 Birou D \n");
  Press(screen_->cmdSterge);
  EXPECT_EQ(Stored(), "B1 Birou D \n");
  EXPECT_EQ(screen_->grdDataGrid->View()->model()->rowCount(), 1);
}

TEST_F(EditorScreens, CellsAreTestedBeforeTheyAreWritten) {
  Add("A1", "Atelier");
  QAbstractItemModel* model = screen_->grdDataGrid->View()->model();
  EXPECT_FALSE(model->setData(model->index(0, 2), "X"));
  EXPECT_EQ(LastPrompt(), "D sau N !");
  EXPECT_TRUE(model->setData(model->index(0, 2), "N"));
  EXPECT_EQ(Stored(), "A1 Atelier N \n");
}

TEST_F(EditorScreens, FailuresAreToldUnderTheirTitles) {
  Add("A1", "Atelier");
  CurrentSession().connectionString += ";Lock Timeout=50";
  screen_ = std::make_unique<frmCentre>();
  Connection other = company_.Open();
  other.BeginTrans();
  Add("B1", "Birou");
  EXPECT_EQ(messages_.shown.back().title, "EroareAdaugare");
  Press(screen_->cmdSterge);
  EXPECT_EQ(messages_.shown.back().title, "EroareStergere");
  other.RollbackTrans();
  EXPECT_EQ(Stored(), "A1 Atelier D \n");
  EXPECT_EQ(screen_->grdDataGrid->View()->model()->rowCount(), 1);
}

TEST_F(EditorScreens, WhatWasTypedAndNotAddedIsAskedAboutAtTheClose) {
  Add("A1", "Atelier");  // the boxes keep their texts
  screen_->txtCod->SetText("B1");
  messages_.answers = {kNo};
  screen_->close();
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_TRUE(screen_->isVisible());
  screen_->txtCod->SetText("A1");
  screen_->close();
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_FALSE(screen_->isVisible());
}

TEST_F(EditorScreens, TabGoesFromTheBoxesToTheAddButtonAndThenToTheList) {
  screen_->txtCod->setFocus();
  for (QWidget* next : std::initializer_list<QWidget*>{screen_->txtTitlu, screen_->cmdAdauga,
                                                       screen_->grdDataGrid->View()}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), next);
  }
}

}  // namespace
}  // namespace tevra::test
