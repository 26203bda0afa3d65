// The main frame: its menu, rights, children and what it remembers.
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QtTest>
#include <algorithm>

#include <gtest/gtest.h>

#include "platform/forms/Boxes.h"
#include "platform/forms/Windows.h"
#include "platform/system/Desktop.h"
#include "platform/system/Settings.h"
#include "session/Session.h"
#include "session/frmMain.h"
#include "session/frmUtilizatori.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

// One line an item: names and captions in their order, "-" for a separator, "x" for no action.
constexpr const char* kMenu = R"(Soc &Societati
  Soc_Lista &Lista
  Soc_Conf Con&figurare
  -
  Utilizatori &Utilizatori
  -
  mnuFileExit &Iesire
Tabele &Tabele
  Tab_Clasificare &Coduri de Clasificare
  Tab_Grade &Grad de utilizare
  Restrictii &Valori minime de imobilizari
  -
  Tab_Localizari &Localizari
  Tab_CC Centre de Co&st
  -
  Tab_Aso_Imo &Asociere Conturi
  mnu_inreg &Inregistrari  x
  -
  Terti &Terti
  -
  Tab_Plan &Plan de Conturi
  Tab_Jurnale &Jurnale
  Tab_TVA &TVA
  Tab_Valute Val&ute
  -
  mnuLinii Inregistrari contabile
Materiale I&mobilizari
  Materiale_imo &Imobilizari
  Materiale_inv &Obiecte de inventar
Rapoarte &Rapoarte
  Rapoarte_RegINV &Registru inventar x
  Rapoarte_Cheltuieli &Cheltuieli
  Rapoarte_Statistici &Statistici
  -
  Rapoarte_inv C&heltuieli inventar
Prelucrari &Prelucrari
  Recalcul &Asociere coduri de clasificare noi (HG 2139/2004)
  Preluare &Preluare Lim Inf in Durata normala Noua (HG 2139/2004)
  -
  Recalcul_2005 &Recalcul durata ramasa (HG 2139/2004) 
  -
  mnuDenominare &Denominare
mnuExport &Export
  mnuImport &Import
  mnuEExport &Export
mnuIntretinere &Intretinere
  mnuCompactare &Compactare
  -
  mnuSalvare &Salvare
  mnuRestaurare &Restaurare
mnuWindow &Ferestre
  mnuWindowCascade &Cascada
  mnuWindowTileHorizontal &Orizontal
  mnuWindowTileVertical &Vertical
mnuHelp &Help
  mnuHelpContents &Continut
  -
  mnuHelpAbout &Informatii
)";

class FrmMain : public ::testing::Test {
 protected:
  FrmMain() {
    SetSettings(std::make_unique<MemorySettings>());
    CurrentSession().companyName = "Firma & Fiii";
  }
  ~FrmMain() override { SetSettings(nullptr); }

