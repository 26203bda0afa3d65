// The pattern of a list, by a small list over the lines of notes.
#include <QContextMenuEvent>
#include <QMenu>
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/forms/Windows.h"
#include "platform/print/frmPageSetup.h"
#include "platform/print/frmPreview.h"
#include "platform/screens/ListScreen.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

constexpr const char* kLines = "select * from Kv_Linii ";

class frmLinii : public ListScreen {
 public:
  explicit frmLinii(const std::string& connection) : ListScreen("frmLinii", "Linii", nullptr) {
    using Role = ListButton::Role;
    ListDescription list;
    list.connection = connection;
    list.statement = std::string(kLines) + "order by NDI desc";
    list.key = "NDI";
    list.columns = {{"NDI", "NDI"},
                    {"Cont", "CONT"},
                    {"Explicatie", "EXPL", {}, {}, 20},
                    {"Debit", "DEBIT", "Standard"},
                    {"Credit", "CREDIT", "Standard"}};
    list.refreshed = list.rowSelect = list.counted = true;
    list.totals = {{"DEBIT", "#,##0.00"}, {"CREDIT", "#,##0.00"}};
    list.search = ListSearch{std::string(kLines) + "order by NDI",
                             {{std::string(kLines) + "where EXPL like ? order by NDI",
                               "Nicio explicatie nu incepe cu ", "optExpl", "dupa explicatie"},
                              {std::string(kLines) + "where CONT like ? order by NDI",
                               "Niciun cont nu incepe cu ", "optCont", "dupa cont"}}};
    list.sort = ListSort{"Aduceti o coloana aici"};
    list.buttons = {{&cmdCreare, "cmdCreare", "Creare", "Linie noua",
                     [this](Procedure&) {
                       AddRow({{"NDI", 9}, {"NRLINIE", 1}, {"CONT", "5311"}});
                     }},
                    {&cmdModificare, "cmdModificare", "Modificare", "Modificare linie",
                     [this](Procedure&) { opened.push_back(selected); }, Role::kChange, true},
                    {&cmdSterge, "cmdSterge", "Stergere", "Stergere nota",
                     [this](Procedure& running) {
                       DeleteRow(running, "Stergeti nota " + Text("NDI") + " ?", kQuestion,
                                 [this](const Value& note) {
                                   datPrimaryRS->GetConnection().Execute(
                                       "delete * from Kv_Linii where NDI = ?", {note});
                                 });
                     }},
                    {&cmdListare, "cmdListare", "Listare", "Listare linii selectate",
                     [this](Procedure& running) { ListMarked(running); }},
                    {&cmdClose, "cmdClose", "Iesire", "Inchidere fereastra", {}, Role::kClose}};
    Open(std::move(list));
    TDBGrid1 = Grid();
  }
  void Coming() { Form_Activate(); }

  DataGrid* TDBGrid1;
  QPushButton* cmdCreare;
  QPushButton* cmdModificare;
  QPushButton* cmdSterge;
  QPushButton* cmdListare;
  QPushButton* cmdClose;
  std::string selected;
  std::vector<std::string> opened;

 private:
  void RowSelected(const std::string& key) override { selected = key; }
};

class ListScreens : public ::testing::Test {
 protected:
  ListScreens() {
    Connection file = company_.Open();
    const char* const lines[] = {"(1, 1, '2131', 'Strung', 0.1, 0)",
                                 "(2, 1, '404', 'Freza', 0.2, 100)",
                                 "(3, 1, '401', 'strung mic', 1000.5, 0)"};
    for (const char* line : lines) {
      file.Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, EXPL, DEBIT, CREDIT) VALUES " +
                   std::string(line));
    }
    list_ = new frmLinii(company_.ConnectionString());
    windows::Show(*list_);
    Activate(*list_);
  }
  ~ListScreens() override { DeleteScreens<Form>(); }
  std::string Notes() const {
    const QAbstractItemModel* model = list_->TDBGrid1->View()->model();
    std::string notes;
    for (int row = 0; row < model->rowCount(); ++row) {
      notes += model->index(row, 0).data().toString().toStdString() + " ";
    }
    return notes;
  }
  std::string Totals() const {
    return list_->TDBGrid1->Footer("DEBIT").toStdString() + " " +
           list_->TDBGrid1->Footer("CREDIT").toStdString();
  }
  void GoTo(int row) {
    QTableView* view = list_->TDBGrid1->View();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualRect(view->model()->index(row, 0)).center());
  }
  void Search(const char* text) {
    list_->txtCautare->SetText(text);
    list_->txtCautare->setFocus();
    QTest::keyClick(list_->txtCautare, Qt::Key_Return);
    QCoreApplication::processEvents();
  }

  TestCompany company_;
  MessageRecorder messages_;
  frmLinii* list_;
};

