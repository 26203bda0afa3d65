// What a disposal derives, checks and writes.
#include <set>

#include <gtest/gtest.h>

#include "engine/Module3.h"
#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "register/AssetDisposal.h"
#include "session/Session.h"
#include "tests/KilledWrites.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

using namespace amount;
using namespace account;

const DateTime kDay(2026, 11, 23);

// Lines as "journal number account debit credit, in currency, third party | ".
std::string TextOf(const Note& note) {
  std::string text;
  for (const NoteLine& line : note) {
    text += line.Jurnal + " " + line.Cont + " " + CStr(line.Debit) + " " + line.Credit() + " " +
            CStr(line.DevDebit) + " " + CStr(line.DevCredit) + " " + line.Tert.TextOrEmpty() + "| ";
  }
  return text;
}

class AssetDisposal : public ::testing::Test {
 protected:
  AssetDisposal() {
    clock::Set(kDay);
    CurrentSession().codDeviza = "EUR";
    Connection file = company_.Open();
    file.Execute("INSERT INTO kv_Ter (COD, NUME, TIP) VALUES (7, 'O''NEIL', 'C')");
    asset_ = AddAsset();
  }
  ~AssetDisposal() override { clock::Reset(); }

  // 12,000 lei at the rate 5, linear over 5 years; on the day of the tests, 34 months are over.
  int AddAsset(const Value& rate = 5.0) {
    return company_.AddAsset({{"COD", "INV1"},
                              {"TIP_AM", "L"},
                              {"CONT", "2131"},
                              {"COD_CC", "ADM"},
                              {"CURS", rate},
                              {"VAL_CUMP", 12000.0},
                              {"VAL_CUMP_VAL", 2400.0},
                              {"DRFANI", 5.0},
                              {"COTA_ANUALA", 0.2},
                              {"DATA_ACH", DateTime(2024, 1, 10)},
                              {"DATA_IN_AM", DateTime(2024, 2, 1)},
                              {"DATA_AMORT", DateTime(2024, 2, 1)},
                              {"DATA_SF", DateTime(2029, 2, 1)}});
  }

  // The asset sold for 1,000 lei plus 21 %, as the screen's boxes show it.
  Disposal Sale() const {
    Disposal sale;
    sale.asset = asset_;
    sale.code = "INV1";
    sale.sale = true;
    sale.date = kDay;
    sale.client = "7";
    sale.document = "F'12";
    sale.value = {5200.0, 1040.0, 1000.0, 200.0, -4200.0, -840.0};
    sale.cost = 12000.0;
    sale.foreignCost = 2400.0;
    sale.cont = {"6583", "4111", "7583", "2"};
    sale.vat = "4427-21";
    sale.vatAmount = 210.0;
    sale.assetAccount = "2131";
    sale.costCentre = "ADM";
    return sale;
  }
  // After a Yes to notes of something else.
  static void PostSaleNote(const Disposal& sale) { PostSale(sale, 5, FindSaleNoteUse(sale)); }
  static void Post(const Disposal& sale) {
    PostSaleNote(sale);
    PostRetirement(sale, 5);
  }

  std::string Lines() {
    return company_.Rows(
        "SELECT NDI, NRLINIE, CONT, DEBIT, CREDIT, DOC FROM Kv_Linii ORDER BY NDI, NRLINIE");
  }
  void Change(const std::string& sql, const Values& params = {}) {
    company_.Open().Execute(sql, params);
  }

  test::TestCompany company_;
  int asset_ = 0;
};

const char* const kJV = "JV 4111 1210 0 242 0 7| JV 7583 0 1000 0 200 | JV 4427 0 210 0 42 | ";
const char* const kOD = "OD 2131 0 12000 0 2400 | OD 6583 5200 0 1040 0 | OD 2813 6800 0 1360 0 | ";