  static void HandInEverything(frmMain& frame) {
    for (const MenuTop& top : MenuTable()) {
      for (const MenuItem& item : top.items) {
        if (item.action == MenuAction::kScreen) frame.SetOpener(item.name, [] {});
      }
    }
  }

  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(FrmMain, TheMenuAsTold) {
  frmMain frame;
  for (const MenuTop& top : MenuTable()) {
    for (const MenuItem& item : top.items) {
      EXPECT_EQ(frame.Item(item.name)->isEnabled(), item.action == MenuAction::kFrame)
          << item.name << ", which has no screen yet";
    }
  }
  HandInEverything(frame);
  std::string read;
  for (const QAction* top : frame.menuBar()->actions()) {
    read += top->objectName().toStdString() + " " + top->text().toStdString() + "\n";
    for (const QAction* item : top->menu()->actions()) {
      read += item->isSeparator()
                  ? "  -"
                  : "  " + item->objectName().toStdString() + " " + item->text().toStdString() +
                        (item->isEnabled() ? "" : " x");
      read += "\n";
    }
  }
  EXPECT_EQ(read, kMenu);
  EXPECT_EQ(frame.windowTitle(), "Tevra - Firma & Fiii");
  EXPECT_EQ(frame.Panel1->text(), "Utilizator:admin");
}

TEST_F(FrmMain, RightsByUserType) {
  struct Case {
    int type;
    bool lists, users, upkeep;
  };
  for (const Case& c : {Case{0, true, true, true}, Case{1, true, false, true},
                        Case{2, false, false, false}, Case{7, false, false, false}}) {
    CurrentSession().userType = c.type;
    frmMain frame;
    HandInEverything(frame);
    EXPECT_EQ(frame.Item("Soc_Lista")->isEnabled(), c.lists) << c.type;
    EXPECT_EQ(frame.Item("Soc_Conf")->isEnabled(), c.lists) << c.type;
    EXPECT_EQ(frame.Item("Utilizatori")->isEnabled(), c.users) << c.type;
    EXPECT_EQ(frame.Item("mnuIntretinere")->isEnabled(), c.upkeep) << c.type;
    EXPECT_TRUE(frame.Item("Rapoarte_Cheltuieli")->isEnabled());
  }
}

TEST_F(FrmMain, ItemsOpenWhatTheyWereGivenAndTellTheirFailures) {
  frmMain frame;
  struct Case {
    const char* item;
    const char* prompt;
    const char* title;
  };
  const Case kCases[] = {
      {"Materiale_imo", "13 - Type mismatch", " Materiale_imo_Click "},
      {"mnuSalvare", "13 - Type mismatch", " mnuSalvare_Click "},
      {"mnuCompactare", "Compactarea trebuie sa fie prima operatie!", " Compactare "},
      {"Tab_CC", "Eroare 13 - Type mismatch in procedura Tab_CC_Click din Form frmMain Linia: 0",
       ""},
  };
  for (const Case& c : kCases) {
    frame.SetOpener(c.item, [] { throw Failure(13, "Type mismatch"); });
    frame.Item(c.item)->trigger();
    EXPECT_EQ(messages_.shown.back().prompt, c.prompt);
    EXPECT_EQ(messages_.shown.back().title, c.title);
  }
  EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(FrmMain, OpensMaximisedUnlessItsPlaceWasKept) {
  const auto kept = [] {
    std::string text;
    for (const char* name : {"MainLeft", "MainTop", "MainWidth", "MainHeight"}) {
      text += *Settings().Get(std::string("Settings/") + name) + " ";
    }
    return text;
  };
  const auto twips = [](const QRect& place) {
    std::string text;
    for (const int pixels : {place.x(), place.y(), place.width(), place.height()}) {
      text += std::to_string(pixels * 15) + " ";
    }
    return text;
  };
  QRect place;
  {
    frmMain frame;
    EXPECT_EQ(frame.y(), 66);
    EXPECT_LE(frame.x(), 66);  // less where its menu needs the room
    EXPECT_GE(frame.width(), 433);
    // Its menu, whose width depends on the fonts, must fit into any size.
    EXPECT_GE(frame.minimumWidth(), frame.menuBar()->sizeHint().width());
    place = QRect(frame.pos(), frame.size());
    frame.show();
    EXPECT_TRUE(frame.isMaximized());
    frame.close();
  }
  EXPECT_EQ(kept(), twips(place)) << "where it can be restored to";
  {
    frmMain frame;
    frame.show();
    EXPECT_TRUE(frame.isMaximized()) << "as it was left";
    frame.showNormal();
    const int room = frame.screen()->availableGeometry().width() - frame.minimumWidth() - 8;
    place = QRect(QPoint(20, 30), frame.minimumSize() + QSize(std::clamp(room, 0, 21), 34));
    frame.setGeometry(place);
    place.moveTopLeft(frame.pos());
    frame.close();
  }
  EXPECT_EQ(kept(), twips(place));
  {
    frmMain frame;
    frame.show();
    EXPECT_FALSE(frame.isMaximized());
    EXPECT_EQ(frame.size(), place.size());
    frame.setWindowState(Qt::WindowMinimized);
    frame.resize(place.size() + QSize(60, 20));
    frame.close();
  }
  EXPECT_EQ(kept(), twips(place));
  // Settings that nobody could have saved.
  Settings().Set("Settings/MainLeft", "-1e30");
  Settings().Set("Settings/MainTop", "sus");
  frmMain frame;
  frame.show();
  EXPECT_FALSE(frame.isMaximized());
  EXPECT_TRUE(frame.screen()->availableGeometry().contains(frame.pos()));
}

TEST_F(FrmMain, ScreensStandInTheFrameAndAreListed) {
  frmMain frame;
  frame.show();
  frame.resize(1200, 700);
  windows::Open<frmUtilizatori>();
  windows::Open<frmUtilizatori>();
  auto& other = windows::OpenNew<frmUtilizatori>();
  other.setWindowTitle("A & B");
  ASSERT_EQ(frame.mdiArea->subWindowList().size(), 2);
  const QMenu* list = frame.Item("mnuWindow")->menu();
  emit const_cast<QMenu*>(list)->aboutToShow();
  QStringList titles;
  for (const QAction* action : list->actions().mid(3)) titles << action->text();
  EXPECT_EQ(titles, QStringList({"", "&1 Utilizatori", "&2 A && B"}));
  EXPECT_TRUE(list->actions().last()->isChecked());

  frame.Item("mnuWindowTileHorizontal")->trigger();
  const QRect area = frame.mdiArea->viewport()->rect();
  const auto children = frame.mdiArea->subWindowList();
  EXPECT_EQ(children[0]->width(), area.width());
  EXPECT_EQ(children[0]->height() + children[1]->height(), area.height());
  frame.Item("mnuWindowTileVertical")->trigger();
  EXPECT_EQ(children[0]->height(), area.height());
  other.close();
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(frame.mdiArea->subWindowList().size(), 1);
  frame.close();
  EXPECT_TRUE(frame.mdiArea->subWindowList().isEmpty());
}

// A screen with a box that is data.
class frmKept : public Form {
 public:
  explicit frmKept(const char* caption) : Form("frmKept", caption) {
    box = new TextBox("box", this);
    setMinimumSize(200, 100);
    resize(300, 150);
    MarkSaved();
  }
  TextBox* box;
};

TEST_F(FrmMain, ClosingAsksForEachChangedScreenAndANoKeepsAllOpen) {
  frmMain frame;
  frame.show();
  QPointer<frmKept> same = new frmKept("Aceeasi");
  QPointer<frmKept> first = new frmKept("Intai");
  QPointer<frmKept> second = new frmKept("Apoi");
  for (frmKept* screen : {same.data(), first.data(), second.data()}) windows::Show(*screen);
  first->box->SetText("a");
  second->box->SetText("b");
  const auto settle = [] {
    for (int i = 0; i < 3; ++i) {
      QCoreApplication::processEvents();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
  };
  messages_.answers = {kYes, kNo};
  EXPECT_FALSE(frame.close());
  EXPECT_TRUE(messages_.shown.empty()) << "asked when the closing is over";
  settle();
  ASSERT_EQ(messages_.shown.size(), 2u);
  EXPECT_NE(messages_.shown[0].prompt.find("Intai"), std::string::npos);
  EXPECT_NE(messages_.shown[1].prompt.find("Apoi"), std::string::npos);
  EXPECT_TRUE(frame.isVisible());
  EXPECT_EQ(frame.mdiArea->subWindowList().size(), 3);
  EXPECT_EQ(frame.mdiArea->activeSubWindow()->widget(), second.data());
  ASSERT_TRUE(first && second);
  EXPECT_EQ(first->box->text(), "a");

  // The cross of one screen alone asks again, although the frame's question had a yes.
  messages_.answers = {kNo, kYes, kYes};
  qobject_cast<QMdiSubWindow*>(first->parentWidget())->close();
  settle();
  EXPECT_EQ(messages_.shown.size(), 3u);
  ASSERT_TRUE(first);
  frame.Item("mnuFileExit")->trigger();
  settle();
  EXPECT_EQ(messages_.shown.size(), 5u);
  EXPECT_FALSE(frame.isVisible());
  EXPECT_FALSE(same || first || second);
}

TEST_F(FrmMain, AScreenOpensWholeBesideAMaximisedOne) {
  Settings().Set("Settings/MainWidth", "100");
  frmMain frame;
  frame.show();
  frame.resize(900, 500);
  windows::Show(*new frmKept("Lista"));
  QMdiSubWindow* list = frame.mdiArea->activeSubWindow();
  list->showMaximized();
  auto* card = new frmKept("Fisa");
  card->setMinimumSize(1200, 200);
  windows::Show(*card);
  const QMdiSubWindow* window = frame.mdiArea->activeSubWindow();
  EXPECT_EQ(window->widget(), card);
  EXPECT_FALSE(window->isMaximized());
  EXPECT_TRUE(list->isMaximized());
  EXPECT_EQ(list->size(), frame.mdiArea->viewport()->size());
  EXPECT_GE(card->width(), 1200);
}

TEST_F(FrmMain, ASmallFrameGrowsForAScreenThatDoesNotFit) {
  Settings().Set("Settings/MainWidth", "100");
  frmMain frame;
  frame.show();
  frame.resize(frame.minimumSize());
  auto* low = new frmKept("Mica");
  windows::Show(*low);
  EXPECT_EQ(frame.size(), frame.minimumSize());
  auto* high = new frmKept("Inalta");
  high->setMinimumHeight(500);
  windows::Show(*high);
  const QRect shown = frame.mdiArea->activeSubWindow()->geometry();
  EXPECT_TRUE(frame.mdiArea->viewport()->rect().contains(shown));
  EXPECT_GE(high->height(), 500);
  EXPECT_EQ(frame.width(), frame.minimumWidth());
}

TEST_F(FrmMain, CascadedAfterTilingTheChildrenHaveTheirSizesAgain) {
  frmMain frame;
  frame.show();
  frame.resize(900, 600);
  for (const char* caption : {"1", "2", "3"}) windows::Show(*new frmKept(caption));
  const auto children = frame.mdiArea->subWindowList();
  const QSize own = children[0]->size();
  frame.Item("mnuWindowTileVertical")->trigger();
  frame.Item("mnuWindowTileHorizontal")->trigger();
  EXPECT_NE(children[0]->size(), own);
  frame.Item("mnuWindowCascade")->trigger();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(children[i]->size(), own);
    EXPECT_EQ(children[i]->pos(), QPoint(28, 28) * i);
  }
  // What the user made of it since counts.
  children[0]->resize(own + QSize(20, 10));
  frame.Item("mnuWindowCascade")->trigger();
  EXPECT_EQ(children[0]->size(), own + QSize(20, 10));
}

TEST_F(FrmMain, HelpIsShownByTheDesktop) {
  std::vector<std::string> asked;
  const ViewerHandler before = SetViewerHandler([&](const std::string& file) {
    asked.push_back(file);
    if (asked.size() > 1) throw Failure(53, "File not found: tevra.chm");
  });
  frmMain frame;
  frame.Item("mnuHelpContents")->trigger();
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(asked[0].substr(asked[0].size() - 10), "\\tevra.chm");
  EXPECT_TRUE(messages_.shown.empty());
  QTest::keyClick(&frame, Qt::Key_F1);
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_EQ(messages_.shown[0].prompt, "File not found: tevra.chm");
  SetViewerHandler(before);
}

}  // namespace
}  // namespace tevra::test