TEST_F(ListScreens, OpensWithRowsTotalsAndCount) {
  EXPECT_EQ(Notes(), "3 2 1 ");
  EXPECT_EQ(Totals(), "1.000,80 100,00");
  EXPECT_EQ(list_->lblRecCount->text(), "3");
  EXPECT_EQ(list_->cmdModificare->toolTip(), "Modificare linie");
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(ListScreens, SearchesInTheChosenWay) {
  Search(" strung ");
  EXPECT_EQ(Notes(), "1 3 ");
  EXPECT_EQ(list_->lblRecCount->text(), "2");
  EXPECT_TRUE(list_->txtCautare->hasFocus());
  list_->findChild<OptionButton*>("optCont")->setChecked(true);
  Search("40");
  EXPECT_EQ(Notes(), "2 3 ");
  Search("'");
  EXPECT_EQ(messages_.shown.back().prompt, "Niciun cont nu incepe cu ' !");
  EXPECT_EQ(messages_.shown.back().buttons, kInformation);
  EXPECT_EQ(Notes(), "2 3 ");
  EXPECT_EQ(list_->lblRecCount->text(), "2");
  Search("");
  EXPECT_EQ(Notes(), "1 2 3 ");
}

TEST_F(ListScreens, ButtonsAddChangeAndDelete) {
  GoTo(1);
  EXPECT_EQ(list_->selected, "2");
  Press(list_->cmdModificare);
  list_->TDBGrid1->View()->setFocus();
  QTest::keyClick(list_->TDBGrid1->View(), Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(list_->opened, (std::vector<std::string>{"2", "2"}));
  messages_.answers = {kNo, kYes};
  Press(list_->cmdSterge);
  EXPECT_EQ(messages_.shown.back().prompt, "Stergeti nota 2 ?");
  EXPECT_EQ(messages_.shown.back().title, "Confirmare stergere");
  EXPECT_EQ(messages_.shown.back().buttons, kYesNo | kQuestion | kDefaultStep);
  EXPECT_EQ(Notes(), "3 2 1 ");
  Press(list_->cmdSterge);
  EXPECT_EQ(Notes(), "3 1 ");
  EXPECT_EQ(list_->lblRecCount->text(), "2");
  Press(list_->cmdCreare);
  EXPECT_EQ(list_->TDBGrid1->ColumnText(1), "5311");
  EXPECT_EQ(company_.Rows("SELECT NDI, CONT FROM Kv_Linii WHERE NDI = 9"), "9 5311 \n");
  // A row that the table refuses is told under the button's procedure and is not there.
  const std::size_t before = messages_.shown.size();
  Press(list_->cmdCreare);
  ASSERT_EQ(messages_.shown.size(), before + 1);
  EXPECT_NE(messages_.shown.back().prompt.find(" in procedura cmdCreare_Click din Form frmLinii"),
            std::string::npos);
  EXPECT_EQ(Notes(), "3 1 9 ");
  company_.Open().Execute("DELETE * FROM Kv_Linii");
  list_->Coming();
  const std::size_t told = messages_.shown.size();
  Press(list_->cmdSterge);
  EXPECT_EQ(messages_.shown.size(), told);
}

TEST_F(ListScreens, TheMenuOfARowOffersItsButtons) {
  GoTo(1);
  const auto menu = [this] {
    QMenu made;
    emit list_->TDBGrid1->RowMenu(&made);
    std::string offered;
    for (QAction* action : made.actions()) {
      offered += action->text().toStdString() + (action->isEnabled() ? "" : "-") + " ";
      action->trigger();
    }
    QCoreApplication::processEvents();
    return offered;
  };
  EXPECT_EQ(menu(), "Modificare ");
  EXPECT_EQ(list_->opened, (std::vector<std::string>{"2"}));
  company_.Open().Execute("DELETE * FROM Kv_Linii");
  list_->Coming();
  EXPECT_EQ(menu(), "Modificare- ");
  EXPECT_EQ(list_->opened.size(), 1u);
  // The right mouse button brings it, also where the list has no menu of its own.
  QContextMenuEvent asked(QContextMenuEvent::Mouse, {20, 20}, QPoint(20, 20));
  QApplication::sendEvent(list_->TDBGrid1->View(), &asked);
  auto* shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_TRUE(shown);
  EXPECT_EQ(shown->actions().size(), 1);
  shown->close();
}

TEST_F(ListScreens, ComingBackShowsTheRowsOfNowAtTheSamePlace) {
  GoTo(1);
  Connection file = company_.Open();
  file.Execute("UPDATE Kv_Linii SET CONT = '542' WHERE NDI = 2");
  file.Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, CONT) VALUES (7, 1, '1')");
  list_->Coming();
  EXPECT_EQ(Notes(), "7 3 2 1 ");
  EXPECT_EQ(list_->TDBGrid1->ColumnText(1), "542");
  EXPECT_EQ(list_->lblRecCount->text(), "4");
}

TEST_F(ListScreens, SortsByTheArrows) {
  list_->TDBGrid1->AddGroupColumn(list_->TDBGrid1->ColumnOf("CONT"));
  EXPECT_EQ(Notes(), "1 3 2 ");
  list_->cmdDown->click();
  QCoreApplication::processEvents();
  EXPECT_EQ(Notes(), "2 3 1 ");
}

TEST_F(ListScreens, ListsTheRowsMarkedUnderTheirTotals) {
  GoTo(1);
  QTest::keyClick(list_->TDBGrid1->View(), Qt::Key_Down, Qt::ShiftModifier);
  QTimer::singleShot(0, [] {
    for (frmPageSetup* setup : OpenScreens<frmPageSetup>()) setup->cmdAccept->click();
  });
  Press(list_->cmdListare);
  EXPECT_EQ(Totals(), "0,30 100,00");
  EXPECT_EQ(OpenScreens<frmPreview>().size(), 1u);
}

TEST_F(ListScreens, AStatementThatFailsIsToldUnderFormLoad) {
  frmLinii broken(company_.Directory().string() + "/absent");
  EXPECT_NE(messages_.shown.back().prompt.find(" in procedura Form_Load din Form frmLinii"),
            std::string::npos);
}

}  // namespace
}  // namespace tevra::test
