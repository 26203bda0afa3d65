// Lines of accounting notes: what is refused, what is written, how they are numbered.
#include <gtest/gtest.h>

#include "accounting/cBLLNoteContabile.h"
#include "platform/data/Catalogue.h"
#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra::test {
namespace {

class NoteContabile : public ::testing::Test {
 protected:
  NoteContabile() {
    connection_ = company_.Open();
    clock::Set(DateTime(2026, 11, 23, 10, 30, 15));
    note_.Jurnal = "OD";
    note_.DataInr = DateTime(2026, 1, 31);
    note_.Cont = "2131";
    note_.Debit = 100.25;
    note_.Doc = "INV1";
  }
  ~NoteContabile() override { clock::Reset(); }

  Recordset Lines() {
    return connection_.OpenRecordset("SELECT * FROM Kv_Linii ORDER BY NDI, NRLINIE");
  }
  std::string Numbers() {
    std::string numbers;
    for (Recordset rows = Lines(); !rows.Eof(); rows.MoveNext()) {
      numbers += (numbers.empty() ? "" : " ") + rows.Get("NDI").AsText() + "." +
                 rows.Get("NRLINIE").AsText();
    }
    return numbers;
  }

  TestCompany company_;
  Connection connection_;
  cBLLNoteContabile note_;
};

TEST_F(NoteContabile, WhatIsMissingIsNamed) {
  const auto refused = [this](cBLLNoteContabile& note) {
    const Refusal refusal = RefusalOf([&] { note.AddNota(connection_, false); });
    EXPECT_EQ(refusal.number, kRefusedNote);
    return refusal.text;
  };
  cBLLNoteContabile empty;
  EXPECT_EQ(refused(empty), "Trebuie sa precizati: Cont,  Credit sau Debit,  Document,  Jurnal");
  note_.Debit = 0;
  note_.SetCredit("0");
  EXPECT_EQ(refused(note_), "Trebuie sa precizati:  Credit sau Debit");
  note_.SetCredit("-0,01");
  note_.Jurnal = "";
  EXPECT_EQ(refused(note_), "Trebuie sa precizati:  Jurnal");
  EXPECT_EQ(kRefusedNote, -2147221494);
  EXPECT_EQ(Numbers(), "");
}

TEST_F(NoteContabile, EveryPropertyGoesIntoItsColumn) {
  note_.Expl = "explicatie";
  note_.SetCredit("1.234,56");
  EXPECT_EQ(note_.Credit(), "1234,56");
  EXPECT_EQ(FailureOf([this] { note_.SetCredit("1.23"); }), kTypeMismatch);
  note_.Marca = "m";
  note_.LitM = "l";
  note_.CodBUG = "ADM";
  note_.CodTREZO = "t";
  note_.Curs = 4.9731;
  note_.DevDebit = 20.16;
  note_.DevCredit = 1.5;
  note_.Cantit = 1;
  note_.Tert = "7";
  note_.TVA_LinRef = -2;
  note_.CodOper = 3;
  note_.CotaTVA = 19;
  note_.Prov = "I";
  note_.CodCC = "cc";
  note_.DataScad = DateTime(1999, 1, 1);
  note_.Utilizator = "admin";
  note_.CodIE = "E";
  note_.CodSucursala = "01";
  note_.ID_Formula = 11;
  note_.TipDoc = "nicaieri";
  note_.AddNota(connection_, false);
  const Recordset row = Lines();
  const std::pair<const char*, Value> expected[] = {{"NDI", 1},
                                                    {"NRLINIE", 1},
                                                    {"JURNAL", "OD"},
                                                    {"DATAINR", DateTime(2026, 1, 31)},
                                                    {"CONT", "2131"},
                                                    {"EXPL", "explicatie"},
                                                    {"DEBIT", 100.25},
                                                    {"CREDIT", 1234.56},
                                                    {"DOC", "INV1"},
                                                    {"MARCA", "m"},
                                                    {"LITM", "l"},
                                                    {"CODBUG", "ADM"},
                                                    {"CODTREZO", "t"},
                                                    {"COD", "LEI"},
                                                    {"CURS", 4.9731},
                                                    {"DEVDEBIT", 20.16},
                                                    {"DEVCREDIT", 1.5},
                                                    {"CANTIT", 1.0},
                                                    {"TERT", 7},
                                                    {"TVA_LINREF", -2},
                                                    {"CODOPER", 3},
                                                    {"COTATVA", 19},
                                                    {"PROV", "I"},
                                                    {"CODCC", "cc"},
                                                    {"DATASCAD", DateTime(2026, 2, 28)},
                                                    {"UTILIZATOR", "admin"},
                                                    {"TIMP", DateTime(2026, 11, 23, 10, 30, 15)},
                                                    {"CodIE", "E"},
                                                    {"CodSucursala", "01"},
                                                    {"ID_Formula", 11},
                                                    {"DocExplicatie", ""}};
  EXPECT_EQ(row.FieldCount(), std::size(expected));
  for (const auto& [field, value] : expected) EXPECT_EQ(row.Get(field), value) << field;

  note_.cod = "EUR";
  note_.Tert = Value();
  note_.AddNota(connection_, true);
  Recordset rows = Lines();
  rows.MoveNext();
  EXPECT_EQ(rows.Get("COD"), Value("EUR"));
  EXPECT_TRUE(rows.Get("TERT").IsNull());
}

TEST_F(NoteContabile, LinesAreNumberedWithinTheirNote) {
  Transaction transaction(connection_);
  for (const bool same : {false, true, true, false, true}) note_.AddNota(connection_, same);
  cBLLNoteContabile other;
  other.Jurnal = other.Cont = other.Doc = "JC";
  other.Debit = 1;
  other.AddNota(connection_, false);
  EXPECT_EQ(Numbers(), "1.1 1.2 1.3 2.1 2.2 3.1") << "notes of one transaction too";
  transaction.Commit();
  const Connection elsewhere = company_.Open();
  note_.AddNota(elsewhere, true);
  note_.AddNota(elsewhere, false);
  EXPECT_EQ(Numbers(), "1.1 1.2 1.3 2.1 2.2 2.3 3.1 4.1");
}

TEST_F(NoteContabile, ALineGoesIntoTheFileOfItsConnection) {
  const TestCompany other;
  Connection elsewhere = other.Open();
  note_.AddNota(connection_, false);
  note_.AddNota(connection_, false);
  note_.AddNota(elsewhere, false);
  note_.AddNota(elsewhere, true);
  note_.AddNota(connection_, true);
  EXPECT_EQ(Numbers(), "1.1 1.2 2.1") << "the number of the note is the caller's";
  EXPECT_EQ(other.Rows("SELECT NDI, NRLINIE FROM Kv_Linii ORDER BY NRLINIE"), "1 1 \n1 2 \n");
  // A connection that was opened when another one had been closed.
  elsewhere = Connection();
  elsewhere = other.Open();
  note_.AddNota(elsewhere, false);
  EXPECT_EQ(other.Rows("SELECT MAX(NDI) FROM Kv_Linii"), "2 \n");
}

TEST_F(NoteContabile, ALineThatTheTableRefusesLeavesNothing) {
  note_.Jurnal = "PREALUNG";
  EXPECT_EQ(FailureOf([this] { note_.AddNota(connection_, false); }), kValueNotAccepted);
  note_.Jurnal = "OD";
  note_.Tert = "nu e numar";
  EXPECT_EQ(FailureOf([this] { note_.AddNota(connection_, false); }), kTypeMismatch);
  EXPECT_EQ(Numbers(), "");
}

TEST_F(NoteContabile, AColumnWithoutAPropertyStopsIt) {
  Catalogue(connection_).AddField("Kv_Linii", {"NOUA", FieldType::Long, 4, false, true, false, ""});
  const Refusal refusal = RefusalOf([this] { note_.AddNota(connection_, false); });
  EXPECT_EQ(refusal.number, 438);
  EXPECT_NE(refusal.text.find("NOUA"), std::string::npos);
}

}  // namespace
}  // namespace tevra::test