TEST_F(AssetDisposal, BringsOneAssetOfACodeToTheDate) {
  const int second = AddAsset(Value());
  const auto asset = BringUpTo(second, kDay);
  ASSERT_TRUE(asset);
  EXPECT_EQ(asset->residual.AsDouble(), 5200);
  EXPECT_EQ(asset->foreignResidual.AsDouble(), 1040);
  EXPECT_EQ(asset->cost.AsDouble(), 12000);
  EXPECT_EQ(asset->foreignCost.AsDouble(), 2400);
  EXPECT_EQ(asset->account + asset->costCentre, "2131ADM");
  EXPECT_EQ(asset->rate, 0);
  EXPECT_EQ(asset->noteRate, 1);
  EXPECT_EQ(company_.Rows("SELECT VAL_RAMASA, DATA_CALCUL FROM I_IMO ORDER BY NRCRT"),
            "0  \n5200 23.11.2026 \n");
  EXPECT_FALSE(BringUpTo(99, kDay));
  EXPECT_EQ(RateOf(asset_), 5);
  EXPECT_EQ(RateOf(second), 0);
  EXPECT_EQ(RateOf(99), 0);
}

TEST_F(AssetDisposal, DerivesTheAmountsOfASale) {
  EXPECT_EQ(PriceInCurrency(1000, 3.3), 303);
  EXPECT_EQ(PriceInCurrency(2.5, 1), 2);
  EXPECT_EQ(PriceInCurrency(1000, 0), 0);
  const Differences differences = DifferencesOf(Sale(), 5);
  EXPECT_EQ(differences.lei, -4200);
  EXPECT_EQ(differences.foreign, -840);
  EXPECT_EQ(DifferencesOf(Sale(), 0).foreign, 0);
  Disposal empty = Sale();
  empty.value[kForeignResidual] = Value();
  EXPECT_EQ(DifferencesOf(empty, 5).foreign, 200);
  EXPECT_EQ(VatOnPrice(1000, 2), 190) << "19 %, whatever the rate";
  EXPECT_EQ(VatOnPrice(1000, 0), 0);
  EXPECT_EQ(VatAtRate(1000, 9.5), 95);
}

TEST_F(AssetDisposal, ASaleIsCheckedInOrderAndAScrappingIsNot) {
  using Box = DisposalRefusal::Box;
  Disposal sale = Sale();
  EXPECT_FALSE(EsteIesireValida(sale));
  sale.value[kPrice] = 0.0;
  EXPECT_FALSE(EsteIesireValida(sale));
  const auto refusal = [&] {
    const auto refused = EsteIesireValida(sale);
    return refused ? refused->message + " " + std::to_string(refused->icon) + " " +
                         std::to_string(static_cast<int>(refused->box))
                   : "";
  };
  const auto expected = [](const char* message, long icon, Box box) {
    return std::string(message) + " " + std::to_string(icon) + " " +
           std::to_string(static_cast<int>(box));
  };
  sale.document.clear();
  EXPECT_EQ(refusal(), expected("Va rog introduceti nr documentului de vanzare", kInformation,
                                Box::kDocument));
  sale.client.clear();
  EXPECT_EQ(refusal(), expected("Va rog selectati Clientul", kInformation, Box::kClient));
  sale.cont[kVat] = "  ";
  EXPECT_EQ(refusal(), expected("Va rugam completati Cod TVA la vanzare !", kCritical, Box::kVat));
  sale.cont[kRevenue].clear();
  EXPECT_EQ(refusal(),
            expected("Va rugam completati Cont de venituri !", kCritical, Box::kRevenue));
  sale.cont[kCustomer].clear();
  EXPECT_EQ(refusal(), expected("Va rugam completati Cont client !", kCritical, Box::kCustomer));
  sale.cont[kExpense].clear();
  EXPECT_EQ(refusal(),
            expected("Va rugam completati Cont de cheltuieli !", kCritical, Box::kExpense));
  sale.value[kPrice] = 1e12;
  EXPECT_EQ(refusal(),
            expected("Pret vanzare este prea mare: cel mult 12 cifre inaintea virgulei !",
                     kCritical, Box::kPrice));
  for (const Value& price : {Value(), Value("abc"), Value(-0.01)}) {
    sale.value[kPrice] = price;
    EXPECT_EQ(refusal(),
              expected("Va rugam introduceti o valoare numerica pozitiva pentru Pret vanzare!",
                       kCritical, Box::kPrice));
  }
  sale.sale = false;
  EXPECT_FALSE(EsteIesireValida(sale));
}

