// What the card's two saves write.
#include <gtest/gtest.h>

#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "register/AssetSave.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/register/SampleCard.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

using enum text::Place;
using enum number::Place;
using enum date::Place;

class AssetSave : public ::testing::Test {
 protected:
  AssetSave() {
    clock::Set(DateTime(2026, 11, 23));
    Connection file = company_.Open();
    file.Execute("DELETE * FROM I_COEFAD");
    file.Execute("INSERT INTO I_COEFAD (coef1, coef2, coef3) VALUES (1.5, 2, 2.5)");
    CurrentSession().userName = "admin";
    CurrentSession().contFurnizori = "404";
    CurrentSession().codDeviza = "EUR";
  }
  ~AssetSave() override { clock::Reset(); }

  Recordset Row() { return OpenRecordset("SELECT * FROM I_IMO ORDER BY NRCRT DESC"); }

  // "FIELD=value ..." of the newest row, for the fields asked for.
  std::string Stored(const std::vector<std::string>& fields) {
    const Recordset row = Row();
    std::string text;
    for (const std::string& field : fields) {
      const Value value = row.Get(field);
      text += (text.empty() ? "" : " ") + (value.IsNull() ? "-" : value.AsText());
    }
    return text;
  }
  test::TestCompany company_;
};

const std::vector<std::string> kMethodFields = {"DRFANI", "DRFLUNI",    "COEF",      "AD1",
                                                "AD2",    "DATA_IN_AM", "DATA_AMORT"};

TEST_F(AssetSave, ANewAssetIsWrittenInFull) {
  AssetCard card = SampleCard();
  card.number[kExpensed] = 2000.0849;
  card.number[kExpensedForeign] = 400.016;
  pAdaugaImobilizare(card);
  EXPECT_EQ(Stored({"COD", "COD_GR_NOU", "COD_GR", "DENUMIRE", "COD_CC", "COD_LOC", "DOCUMENT",
                    "COD_FURNIZOR", "COD_TVA_CUMP", "CONT", "TIP_AM", "OBS1", "UTILIZATOR"}),
            "INV1 2.1.16 - Strung ADM - F123 7 1 2131 L - admin");
  EXPECT_EQ(Stored({"VAL_CUMP", "CURS", "VAL_CUMP_VAL", "VALCHELEI", "VALCHEVAL", "DNFANI",
                    "COTA_ANUALA", "COTAL_LUNARA", "GRAD_U"}),
            "12000 5 2400,081 2000,08 400,02 8 0,125 0,0104166666666667 100");
  EXPECT_EQ(Stored({"DATA_ACH", "DATA_PF", "DATA_SF", "DATA_CALCUL", "DALUNI", "BLOCATA"}),
            "10.01.2026 15.01.2026 01.02.2034 23.11.2026 9 False");
  EXPECT_EQ(Stored({"VAL_AMOR_CUMULATA", "VAL_RAMASA", "VAL_AMOR_CUMULATA_VAL", "VAL_RAMASA_VAL",
                    "VAL_BLOCATA", "DATA_BLOCARE", "DRBANI"}),
            "0 10000 0 2000 0 - 0");
  EXPECT_GT(Row().Get("NRCRT").AsLong(), 0);
}

TEST_F(AssetSave, HalvesGoToTheEvenLeuAndEmptyBoxesAreZero) {
  for (const auto& [value, stored] : {std::pair{1000.5, "1000"}, {1001.5, "1002"}}) {
    AssetCard card = SampleCard();
    card.number[kValue] = value;
    for (const auto box : {kExchangeRate, kForeignValue, kExpensed, kExpensedForeign}) {
      card.number[box] = Value();
    }
    pAdaugaImobilizare(card);
    EXPECT_EQ(
        Stored({"VAL_CUMP", "CURS", "VAL_CUMP_VAL", "VALCHELEI", "VAL_RAMASA", "VAL_RAMASA_VAL"}),
        std::string(stored) + " 0 0 0 " + stored + " 0");
  }
}

