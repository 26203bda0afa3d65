// The condition builder, worked by keyboard.
#include <QListView>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/forms/DataCombo.h"
#include "platform/forms/Form.h"
#include "platform/system/Settings.h"
#include "platform/where/WhereBuilder.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"
#include "tests/screens/Typing.h"

namespace tevra::test {
namespace {

class frmConditii : public Form {
 public:
  frmConditii(const TestCompany& company) : Form("frmConditii", "Conditii", nullptr) {
    builder = new WhereBuilder("WhereBuilder", this);
    std::vector<WhereField> fields = WhereFieldsOf(company.Open(), "Kv_Linii", {});
    for (WhereField& field : fields) {
      if (field.name == "Kv_Linii.TERT") field.list = "select COD, NUME from Kv_Ter order by NUME";
      field.caption = field.name.substr(9);
    }
    builder->SetUp({company.ConnectionString(), fields, "Kv_Linii.DOC", "Conditii/proba"});
    auto* column = new QVBoxLayout(this);
    column->addWidget(builder);
    column->addStretch(1);
  }
  WhereBuilder* builder;
};

class WhereBuilderTest : public ::testing::Test {
 protected:
  WhereBuilderTest() {
    SetSettings(nullptr);
    Connection file = company_.Open();
    file.Execute("DELETE * FROM kv_Ter");
    file.Execute("INSERT INTO kv_Ter (COD, NUME) VALUES (7, 'O''NEIL & FIII')");
    file.Execute("INSERT INTO kv_Ter (COD, NUME) VALUES (8, 'ALFA SRL')");
    screen_ = std::make_unique<frmConditii>(company_);
    builder_ = screen_->builder;
    Activate(*screen_);
    builder_->FirstBox()->setFocus();
    QObject::connect(builder_, &WhereBuilder::SearchWanted, [this] { ++searches_; });
  }
  ~WhereBuilderTest() override { SetSettings(nullptr); }

  void Press(const char* button) {
    auto* found = screen_->findChild<QAbstractButton*>(button);
    ASSERT_TRUE(found) << button;
    found->setFocus();
    Key(Qt::Key_Space);
  }
  std::string Words() {
    const std::optional<WhereClause> clause = builder_->Clause();
    return clause ? clause->text : "refused: " + messages_.shown.back().prompt;
  }
  std::string Focus() const { return QApplication::focusWidget()->objectName().toStdString(); }
  std::string Box(const char* name) const {
    const auto* box = screen_->findChild<QWidget*>(name);
    return box ? box->metaObject()->className() : "none";
  }

