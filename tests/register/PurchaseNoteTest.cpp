// The purchase note of an asset, and the notes that its save would delete.
#include <gtest/gtest.h>

#include "platform/data/Recordset.h"
#include "register/PurchaseNote.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/register/SampleCard.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

using enum text::Place;
using enum number::Place;

class PurchaseNote : public ::testing::Test {
 protected:
  PurchaseNote() {
    CurrentSession().contFurnizori = "404";
    CurrentSession().codDeviza = "EUR";
    file_ = company_.Open();
  }

  static AssetCard CardOf(const std::string& code) {
    AssetCard card = SampleCard();
    card.text[kCode] = code;
    card.tva = "";
    return card;
  }
  PurchaseNoteUse Use(const std::string& code, std::optional<std::int32_t> number = {}) {
    return FindPurchaseNoteUse(file_, code, number);
  }
  // Saves after a Yes to the notes of something else.
  void Save(const AssetCard& card, std::optional<std::int32_t> number = {}) {
    pAddNoteContabile(card, Use(card.text[kCode], number));
  }
  int AddAsset(const std::string& code) { return company_.AddAsset({{"COD", code}}); }
  void AddLine(int note, const std::string& journal, const std::string& document, double lei) {
    file_.Execute(
        "INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, DOC, CONT, DEBIT) VALUES (?, 1, ?, ?, '6811', "
        "?)",
        {note, journal, document, lei});
  }
  std::string Lines() {
    return company_.Rows(
        "SELECT NDI, NRLINIE, CONT, DEBIT, CREDIT, DEVDEBIT, DEVCREDIT, TERT FROM Kv_Linii ORDER "
        "BY NDI, NRLINIE");
  }
  std::string Documents() {
    return company_.Rows(
        "SELECT DOC, JURNAL, COUNT(DISTINCT NDI) FROM Kv_Linii GROUP BY DOC, JURNAL ORDER BY DOC");
  }

  test::TestCompany company_;
  test::MessageRecorder messages_;
  Connection file_;
};

TEST_F(PurchaseNote, DebitsAssetAndVatAndCreditsTheSupplier) {
  const int number = AddAsset("INV1");
  Save(SampleCard(), number);
  EXPECT_EQ(Lines(),
            "1 1 2131 12000,4 0 2400,08 0  \n1 2 4426 2280,08 0 456,02 0  \n"
            "1 3 404 0 14280,48 0 2856,1 7 \n");
  const Recordset line = OpenRecordset("SELECT * FROM Kv_Linii WHERE NRLINIE = 3");
  EXPECT_EQ(line.Get("JURNAL"), Value("JC"));
  EXPECT_EQ(line.Get("DATAINR"), Value(DateTime(2026, 1, 15)));
  EXPECT_EQ(line.Get("DOC"), Value("INV1"));
  EXPECT_EQ(line.Get("MARCA"), Value("INV1"));
  EXPECT_EQ(line.Get("CODBUG"), Value("ADM"));
  EXPECT_EQ(line.Get("COD"), Value("EUR"));
  EXPECT_EQ(line.Get("CURS"), Value(5.0));
  EXPECT_EQ(line.Get("COTATVA"), Value(19));
  EXPECT_EQ(line.Get("PROV"), Value("I"));
  EXPECT_EQ(line.Get("CodSucursala"), Value("01"));
  EXPECT_EQ(line.Get("CANTIT"), Value(1.0));

  AssetCard exempt = SampleCard();
  exempt.tva = "FARA TVA-0";
  exempt.number[kValue] = 100.005;
  exempt.number[kForeignValue] = Value();
  Save(exempt, number);
  EXPECT_EQ(Lines(), "1 1 2131 100 0 0 0  \n1 2 404 0 100 0 0 7 \n") << "in the place of the old";
  exempt.number[kValue] = 0.0;
  Save(exempt, number);
  EXPECT_EQ(Lines(), "");
}

TEST_F(PurchaseNote, ARefusedNoteLeavesTheOldOnes) {
  const int number = AddAsset("INV1");
  Save(SampleCard(), number);
  const std::string before = Lines();
  CurrentSession().contFurnizori = "";
  const Refusal refusal = RefusalOf([&] { Save(SampleCard(), number); });
  EXPECT_EQ(refusal.number, kRefusedNote);
  EXPECT_EQ(refusal.text, "Trebuie sa precizati: Cont");
  EXPECT_EQ(Lines(), before);
  PurchaseNoteUse use = Use("x' OR '1'='1", number);
  use.deleteOld = true;
  EXPECT_EQ(FailureOf([&] { pAddNoteContabile(CardOf("x' OR '1'='1"), use); }), kRefusedNote);
  EXPECT_EQ(Lines(), before);
}

