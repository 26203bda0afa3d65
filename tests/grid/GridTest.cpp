// The grid of the list screens over a data source.
#include <QAbstractItemModel>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "tests/grid/GridFixture.h"

namespace tevra::test {
namespace {

class EditedGrid : public Grid {
 protected:
  void Type(int row, int column, const QString& text) {
    QTableView* view = grid_.View();
    view->setCurrentIndex(view->model()->index(row, column));
    view->edit(view->currentIndex());
    auto* editor = view->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    editor->setText(text);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
};

TEST_F(Grid, CellsReadAsTheirColumnsTell) {
  EXPECT_EQ(Cell(0, 2), "1.234,50");
  EXPECT_EQ(Cell(0, 3), "12,50%");
  EXPECT_EQ(Cell(0, 4), "14.03.2026");
  EXPECT_EQ(Cell(0, 5), "Da");
  EXPECT_EQ(Cell(1, 5), "Nu");
  EXPECT_EQ(Cell(1, 4), "");
  EXPECT_EQ(grid_.ColumnText(1), "Strung");
}

TEST_F(Grid, GridAndSourceStandOnTheSameRow) {
  source_.MoveTo(2);
  EXPECT_EQ(grid_.View()->currentIndex().row(), 2);
  grid_.View()->setCurrentIndex(grid_.View()->model()->index(1, 0));
  EXPECT_EQ(source_.Recordset().Get("COD"), Value("A"));
  source_.Recordset().Delete();
  source_.Notify();
  EXPECT_EQ(grid_.View()->model()->rowCount(), 2);
  EXPECT_EQ(grid_.ColumnText(0), "c");
}

TEST_F(EditedGrid, ACellIsWrittenAtOnceAndAFailureTakesItBack) {
  grid_.SetAllowUpdate(true);
  Type(0, 1, "Strung 'nou'");
  EXPECT_EQ(Stored("DENUMIRE", "b"), Value("Strung 'nou'"));
  Type(0, 2, "2.000,25");
  EXPECT_EQ(Stored("VAL_CUMP", "b"), Value(2000.25));
  Type(0, 1, "");
  EXPECT_TRUE(Stored("DENUMIRE", "b").IsNull());
  EXPECT_TRUE(messages_.shown.empty());
  Type(0, 2, "2.00");
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_EQ(messages_.shown[0].prompt.substr(0, 5), "13 - ");
  EXPECT_EQ(messages_.shown[0].buttons, kCritical);
  EXPECT_EQ(Cell(0, 2), "2.000,25");
  EXPECT_EQ(Stored("VAL_CUMP", "b"), Value(2000.25));
}

TEST_F(EditedGrid, ACheckMayRefuseWhatWasTyped) {
  grid_.SetAllowUpdate(true);
  std::vector<std::string> asked;
  grid_.SetBeforeColUpdate([&](int column, const QString& before, const QString& now) {
    asked.push_back(std::to_string(column) + " " + before.toStdString() + " " + now.toStdString());
    return false;
  });
  Type(1, 1, "Alta");
  EXPECT_EQ(asked, std::vector<std::string>{"1 Freza Alta"});
  EXPECT_EQ(Stored("DENUMIRE", "A"), Value("Freza"));
}

TEST_F(EditedGrid, AListOffersItsTexts) {
  grid_.SetAllowUpdate(true);
  QTableView* view = grid_.View();
  view->setCurrentIndex(view->model()->index(1, 5));
  view->edit(view->currentIndex());
  auto* editor = view->findChild<QComboBox*>();
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->currentText(), "Nu");
  editor->setCurrentText("Da");
  QTest::keyClick(editor, Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(Stored("BLOCATA", "A"), Value::YesNo(true));
}

TEST_F(EditedGrid, AValueThatTheListLacksStaysUnlessAnotherIsPicked) {
  grid_.SetColumns({{"Grad", "GRAD_U", {}, {{1, "unu"}, {2, "doi"}}}});
  grid_.SetAllowUpdate(true);
  QTableView* view = grid_.View();
  const auto edit = [&](int pick) {
    view->setCurrentIndex(view->model()->index(0, 0));
    view->edit(view->currentIndex());
    auto* editor = view->findChild<QComboBox*>();
    if (pick >= 0) editor->setCurrentIndex(pick);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  };
  for (const Value& stored : {Value(7.0), Value()}) {
    company_.Open().Execute("UPDATE I_IMO SET GRAD_U = ?", {stored});
    source_.Refresh();
    edit(-1);
    EXPECT_EQ(Stored("GRAD_U", "b"), stored);
  }
  edit(1);
  EXPECT_EQ(Stored("GRAD_U", "b"), Value(2.0));
}

TEST_F(Grid, RowsAreMarkedAtTheirLeft) {
  EXPECT_TRUE(grid_.SelectedRows().empty());
  QWidget* selectors = grid_.View()->verticalHeader()->viewport();
  const auto press = [&](int row, Qt::KeyboardModifiers keys) {
    const int y = grid_.View()->verticalHeader()->sectionViewportPosition(row) + 4;
    QTest::mouseClick(selectors, Qt::LeftButton, keys, QPoint(6, y));
  };
  press(0, Qt::NoModifier);
  press(2, Qt::ControlModifier);
  EXPECT_EQ(grid_.SelectedRows(), (std::vector<std::size_t>{0, 2}));
  press(1, Qt::NoModifier);
  press(2, Qt::ShiftModifier);
  EXPECT_EQ(grid_.SelectedRows(), (std::vector<std::size_t>{1, 2}));
  QTest::keyClick(grid_.View(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(grid_.SelectedRows().size(), 3u);
  EXPECT_EQ(source_.Recordset().Position(), 2u);
}

TEST_F(Grid, HeadersInTheGroupAreaSortAndLeaveIt) {
  const auto order = [&] {
    std::string codes;
    for (int row = 0; row < 3; ++row) codes += Cell(row, 0).toStdString();
    return codes;
  };
  grid_.AddGroupColumn(0);
  EXPECT_EQ(order(), "Abc");
  EXPECT_TRUE(grid_.GroupColumns().empty());
  sorter_.SetSortType(2);
  grid_.AddGroupColumn(1);
  EXPECT_EQ(Cell(0, 1), "Strung");
  sorter_.SetSortType(0);
  grid_.AddGroupColumn(0);
  EXPECT_EQ(Cell(0, 1), "Strung");
  sorter_.SetSortType(1);
  grid_.SetColumns({{"Nu exista", "LIPSA"}});
  grid_.ResetGroups();
  grid_.AddGroupColumn(0);
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_NE(messages_.shown[0].prompt.find(
                " in procedura DataGrid_GroupColMove din User Control extTDBGrid Linia: "),
            std::string::npos);
}

// From the header up into the area, as a hand does it.
TEST_F(Grid, AHeaderIsDraggedIntoTheGroupArea) {
  grid_.SetGroupArea(true);
  QCoreApplication::processEvents();
  QHeaderView* header = grid_.View()->horizontalHeader();
  QWidget* at = header->viewport();
  const QPoint start(header->sectionViewportPosition(0) + 20, 8);
  const QPoint above(start.x() + 40, -at->mapTo(&grid_, QPoint(0, 0)).y() + 6);
  QTest::mousePress(at, Qt::LeftButton, {}, start);
  for (const QPoint& step : {start + QPoint(5, -4), above}) {
    QMouseEvent move(QEvent::MouseMove, step, at->mapToGlobal(step), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(at, &move);
  }
  QTest::mouseRelease(at, Qt::LeftButton, {}, above);
  EXPECT_EQ(Cell(0, 0), "A");
  EXPECT_EQ(header->visualIndex(0), 0);
}

TEST_F(Grid, FootersStandUnderTheirColumns) {
  grid_.SetFooter("val_cump", "1.251");
  EXPECT_EQ(grid_.Footer("VAL_CUMP"), "1.251");
  EXPECT_THROW(grid_.SetFooter("LIPSA", ""), Failure);
}

}  // namespace
}  // namespace tevra::test