  TestCompany company_;
  MessageRecorder messages_;
  std::unique_ptr<frmConditii> screen_;
  WhereBuilder* builder_ = nullptr;
  int searches_ = 0;
};

TEST_F(WhereBuilderTest, EachFieldHasItsOwnEditorAndOperators) {
  EXPECT_EQ(Words(), "");
  EXPECT_EQ(Focus(), "txtValoare");
  EXPECT_EQ(Box("txtValoare"), "tevra::TextBox");
  Key(Qt::Key_Tab, Qt::ShiftModifier);
  Key(Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_EQ(Focus(), "cboListaCautare");
  Choose("DATAINR");
  EXPECT_EQ(Box("txtValoare"), "tevra::DateBox");
  Choose("intre");
  Type("01102026");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "txtPanaLa");
  Type("31102026");
  EXPECT_EQ(Words(), "DATAINR intre 01.10.2026 si 31.10.2026");
  auto* op = screen_->findChild<QComboBox*>("cboConditie");
  EXPECT_EQ(op->findText("contine"), -1);
  op->setFocus();
  Choose("gol");
  EXPECT_EQ(Box("txtValoare"), "none");
  EXPECT_EQ(Words(), "DATAINR este gol");
  screen_->findChild<QWidget*>("cboListaCautare")->setFocus();
  Choose("TERT");
  Choose("egal cu");
  EXPECT_EQ(Box("txtValoare"), "tevra::DataCombo");
  Type("alfa");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Words(), "TERT = 8 (ALFA SRL)");
  op->setFocus();
  Choose("mai mare decat");
  EXPECT_EQ(Box("txtValoare"), "tevra::NumberBox");
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(WhereBuilderTest, AChoiceIsTypedWithItsBlanks) {
  auto* op = screen_->findChild<QComboBox*>("cboConditie");
  op->setFocus();
  Type("mai mi");
  EXPECT_EQ(op->currentText(), "mai mic decat");
  EXPECT_FALSE(op->view()->isVisible());
  QTest::qWait(QApplication::keyboardInputInterval() + 50);
  Key(Qt::Key_Space);
  EXPECT_TRUE(op->view()->isVisible());
  op->hidePopup();
  screen_->findChild<QWidget*>("txtValoare")->setFocus();
  Type("12");
  EXPECT_EQ(Words(), "DOC < \"12\"");
}

TEST_F(WhereBuilderTest, WhatWasTypedStaysUnderAnotherConditionOfTheField) {
  Type("IMO");
  screen_->findChild<QWidget*>("cboConditie")->setFocus();
  Choose("contine");
  EXPECT_EQ(Words(), "DOC contine \"IMO\"");
  screen_->findChild<QWidget*>("cboConditie")->setFocus();
  Choose("intre");
  EXPECT_EQ(Words(), "refused: Conditia \"DOC\": completati ambele capete ale intervalului !");
  EXPECT_EQ(builder_->Conditions().front().value, "IMO");
  screen_->findChild<QWidget*>("cboListaCautare")->setFocus();
  Choose("DEBIT");
  EXPECT_EQ(Words(), "");
}

TEST_F(WhereBuilderTest, RowsComeAndGoByKeyboard) {
  Type("A");
  for (const char* value : {"B", "C"}) {
    Press("cmdAdaugaConditie");
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    Type(value);
  }
  EXPECT_EQ(Focus(), "txtValoare3");
  EXPECT_EQ(Words(), "DOC = \"A\" SI DOC = \"B\" SI DOC = \"C\"");
  Key(Qt::Key_Return);
  EXPECT_EQ(searches_, 1);
  screen_->findChild<QWidget*>("txtValoare2")->setFocus();
  Key(Qt::Key_Delete, Qt::AltModifier);
  EXPECT_EQ(Words(), "DOC = \"A\" SI DOC = \"C\"");
  EXPECT_EQ(Focus(), "txtValoare2");
  Press("cmdElimina2");
  Press("cmdElimina");
  EXPECT_EQ(Words(), "");
  EXPECT_EQ(builder_->RowCount(), 1);
  EXPECT_EQ(Focus(), "txtValoare");
  EXPECT_EQ(searches_, 1);
}

TEST_F(WhereBuilderTest, ManyRowsScrollAndLeaveTheScreenItsRoom) {
  for (int row = 1; row < 20; ++row) Press("cmdAdaugaConditie");
  EXPECT_EQ(builder_->RowCount(), 20);
  EXPECT_LT(builder_->sizeHint().height(), 300);
  EXPECT_EQ(Focus(), "cboListaCautare20");
  EXPECT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty());
  screen_->findChild<QWidget*>("txtValoare")->setFocus();
  QCoreApplication::processEvents();
  EXPECT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty());
}

TEST_F(WhereBuilderTest, TheConditionStaysUnderAnotherFieldAndEnterOnAButtonIsNoSearch) {
  screen_->findChild<QWidget*>("cboConditie")->setFocus();
  Choose("intre");
  screen_->findChild<QWidget*>("cboListaCautare")->setFocus();
  Choose("NDI");
  EXPECT_EQ(screen_->findChild<QComboBox*>("cboConditie")->currentText(), "intre");
  screen_->findChild<QWidget*>("cmdAdaugaConditie")->setFocus();
  Key(Qt::Key_Return);
  EXPECT_EQ(searches_, 0);
}

