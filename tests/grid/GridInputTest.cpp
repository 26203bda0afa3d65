// Keys and clicks in a grid: where editing begins and ends, and the menus; and the model under
// Qt's own checks while all of it goes on.
#include <QAbstractItemModelTester>
#include <QEventLoop>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/forms/FormsApplication.h"
#include "platform/system/Desktop.h"
#include "tests/grid/GridFixture.h"

namespace tevra::test {
namespace {

class GridInput : public Grid {
 protected:
  GridInput() {
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    grid_.SetAllowUpdate(true);
    GoTo(0, 1);
  }
  void GoTo(int row, int column) {
    view_->setFocus();
    view_->setCurrentIndex(view_->model()->index(row, column));
  }
  QLineEdit* Editor() const { return view_->viewport()->findChild<QLineEdit*>(); }
  bool Edits() const { return Editor() && Editor()->isVisible(); }
  QPoint Middle(int row, int column) const {
    return view_->visualRect(view_->model()->index(row, column)).center();
  }
  // The menu that is open, and a click on one of its items.
  QMenu* Menu() const { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  static void Choose(QMenu* menu, const QString& item) {
    for (QAction* action : menu->actions()) {
      if (action->text().remove('&') != item) continue;
      const QPoint at = menu->actionGeometry(action).center();
      QTest::mouseMove(menu, at);
      QTest::mouseClick(menu, Qt::LeftButton, {}, at);
      return;
    }
    FAIL() << "no " << item.toStdString();
  }

  QTableView* view_ = grid_.View();
};

TEST_F(GridInput, EditingBeginsWithF2EnterOrADoubleClickOnly) {
  for (const Qt::Key stray : {Qt::Key_Space, Qt::Key_X, Qt::Key_5, Qt::Key_Delete}) {
    QTest::keyClick(view_, stray);
    EXPECT_FALSE(Edits()) << stray;
    GoTo(0, 1);
  }
  for (const Qt::Key begins : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
    QTest::keyClick(view_, begins);
    ASSERT_TRUE(Edits()) << begins;
    EXPECT_EQ(Editor()->text(), "Strung");
    QTest::keyClick(Editor(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(Edits());
  }
  QTest::mouseClick(view_->viewport(), Qt::LeftButton, {}, Middle(0, 1));
  EXPECT_FALSE(Edits());
  QTest::mouseDClick(view_->viewport(), Qt::LeftButton, {}, Middle(0, 1));
  EXPECT_TRUE(Edits());
  EXPECT_EQ(Stored("DENUMIRE", "b"), Value("Strung"));
}

TEST_F(GridInput, EnterEndsTheEditingBeforeTheNextKey) {
  QTest::keyClick(view_, Qt::Key_F2);
  QTest::keyClicks(Editor(), "Presa");
  QTest::keyClick(Editor(), Qt::Key_Return);
  EXPECT_EQ(Stored("DENUMIRE", "b"), Value("Presa"));
  EXPECT_TRUE(view_->hasFocus());
}

// The row edited is written, and the user stands where he clicked.
TEST_F(GridInput, AClickOnAnotherRowWritesTheRowThatWasEdited) {
  std::string asked;
  grid_.SetBeforeColUpdate([&](int, const QString& before, const QString& now) {
    asked = before.toStdString() + ">" + now.toStdString() + " in " + grid_.ColumnText(0) +
            (IsInEvent() ? " in the event" : "");
    return now != "nu";
  });
  for (const auto& [typed, stored] : {std::pair{"nu", "Strung"}, {"Presa", "Presa"}}) {
    GoTo(0, 1);
    QTest::keyClick(view_, Qt::Key_F2);
    Editor()->selectAll();
    QTest::keyClicks(Editor(), typed);
    QTest::mouseClick(view_->viewport(), Qt::LeftButton, {}, Middle(2, 0));
    EXPECT_EQ(asked, std::string("Strung>") + typed + " in b");
    EXPECT_EQ(Stored("DENUMIRE", "b"), Value(stored));
    EXPECT_EQ(Stored("DENUMIRE", "c"), Value("Freza"));
    EXPECT_EQ(view_->currentIndex(), view_->model()->index(2, 0));
    EXPECT_EQ(source_.Recordset().Position(), 2u);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

// A command of the menu shows windows; their event loops delete the menu.
TEST_F(GridInput, ACommandOfTheMenuRunsWhenTheMenuIsDone) {
  QTemporaryDir folder;
  grid_.SetTools("Coloane/proba", "Imobilizari");
  for (const char* command : {"Foaie de calcul...", "Fisier CSV..."}) {
    bool inEvent = true;
    QPointer<QMenu> menu;
    SetSaveFileHandler([&](const SaveFileRequest& request) {
      inEvent = IsInEvent();
      QEventLoop dialog;
      QTimer::singleShot(0, &dialog, &QEventLoop::quit);
      dialog.exec();
      QCoreApplication::processEvents();
      QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
      return folder.filePath(request.name.c_str()).toStdString();
    });
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, Middle(1, 1),
                             view_->viewport()->mapToGlobal(Middle(1, 1)));
    QApplication::sendEvent(view_, &wanted);
    ASSERT_TRUE(menu = Menu());
    Choose(menu, command);
    EXPECT_FALSE(inEvent) << command;
    EXPECT_TRUE(menu.isNull()) << command;
    ASSERT_FALSE(messages_.shown.empty());
    EXPECT_EQ(messages_.shown.back().prompt.substr(0, 24), "Lista a fost salvata in ");
    messages_.shown.clear();
  }
  SetSaveFileHandler({});
}

TEST_F(GridInput, TheModelKeepsItsPromisesWhileTheListIsWorkedOn) {
  for (int i = 0; i < 60; ++i) {
    company_.AddAsset({{"COD", std::to_string(160 - i)}, {"DENUMIRE", "Masina"}});
  }
  QAbstractItemModel* model = view_->model();
  const QAbstractItemModelTester tester(model,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  source_.Refresh();
  EXPECT_EQ(model->rowCount(), 63);
  const auto scroll = [&] {
    for (const int row : {62, 0, 30}) {
      view_->scrollTo(model->index(row, 0));
      GoTo(row, 2);
      QCoreApplication::processEvents();
    }
  };
  scroll();
  grid_.AddGroupColumn(0);
  scroll();
  GoTo(5, 1);
  QTest::keyClick(view_, Qt::Key_F2);
  QTest::keyClicks(Editor(), "Alta");
  QTest::keyClick(Editor(), Qt::Key_Tab);
  QCoreApplication::processEvents();
  company_.Open().Execute("DELETE * FROM I_IMO WHERE COD > '130'");
  scroll();
  grid_.RefreshInPlace("NRCRT");
  scroll();
  grid_.SetColumns({{"Denumire", "DENUMIRE"}, {"Lipsa", "LIPSA"}, {"Cod", "COD"}});
  scroll();
  source_.MoveTo(1);
  source_.Recordset().Delete();
  source_.Notify();
  scroll();
  source_.Close();
  EXPECT_EQ(model->rowCount(), 0);
  source_.Refresh();
  scroll();
}

}  // namespace
}  // namespace tevra::test