TEST_F(AssetDisposal, TheCompanyMustHaveTheRateTheMonthAndTheClient) {
  double rate = 0;
  const auto refusal = [&] {
    const auto refused = CheckCompany(Sale(), rate);
    return refused ? refused->message : "";
  };
  const char* const kMonth =
      "Va rog efectuati calculul pentru mijloacele fixe pana in luna curenta: [11-2026]";
  EXPECT_EQ(refusal(), kMonth) << "nothing was calculated";
  Change("UPDATE I_IMO SET DATA_CALCUL = ?", {DateTime(2026, 10, 31)});
  EXPECT_EQ(refusal(), kMonth);
  Change("UPDATE I_IMO SET DATA_CALCUL = ?", {DateTime(2019, 11, 1)});
  EXPECT_EQ(refusal(), "") << "the year is not compared";
  EXPECT_EQ(rate, 5);
  Change("UPDATE I_IMO SET CURS = NULL");
  EXPECT_EQ(refusal(), "");
  EXPECT_EQ(rate, 1);
  Change("UPDATE I_IMO SET CURS = 0");
  EXPECT_EQ(refusal(), "Va rog introduceti cursul pentru obiectul de inventar: INV1");
  Change("UPDATE I_IMO SET CURS = 5, DATA_CALCUL = NULL, TIP_AM = 'F'");
  EXPECT_EQ(refusal(), "") << "an asset without depreciation is not calculated by months";
  Change("DELETE * FROM kv_Ter");
  EXPECT_EQ(refusal(), "Clientul ales nu mai exista in tabela de terti !");
  Disposal scrapping = Sale();
  scrapping.sale = false;
  EXPECT_FALSE(CheckCompany(scrapping, rate));
}

TEST_F(AssetDisposal, ASaleHasTwoNotes) {
  EXPECT_EQ(TextOf(SaleNote(Sale(), 5)), kJV);
  EXPECT_EQ(TextOf(RetirementNote(Sale(), 5, "2813")), kOD);
  for (const Note& note : {SaleNote(Sale(), 5), RetirementNote(Sale(), 5, "2813")}) {
    for (const NoteLine& line : note) {
      EXPECT_EQ(line.DataInr, kDay);
      EXPECT_EQ(line.Doc + line.Marca, "F'12F'12");
      EXPECT_EQ(line.Curs, 5);
      EXPECT_EQ(line.cod + line.CodBUG + line.Utilizator + line.CodSucursala + line.Prov,
                "EURADMadmin01I");
      EXPECT_EQ(line.CotaTVA, 21);
      EXPECT_EQ(line.Cantit, 1);
      EXPECT_EQ(line.Expl + line.DocExplicatie, "");
    }
  }
}

TEST_F(AssetDisposal, VatOfANoteIsRoundedAndMayHaveNoLine) {
  Disposal sale = Sale();
  sale.vat = "4427-8,5";
  sale.vatAmount = 190.005;
  EXPECT_EQ(TextOf(SaleNote(sale, 3)),
            "JV 4111 1190 0 263,33 0 7| JV 7583 0 1000 0 200 | JV 4427 0 190 0 63,33 | ");
  EXPECT_EQ(SaleNote(sale, 3).front().CotaTVA, 8) << "a half goes to the even number";
  // The amount of a rate without percentage still counts in the customer's debit.
  sale.vat = "4427-0";
  EXPECT_EQ(TextOf(SaleNote(sale, 5)), "JV 4111 1190 0 238 0 7| JV 7583 0 1000 0 200 | ");
  sale.vat.clear();
  sale.vatAmount = Value();
  EXPECT_EQ(TextOf(SaleNote(sale, 5)), "JV 4111 1000 0 200 0 7| JV 7583 0 1000 0 200 | ");
  sale.vat = "4427-x";
  EXPECT_EQ(RefusalOf([&] { SaleNote(sale, 5); }).number, kTypeMismatch);
}

