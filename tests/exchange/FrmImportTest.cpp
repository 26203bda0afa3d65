// The import's screen, worked as by its user.
#include <QtTest>

#include "exchange/frmImport.h"
#include "platform/system/Desktop.h"
#include "session/Session.h"
#include "tests/exchange/ExchangeTest.h"

namespace tevra::test {
namespace {

class ImportScreen : public ::testing::Test {
 protected:
  ImportScreen() {
    clock::Set(DateTime(2006, 12, 31, 14, 5, 9));
    Connection branch = branch_.Open();
    AddParty(branch, 4, "Gama");
    AddLine(branch, 1, 1, DateTime(2006, 6, 30), 4, Value(), 12.5, 12.5);
    branch_.LogIn();
    ExportRequest request;
    request.from = DateTime(2006, 1, 1);
    request.to = DateTime(2006, 12, 31);
    chosen_ = GenerateXML(branch, request).file.string();
    centre_.LogIn();
    before_ = SetOpenFileHandler([this](const OpenFileRequest&) { return chosen_; });
  }
  ~ImportScreen() override {
    SetOpenFileHandler(before_);
    clock::Reset();
  }

  void Press(QPushButton* button) {
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  std::vector<std::string> Shown() {
    std::vector<std::string> shown;
    for (const MessageRequest& each : messages_.shown) {
      shown.push_back(each.prompt + "|" + std::to_string(each.buttons));
    }
    messages_.shown.clear();
    return shown;
  }
  std::string Lines() const { return centre_.Rows("SELECT NDI, TERT, CodIE FROM Kv_Linii"); }
  std::string Write(std::string from, const std::string& to) const {
    std::string text = Content(*chosen_);
    text.replace(text.find(from), from.size(), to);
    return WriteFile(centre_.Directory() / "Alt.xml", text).string();
  }

  TestCompany branch_{"S1"};
  TestCompany centre_;
  MessageRecorder messages_;
  std::optional<std::string> chosen_;
  OpenFileHandler before_;
};

TEST_F(ImportScreen, ShowsWhatWillChangeAndWritesIt) {
  auto* screen = new frmImport;
  screen->show();
  Press(screen->cmdImport);
  EXPECT_EQ(Shown(), std::vector<std::string>{"Selectati fisierul pentru import|48"});
  Press(screen->cmdSelFile);
  EXPECT_EQ(screen->txtFileName->Text(), *chosen_);
  EXPECT_EQ(screen->txtCodSocietate->Text(), "S1");
  EXPECT_EQ(screen->txtDeLa->Text(), "01.01.2006");
  EXPECT_EQ(screen->txtPanaLa->Text(), "31.12.2006");
  EXPECT_TRUE(screen->optNu->isChecked());
  ASSERT_EQ(screen->grdModificari->rowCount(), 1);
  std::string row;
  for (int i = 0; i < 4; ++i) {
    row += screen->grdModificari->item(0, i)->text().toStdString() + "|";
  }
  EXPECT_EQ(row, "Tert nou|4|Gama|1|");
  EXPECT_EQ(screen->lblLinii->text(), "1 linie noua, 0 linii inlocuite; debit 12,50, credit 12,50");
  EXPECT_EQ(Lines(), "");
  // Somebody else takes the code meanwhile: the user looks again.
  Connection centre = centre_.Open();
  AddParty(centre, 1, "Alt tert");
  Press(screen->cmdImport);
  EXPECT_EQ(Shown().size(), 1U);
  EXPECT_EQ(Lines(), "");
  EXPECT_EQ(screen->grdModificari->item(0, 3)->text(), "2");
  Press(screen->cmdImport);
  EXPECT_EQ(Shown(), std::vector<std::string>{"Import cu succes|64"});
  EXPECT_FALSE(screen->isVisible());
  EXPECT_EQ(Lines(), "1 2 I \n");
  delete screen;
}

TEST_F(ImportScreen, SaysWhyAFileIsNotTaken) {
  frmImport screen;
  screen.show();
  const std::string whole = *chosen_;
  chosen_ = WriteFile(centre_.Directory() / "Taiat.xml", Content(whole).substr(0, 900)).string();
  Press(screen.cmdSelFile);
  EXPECT_EQ(Shown(), std::vector<std::string>{"Fisierul XML nu poate fi incarcat|0"});
  EXPECT_TRUE(screen.lblStare->text().startsWith("Taiat.xml, linia "));
  chosen_ = whole;
  chosen_ = Write(">S1<", ">01<");
  Press(screen.cmdSelFile);
  Press(screen.cmdImport);
  EXPECT_EQ(Shown(), std::vector<std::string>{"Sucursala cu codul 01 este sociatatea pe care "
                                              "lucrati acum, nu puteti face import|64"});
  chosen_ = whole;
  chosen_ = Write("01.01.2006", "31.02.2006");
  Press(screen.cmdSelFile);
  EXPECT_EQ(Shown(),
            std::vector<std::string>{
                "Eroare 13 - Type mismatch: 31.02.2006 (Alt.xml, IE/HEADER/DataInceput) in "
                "procedura GetXMLHeader din Form frmImport Linia: 0|16"});
  chosen_.reset();
  Press(screen.cmdSelFile);
  EXPECT_EQ(screen.txtFileName->Text(), "");
  EXPECT_EQ(Lines(), "");
}

TEST_F(ImportScreen, NamesTheTableAndTheProcedureThatFailed) {
  const std::string whole = *chosen_;
  const auto import = [this] {
    frmImport screen;
    screen.show();
    Press(screen.cmdSelFile);
    EXPECT_EQ(Shown(), std::vector<std::string>{});
    EXPECT_NE(screen.lblStare->text(), "");
    Press(screen.cmdImport);
    EXPECT_FALSE(screen.isVisible());
    EXPECT_EQ(Lines(), "");
  };
  const std::string failed = "Importul nereusit|16";
  chosen_ = Write("DEBIT='12.5'", "DEBIT='12,5'");
  import();
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Eroare 13 -  [TABELA=Kv_Linii] in procedura "
                                               "XMLNode2Recordset din Form frmImport Linia: 0|16",
                                               failed}));
  chosen_ = whole;
  chosen_ = Write("name='JURNAL'", "name='JURNALE'");
  import();
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Eroare 3265 -  [TABELA=Kv_Linii] in procedura "
                                               "InsertFromRstTemp din Form frmImport Linia: 0|16",
                                               failed}));
  chosen_ = whole;
  Connection centre = centre_.Open();
  AddParty(centre, 32767, "Ultimul");
  import();
  EXPECT_EQ(Shown(),
            (std::vector<std::string>{
                "Eroare 6 - Overflow: 32768  in procedura PrelTerti din Form frmImport Linia: 0|16",
                failed}));
  centre.Execute("DELETE FROM Kv_Ter");
  centre.Execute("ALTER TABLE tmp_Ter ADD COLUMN X TEXT(5)");
  import();
  EXPECT_EQ(Shown().front(),
            "Versiunile dintre bazele de date de Export si Import sunt diferite, nu am putut "
            "importa: Kv_Ter|16");
}

TEST_F(ImportScreen, ABackupThatDoesNotSucceedStopsTheImport) {
  frmImport screen;
  screen.show();
  Press(screen.cmdSelFile);
  SetBeforeImport([] { throw Failure(kDiskFull, "Disk full"); });
  Press(screen.cmdImport);
  EXPECT_EQ(Shown(), std::vector<std::string>{
                         "Eroare 61 - Disk full in procedura cmdImport_Click din Form frmImport "
                         "Linia: 2|16"});
  SetBeforeImport([] { throw GivenUp(); });
  Press(screen.cmdImport);
  SetBeforeImport({});
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  EXPECT_EQ(Lines(), "");
  EXPECT_TRUE(screen.isVisible());
}

}  // namespace
}  // namespace tevra::test