TEST_F(WhereBuilderTest, ANewRowTakesTheKeysFromTheListOfTheRowBefore) {
  builder_->SetConditions({{"Kv_Linii.TERT", WhereOperator::kEqual, ""}});
  builder_->FirstBox()->setFocus();
  QTest::keyClicks(QApplication::focusWidget(), "al");
  ASSERT_TRUE(QApplication::activePopupWidget());
  screen_->findChild<QPushButton*>("cmdAdaugaConditie")->click();
  QCoreApplication::processEvents();
  EXPECT_FALSE(QApplication::activePopupWidget());
  EXPECT_EQ(Focus(), "cboListaCautare2");
}

TEST_F(WhereBuilderTest, ImpossibleInputIsToldAndNothingIsLost) {
  builder_->SetConditions({{"Kv_Linii.DOC", WhereOperator::kBegins, "O'N"},
                           {"Kv_Linii.DATAINR", WhereOperator::kEqual, ""},
                           {"Kv_Linii.DEBIT", WhereOperator::kLess, ""},
                           {"Kv_Linii.TERT", WhereOperator::kEqual, ""}});
  EXPECT_EQ(Words(), "DOC incepe cu \"O'N\"");
  screen_->findChild<QWidget*>("txtValoare2")->setFocus();
  Type("31022026");
  EXPECT_EQ(Words().rfind("refused: Conditia \"DATAINR\": ", 0), 0u) << Words();
  EXPECT_EQ(Focus(), "txtValoare2");
  builder_->SetConditions({{"Kv_Linii.DOC", WhereOperator::kBegins, "O'N"},
                           {"Kv_Linii.DEBIT", WhereOperator::kLess, ""},
                           {"Kv_Linii.TERT", WhereOperator::kEqual, ""}});
  screen_->findChild<QWidget*>("txtValoare2")->setFocus();
  Type("1,2,3");
  EXPECT_EQ(Words(),
            "refused: Conditia \"DEBIT\": \"1,2,3\" nu este un numar. Numerele se scriu ca "
            "1.234,56 !");
  EXPECT_EQ(builder_->Conditions().size(), 2u);
  builder_->SetConditions({{"Kv_Linii.TERT", WhereOperator::kEqual, ""}});
  builder_->FirstBox()->setFocus();
  Type("nimeni");
  EXPECT_EQ(Words().rfind("refused: Conditia \"TERT\": ", 0), 0u) << Words();
}

TEST_F(WhereBuilderTest, SetsAreSavedUnderNames) {
  auto* names = screen_->findChild<QComboBox*>("cboSeturi");
  Type("IMO");
  Press("cmdSalveazaSet");
  EXPECT_EQ(messages_.shown.back().prompt, "Scrieti numele sub care se salveaza conditiile !");
  EXPECT_EQ(Focus(), "cboSeturi");
  Type("luna");
  Press("cmdSalveazaSet");
  builder_->SetConditions({{"Kv_Linii.DOC", WhereOperator::kBegins, "X"}});
  messages_.answers = {kNo};
  Press("cmdSalveazaSet");
  EXPECT_EQ(messages_.shown.back().prompt,
            "Exista deja conditii salvate sub numele luna. Le inlocuiti ?");
  EXPECT_EQ(SavedConditions("Conditii/proba").Of("luna").front().value, "IMO");
  names->setFocus();
  Key(Qt::Key_End);
  Type(" noua");
  Press("cmdSalveazaSet");
  EXPECT_EQ(names->count(), 2);
  names->setFocus();
  names->setCurrentIndex(0);
  emit names->activated(0);
  QCoreApplication::processEvents();
  EXPECT_EQ(Words(), "DOC = \"IMO\"");
  Press("cmdStergeSet");
  EXPECT_EQ(messages_.shown.back().prompt,
            "Sigur doriti sa stergeti conditiile salvate sub numele luna ?");
  EXPECT_EQ(SavedConditions("Conditii/proba").Names(), std::vector<std::string>{"luna noua"});
  builder_->SetConditions({});
  names->setEditText("gol");
  Press("cmdSalveazaSet");
  EXPECT_EQ(messages_.shown.back().prompt, "Nu exista nicio conditie de salvat !");
  Press("cmdStergeSet");
  EXPECT_EQ(messages_.shown.back().prompt, "Nu exista conditii salvate sub numele gol !");
}

}  // namespace
}  // namespace tevra::test