TEST_F(AssetDisposal, LinesOfZeroAreLeftOut) {
  Disposal sale = Sale();
  sale.value[kPrice] = sale.value[kForeignPrice] = sale.vatAmount = 0.0;
  EXPECT_EQ(TextOf(SaleNote(sale, 5)), "");
  sale.value[kResidual] = sale.value[kForeignResidual] = 0.0;
  EXPECT_EQ(TextOf(RetirementNote(sale, 5, "2813")),
            "OD 2131 0 12000 0 2400 | OD 2813 12000 0 2400 0 | ");
  // The currency alone decides about the depreciation.
  sale.foreignCost = sale.value[kForeignResidual] = 2400.0;
  EXPECT_EQ(TextOf(RetirementNote(sale, 5, "2813")), "OD 2131 0 12000 0 2400 | ");
  sale.value = {12000.0, 2399.5, 0.0, 0.0, 0.0, 0.0};
  EXPECT_EQ(TextOf(RetirementNote(sale, 5, "2813")),
            "OD 2131 0 12000 0 2400 | OD 6583 12000 0 2399,5 0 | ");
}

TEST_F(AssetDisposal, TheRowIsWrittenByItsKindOfExit) {
  const char* const fields =
      "SELECT IESIRE, TIP_IESIRE, CONT_CA, VAL_RAMASA_IESIRE, VAL_RAMASA_IESIRE_VAL, DATA_IESIRE, "
      "UTILIZATOR, VAL_IESIRE, VAL_IESIRE_VAL, CONT_CLI, CONT_VEN, COD_TVA_VANZ, DocIesire, "
      "ID_Client FROM I_IMO ORDER BY NRCRT";
  const int other = AddAsset();
  Disposal scrapping;
  scrapping.asset = asset_;
  scrapping.date = kDay;
  scrapping.value[kResidual] = 5200.0;
  CurrentSession().userName = "ana";
  pSalvareIesire(scrapping);
  const std::string untouched = "False   0 0   0 0      \n";
  EXPECT_EQ(company_.Rows(fields), "True C  5200  23.11.2026 ana 0 0      \n" + untouched);
  pSalvareIesire(Sale());
  EXPECT_EQ(company_.Rows(fields),
            "True V 6583 5200 1040 23.11.2026 ana 1000 200 4111 7583 2 F'12 7 \n" + untouched);
  scrapping.document = "PV";
  pSalvareIesire(scrapping);
  EXPECT_EQ(company_.Rows(fields),
            "True C  5200  23.11.2026 ana 1000 200 4111 7583 2 PV  \n" + untouched)
      << "a scrapping keeps what a sale wrote";
  Disposal gone = Sale();
  gone.asset = 99;
  EXPECT_EQ(RefusalOf([&] { pSalvareIesire(gone); }).number, kNoCurrentRecord);
  gone.asset = other;
  gone.cont[kVat] = "x";
  EXPECT_THROW(pSalvareIesire(gone), Failure);
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM I_IMO WHERE IESIRE <> 0"), "1 \n");
  scrapping.asset = other;
  pSalvareIesire(scrapping);
  EXPECT_EQ(
      company_.Rows("SELECT TIP_IESIRE, DocIesire FROM I_IMO WHERE COD = 'INV1' AND NRCRT = " +
                    std::to_string(other)),
      "C PV \n");
}

TEST_F(AssetDisposal, NotesReplaceThoseOfTheSameDocument) {
  Post(Sale());
  const std::string first =
      "1 1 4111 1210 0 F'12 \n1 2 7583 0 1000 F'12 \n1 3 4427 0 210 F'12 \n"
      "2 1 2131 0 12000 F'12 \n2 2 6583 5200 0 F'12 \n2 3 2813 6800 0 F'12 \n";
  EXPECT_EQ(Lines(), first);
  Post(Sale());
  EXPECT_EQ(Lines(), first);
  Disposal renamed = Sale();
  renamed.document = "F13";
  Post(renamed);
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM Kv_Linii WHERE DOC = 'F''12'"), "6 \n");
  EXPECT_EQ(company_.Rows("SELECT MAX(NDI) FROM Kv_Linii"), "4 \n");
}