TEST_F(AssetSave, TheMethodDecidesPhasesAndDates) {
  struct Case {
    char method;
    double normal, real, rate;
    Value coef;
    const char* expected;
  };
  const Case cases[] = {
      {'L', 8, 8, 0.125, 9.0, "8 96 0 0 0 01.02.2026 01.02.2026"},
      {'A', 5, 5, 0.25, 0.5, "5 60 0,5 0 0 01.02.2026 01.02.2027"},
      {'N', 5, 5, 0.2, 0.3, "5 60 0,3 3 2 01.02.2026 01.02.2028"},
      {'M', 8, 99, 0.25, 0.25, "4 48 0,25 4 0 01.02.2026 01.02.2026"},
      {'M', 12, 7, 0.2, 0.2, "7 84 0,2 5 2 01.02.2026 01.02.2028"},
      {'F', 8, 8, 0, Value(), "8 96 0 0 0 10.01.2026 10.01.2026"},
  };
  for (const Case& c : cases) {
    const AssetRow row = pAdaugaImobilizare(SampleCard(c.method, c.normal, c.real, c.rate, c.coef));
    EXPECT_EQ(Stored(kMethodFields), c.expected) << c.method;
    EXPECT_EQ(row.real.has_value(), c.method == 'M');
    EXPECT_EQ(Stored({"VAL_RAMASA"}), "12000");
    // Only two of the methods start the value in currency.
    EXPECT_EQ(Stored({"VAL_RAMASA_VAL"}), c.method == 'L' || c.method == 'F' ? "2400" : "0");
  }
}

TEST_F(AssetSave, ABlockedAssetGoesByTheYearsLeftFromAFirst) {
  struct Case {
    char method;
    double left;
    const char* expected;
  };
  const Case cases[] = {{'L', 4, "0 0 4 01.03.2026"}, {'A', 4, "0 0 4 01.03.2027"},
                        {'N', 5, "3 2 5 01.03.2028"}, {'N', 7.5, "5 2,5 7,5 01.09.2028"},
                        {'M', 8, "4 0 4 01.03.2026"}, {'M', 12, "5 2 7 01.03.2028"},
                        {'F', 3, "0 0 3 01.03.2026"}};
  for (const Case& c : cases) {
    const double normal = c.method == 'N' ? 5 : 12;
    AssetCard card = SampleCard(c.method, normal, normal, 0.25, 0.4);
    card.blocked = true;
    card.date[kBlockedFrom] = DateTime(2026, 3, 17);
    card.number[kBlockedValue] = 7000.5;
    card.number[kBlockedForeignValue] = 1400.1239;
    card.number[kYearsLeft] = c.left;
    const AssetRow row = pAdaugaImobilizare(card);
    EXPECT_EQ(row.blocking, DateTime(2026, 3, 1));
    EXPECT_EQ(Stored({"AD1", "AD2", "DRBANI", "DATA_AMORT"}), c.expected) << c.method;
    EXPECT_EQ(Stored({"BLOCATA", "DATA_BLOCARE", "VAL_BLOCATA", "VAL_BLOCATA_VAL"}),
              "True 01.03.2026 7000 1400,124");
    pModificaImobilizare(card, Row().Get("NRCRT").AsLong());
    EXPECT_EQ(Stored({"VAL_BLOCATA_VAL"}), "1400");
    card.number[kForeignValue] = Value();
    pModificaImobilizare(card, Row().Get("NRCRT").AsLong());
    EXPECT_EQ(Stored({"VAL_BLOCATA_VAL"}), "0");
  }
}

TEST_F(AssetSave, AChangeEstimatesTheDepreciationSoFar) {
  pAdaugaImobilizare(SampleCard());
  company_.Open().Execute("UPDATE I_IMO SET UTILIZATOR = 'ana', DRBANI = 3, DATA_BLOCARE = ?",
                          {DateTime(2020, 1, 1)});
  const std::int32_t number = Row().Get("NRCRT").AsLong();
  struct Case {
    char method;
    double expensed;
    const char* expected;
  };
  // 9 months at an eighth a year.
  const Case cases[] = {{'L', 0, "1125 10875 225 2175"},
                        {'L', 2000.4, "938 9062 188 1813"},
                        {'A', 2000.4, "1125 10875 225 2175"},
                        {'F', 0, "0 12000 0 2400"}};
  for (const Case& c : cases) {
    AssetCard card = SampleCard(c.method);
    card.text[kCode] = "INV2";
    card.number[kCoef] = 0.5;
    card.number[kExpensed] = c.expensed;
    card.number[kExpensedForeign] = c.expensed / 5;
    pModificaImobilizare(card, number);
    EXPECT_EQ(
        Stored({"VAL_AMOR_CUMULATA", "VAL_RAMASA", "VAL_AMOR_CUMULATA_VAL", "VAL_RAMASA_VAL"}),
        c.expected)
        << c.method << " " << c.expensed;
  }
  EXPECT_EQ(Stored({"COD", "UTILIZATOR", "VAL_CUMP_VAL", "BLOCATA", "DATA_BLOCARE", "DRBANI"}),
            "INV2 ana 2400,0808 False 01.01.2020 3");
  AssetCard ahead = SampleCard();
  ahead.date[kStart] = DateTime(2027, 2, 1);
  pModificaImobilizare(ahead, number);
  EXPECT_EQ(Stored({"DALUNI", "VAL_AMOR_CUMULATA", "VAL_RAMASA"}), "-3 -375 12375");
}