TEST_F(PurchaseNote, OnlyTheAssetsOwnNoteIsNoQuestion) {
  const int number = AddAsset("A1");
  EXPECT_EQ(Use("A1").others.notes, 0);
  Save(CardOf("A1"));
  EXPECT_EQ(Use("a1", number).others.notes, 0);
  EXPECT_EQ(Use("A1").others.notes, 1) << "a new asset has no note of its own";
  AddLine(50, "JV", "A1", 7);
  EXPECT_EQ(Use("A1", number).others.lei, 7) << "a sale";
  AddAsset("A1");
  EXPECT_EQ(Use("A1", number).others.notes, 2) << "of two assets, either may have written it";

  const int may = AddAsset("IMO05");
  AddLine(51, "JC", "IMO05", 30);
  EXPECT_EQ(Use("IMO05", may).others.notes, 1) << "an object \"05\" or an asset";
  const int object = AddAsset("IMO77");
  Save(CardOf("IMO77"), object);
  EXPECT_EQ(Use("IMO77", object).others.notes, 0);
  file_.Execute("INSERT INTO I_INV (COD) VALUES ('77')");
  EXPECT_EQ(Use("IMO77", object).others.notes, 1);
}

TEST_F(PurchaseNote, AsksBeforeOthersGoAndWhetherTheOldNoteGoes) {
  const int number = AddAsset("A1");
  Save(CardOf("A1"));
  PurchaseNoteUse use = Use("A1", number);
  EXPECT_TRUE(MaySavePurchaseNote(use));
  EXPECT_TRUE(messages_.shown.empty());

  AddLine(50, "OD", "B2", 7);
  messages_.answers = {kNo, kYes, kNo, kYes};
  use = Use("B2", number);
  EXPECT_FALSE(MaySavePurchaseNote(use));
  EXPECT_EQ(messages_.shown.size(), 1U);
  EXPECT_TRUE(MaySavePurchaseNote(use));
  EXPECT_FALSE(use.deleteOld);
  ASSERT_EQ(messages_.shown.size(), 3U);
  EXPECT_EQ(messages_.shown[2].prompt,
            "Codul imobilizarii s-a schimbat. Sub codul vechi \"A1\" este nota ei de cumparare, in "
            "suma de 12.000,40 lei. Doriti sa fie stearsa?");
  EXPECT_EQ(messages_.shown[2].buttons, kYesNo | kQuestion | kDefaultStep);
  pAddNoteContabile(CardOf("B2"), use);
  EXPECT_EQ(Documents(), "A1 JC 1 \nB2 JC 1 \n");

  use = Use("B3", number);
  EXPECT_TRUE(MaySavePurchaseNote(use));
  EXPECT_TRUE(use.deleteOld);
  EXPECT_FALSE(Use("B3", AddAsset("Z")).old) << "it has no note";
}

TEST_F(PurchaseNote, TheOldNoteGoesWithTheNewOneWhereItIsCertain) {
  const int number = AddAsset("A1");
  Save(CardOf("A1"));
  AddLine(50, "JV", "A1", 7);
  PurchaseNoteUse use = Use("B2", number);
  ASSERT_TRUE(use.old);
  use.deleteOld = true;
  pAddNoteContabile(CardOf("B2"), use);
  EXPECT_EQ(Documents(), "A1 JV 1 \nB2 JC 1 \n");

  Save(CardOf("A1"));
  EXPECT_TRUE(Use("B2", number).old);
  AddLine(60, "JC", "A1", 8);
  EXPECT_FALSE(Use("B2", number).old) << "two notes of purchases";
  file_.Execute("DELETE FROM Kv_Linii WHERE NDI = 60");
  AddAsset("A1");
  EXPECT_FALSE(Use("B2", number).old) << "another asset has the code";
}

TEST_F(PurchaseNote, WhatCameAfterTheAgreementIsNotDeleted) {
  const PurchaseNoteUse agreed = Use("A1");
  AddLine(50, "OD", "A1", 7);
  EXPECT_EQ(FailureOf([&] { pAddNoteContabile(CardOf("A1"), agreed); }), kRowChanged);
  EXPECT_EQ(Documents(), "A1 OD 1 \n");
}

}  // namespace
}  // namespace tevra