TEST_F(AssetDisposal, AnAccountWithoutAssociationKeepsTheFirstNoteAlone) {
  Post(Sale());
  Change("DELETE * FROM I_CONTURIIM WHERE CONT = '2131'");
  PostSaleNote(Sale());
  EXPECT_FALSE(PostRetirement(Sale(), 5));
  EXPECT_EQ(Lines(), "1 1 4111 1210 0 F'12 \n1 2 7583 0 1000 F'12 \n1 3 4427 0 210 F'12 \n");
  EXPECT_EQ(NotAssociatedText("2131"), "Va rog asociati contului 2131 un cont de amortizare");

  // The line of an asset without an account is refused first.
  Disposal nameless = Sale();
  nameless.assetAccount.clear();
  const auto refused = RefusalOf([&] { PostRetirement(nameless, 5); });
  EXPECT_EQ(refused.number, kRefusedNote);
  EXPECT_EQ(refused.text, "Trebuie sa precizati: Cont");

  Change("INSERT INTO I_CONTURIIM (CONT) VALUES ('2131')");
  for (const char* account : {"NULL", "''"}) {
    Change(std::string("UPDATE I_CONTURIIM SET CONT_AMO = ") + account + " WHERE CONT = '2131'");
    EXPECT_EQ(RefusalOf([&] { PostRetirement(Sale(), 5); }).number, kRefusedNote) << account;
    EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM Kv_Linii"), "3 \n") << "no half of a note";
  }
}

TEST_F(AssetDisposal, OnlyItsOwnEarlierNotesGoWithoutAQuestion) {
  const auto notes = [&] { return FindSaleNoteUse(Sale()).others.notes; };
  EXPECT_EQ(notes(), 0);
  Post(Sale());
  EXPECT_EQ(notes(), 2) << "the asset is not stored as sold";
  pSalvareIesire(Sale());
  EXPECT_EQ(notes(), 0);
  Change(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, CONT, DEBIT, DOC) VALUES "
      "(9, 1, 'JC', '401', 50, 'F''12')");
  EXPECT_EQ(notes(), 1);
  EXPECT_EQ(FindSaleNoteUse(Sale()).others.lei, 50);
  // Another asset on the same invoice.
  const int other = AddAsset();
  Disposal second = Sale();
  second.asset = other;
  EXPECT_EQ(FindSaleNoteUse(second).others.notes, 3);
  pSalvareIesire(second);
  EXPECT_EQ(notes(), 3);
  EXPECT_EQ(FindSaleNoteUse(second).others.notes, 3);
  Change("UPDATE I_IMO SET TIP_IESIRE = 'C' WHERE NRCRT = " + std::to_string(asset_));
  Change("UPDATE I_IMO SET DocIesire = 'X' WHERE NRCRT = " + std::to_string(other));
  EXPECT_EQ(notes(), 3) << "scrapped under the document";
}

TEST_F(AssetDisposal, WhatCameAfterTheAgreementIsNotDeleted) {
  const SaleNoteUse agreed = FindSaleNoteUse(Sale());
  Change(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, CONT, DEBIT, DOC) VALUES "
      "(9, 1, 'JC', '401', 50, 'F''12')");
  EXPECT_EQ(RefusalOf([&] { PostSale(Sale(), 5, agreed); }).number, kRowChanged);
  EXPECT_EQ(Lines(), "9 1 401 50  F'12 \n");
}