// One row is changed from method to method: what a method does not write keeps what the one before
// wrote.
TEST_F(AssetSave, AChangeWritesWhatTheCardHoldsNow) {
  pAdaugaImobilizare(SampleCard());
  const std::int32_t number = Row().Get("NRCRT").AsLong();
  struct Case {
    char method;
    double normal, real;
    Value coef;
    const char* expected;
  };
  const Case cases[] = {
      {'A', 5, 4.5, 0.5, "4,5 54 0,5 0 0 01.04.2025 01.04.2026"},
      {'N', 5, 5, 0.3, "5 60 0,3 3 2 01.04.2025 01.04.2027"},
      {'M', 12, 9, 0.2, "7 108 0,2 5 2 01.04.2025 01.04.2027"},
      {'F', 8, 6, 0.9, "7 72 0,2 5 2 10.03.2025 10.03.2025"},
      {'L', 3, 3, 0.9, "3 36 0,2 5 2 01.04.2025 01.04.2025"},
  };
  for (const Case& c : cases) {
    AssetCard card = SampleCard(c.method, c.normal, c.real, 0.24, c.coef);
    card.text = {"INV2",  "3.1", "Presa", "PRD", "H1",
                 "F9",    "8",   "2",     "214", std::string(1, c.method),
                 "mutata"};
    card.number[0] = 500.0;
    card.number[1] = 4.5;
    card.number[2] = 125.555;
    card.number[6] = 50.0;
    card.date = {DateTime(2025, 3, 10), DateTime(2025, 3, 20), DateTime(2025, 4, 1),
                 DateTime(2030, 4, 1), DateTime(2025, 4, 1)};
    pModificaImobilizare(card, number);
    EXPECT_EQ(Stored(kMethodFields), c.expected) << c.method;
    EXPECT_EQ(Stored({"DNFANI"}), Value(c.normal).AsText());
  }
  EXPECT_EQ(Stored({"COD", "COD_GR_NOU", "COD_GR", "DENUMIRE", "COD_CC", "COD_LOC", "DOCUMENT",
                    "COD_FURNIZOR", "COD_TVA_CUMP", "CONT", "TIP_AM", "OBS1"}),
            "INV2 3.1 - Presa PRD H1 F9 8 2 214 L mutata");
  EXPECT_EQ(Stored({"VAL_CUMP", "CURS", "VAL_CUMP_VAL", "COTA_ANUALA", "COTAL_LUNARA", "GRAD_U"}),
            "500 4,5 125,555 0,24 0,02 50");
  EXPECT_EQ(Stored({"DATA_ACH", "DATA_PF", "DATA_SF", "DATA_CALCUL", "DALUNI"}),
            "10.03.2025 20.03.2025 01.04.2030 23.11.2026 19");
}

TEST_F(AssetSave, TheClassGoesIntoTheFieldOfTheCatalogueInForce) {
  for (const auto& [today, stored] : {std::pair{DateTime(2004, 12, 31), "2.1.16 -"},
                                      {DateTime(2005, 1, 1), "- 2.1.16"},
                                      {DateTime(2005, 1, 2), "- 2.1.16"}}) {
    clock::Set(today);
    pAdaugaImobilizare(SampleCard());
    EXPECT_EQ(Stored({"COD_GR", "COD_GR_NOU"}), stored);
  }
}

TEST_F(AssetSave, ARefusedRowLeavesNothing) {
  AssetCard card = SampleCard('A', 5, 5, 0.25, "abc");
  EXPECT_EQ(FailureOf([&] { pAdaugaImobilizare(card); }), kTypeMismatch);
  card = SampleCard();
  card.text[kName] = std::string(51, 'x');
  EXPECT_EQ(FailureOf([&] { pAdaugaImobilizare(card); }), kValueNotAccepted);
  EXPECT_EQ(GetRecordCount("I_IMO"), 0);
  EXPECT_EQ(FailureOf([] { pModificaImobilizare(SampleCard(), 12345); }), kNoCurrentRecord);
  company_.Open().Execute("DELETE * FROM I_COEFAD");
  EXPECT_EQ(FailureOf([] { pAdaugaImobilizare(SampleCard()); }), kNoCurrentRecord);
}

}  // namespace
}  // namespace tevra