TEST_F(AssetDisposal, WhatLooksWrongIsSaid) {
  const auto warnings = [](const Disposal& sale) {
    return WarningsOf(sale, {SaleNote(sale, 5), RetirementNote(sale, 5, "2813")});
  };
  EXPECT_EQ(warnings(Sale()), "");
  Disposal sale = Sale();
  sale.vatAmount = 190.0;
  EXPECT_EQ(warnings(sale),
            "TVA colectata 190,00 difera de cota aleasa: 21 % din pret este 210,00.");
  sale.vat = "4427-0";
  sale.foreignCost = sale.value[kForeignResidual];
  EXPECT_EQ(warnings(sale),
            "TVA colectata 190,00 difera de cota aleasa: 0 % din pret este 0,00.\n"
            "Nota \"JV\" nu este echilibrata: debit 1.190,00, credit 1.000,00.\n"
            "Nota \"OD\" nu este echilibrata: debit 5.200,00, credit 12.000,00.");
  EXPECT_EQ(WarningsOf(Sale(), {RetirementNote(Sale(), 5, "")}),
            "Contul 2131 nu are cont de amortizare: nota \"OD\" nu se poate scrie.");
  EXPECT_EQ(NoNoteReason(sale, 5), "");
  EXPECT_NE(NoNoteReason(sale, 0), "");
  sale.value[kPrice] = "abc";
  EXPECT_EQ(NoNoteReason(sale, 5), "Nota apare dupa ce completati pretul de vanzare.");
  sale.sale = false;
  EXPECT_EQ(NoNoteReason(sale, 5), "Casarea nu scrie nota contabila.");
}

TEST_F(AssetDisposal, AnAssetThatLeftBeforeIsNamed) {
  EXPECT_EQ(LeftBefore(asset_), "");
  EXPECT_EQ(LeftBefore(99), "");
  pSalvareIesire(Sale());
  EXPECT_EQ(LeftBefore(asset_),
            "Imobilizarea a iesit deja din gestiune la 23.11.2026, prin vanzare, cu documentul "
            "F'12. Salvarea inlocuieste datele iesirii.");
  Change("UPDATE I_IMO SET TIP_IESIRE = NULL, DocIesire = NULL, DATA_IESIRE = NULL");
  EXPECT_EQ(LeftBefore(asset_),
            "Imobilizarea a iesit deja din gestiune. Salvarea inlocuieste datele iesirii.");
}

TEST_F(AssetDisposal, ALockedFileLeavesTheStepsBefore) {
  CurrentSession().connectionString += ";Lock Timeout=50";
  pSalvareIesire(Sale());
  PostSaleNote(Sale());
  const std::string before = Lines();
  {
    Connection other = company_.Open();
    const Transaction lock(other);
    EXPECT_THROW(PostRetirement(Sale(), 5), Failure);
    EXPECT_THROW(PostSaleNote(Sale()), Failure);
    EXPECT_THROW(pSalvareIesire(Sale()), Failure);
    EXPECT_THROW(BringUpTo(asset_, kDay), Failure);
  }
  EXPECT_EQ(Lines(), before);
}

// Between two saves of one sale, at whatever write the program is killed: each of the three steps
// is there whole or not at all.
TEST_F(AssetDisposal, AKilledSaleLeavesWholeSteps) {
  const auto sell = [&](double price) {
    Disposal sale = Sale();
    sale.value[kPrice] = price;
    pSalvareIesire(sale);
    Post(sale);
  };
  test::WriteCounter writes;
  sell(1);
  const int count = writes.WritesOf([&] { sell(2); });
  constexpr int kKills = 16;
  ASSERT_GT(count, kKills);
  std::set<std::string> states;
  int killed = 0;
  for (int kill = 1; kill <= kKills; ++kill) {
    sell(1);
    killed += writes.KilledIn(count * kill / kKills, [&] { sell(2); }) ? 1 : 0;
    const std::string state = company_.Rows("SELECT VAL_IESIRE FROM I_IMO") +
                              company_.Rows("SELECT CREDIT FROM Kv_Linii WHERE CONT = '7583'") +
                              company_.Rows("SELECT COUNT(*) FROM Kv_Linii");
    states.insert(state);
  }
  EXPECT_GT(killed, kKills / 2);
  // Before; the row; the row and the first note; all.
  for (const std::string& state : states) {
    EXPECT_TRUE(state == "1 \n1 \n6 \n" || state == "2 \n1 \n6 \n" || state == "2 \n2 \n3 \n" ||
                state == "2 \n2 \n6 \n")
        << state;
  }
  EXPECT_GT(states.size(), 2u);
}

}  // namespace
}  // namespace tevra
