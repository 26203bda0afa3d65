#include "accounting/ChargePostings.h"

#include <cmath>

#include "accounting/cBLLNoteContabile.h"
#include "platform/data/MoneySum.h"
#include "platform/data/Recordset.h"
#include "platform/text/Numbers.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr int kBani = 2;  // decimals

// Each asset is a group of its own. The order of the inner statement is no promise to the outer
// one.
std::string ChargesStatement() {
  return std::string(
             "SELECT COD_CC,VAL_AMOR, I.Cont_AMO as ContDebit, I.Cont_Chelt  as ContChelt, "
             "S.NRCRT AS NRCRT FROM (") +
         "SELECT NRCRT, COD,COD_CC, CONT, DENUMIRE, blocata, IIF(BLOCATA=-1,VAL_BLOCATA * "
         "COTAL_LUNARA,(VAL_CUMP - VALCHELEI) * cotal_lunara) AS VAL_AMOR, VAL_AMOR_CUMULATA, "
         "VAL_RAMASA, VAL_AMOR_CUMULATA + VAL_RAMASA AS VAL_CUMP, SUM(VAL_CUMP) AS TVALCUMP, "
         "SUM(VAL_AMOR) AS TVALAM, SUM(VAL_AMOR_CUMULATA) AS TVALAMO, SUM(VAL_RAMASA) AS "
         "TVALRAMASA, COTAL_LUNARA FROM I_IMO GROUP BY COD,COD_CC, CONT, DENUMIRE, NRCRT, "
         "VAL_AMOR_CUMULATA, VAL_RAMASA, VAL_CUMP, VALCHELEI, COTAL_LUNARA,VAL_BLOCATA,BLOCATA "
         "ORDER BY NRCRT" +
         ") S INNER JOIN I_ConturiIM I ON S.CONT=I.CONT ORDER BY S.NRCRT";
}

// What all lines of a month have in common.
void SetFixed(cBLLNoteContabile& note, const DateTime& date) {
  note.Cantit = 1;
  note.Doc = ChargeDocument(date);
  note.Marca = note.Doc;
  note.DataInr = date;
  note.DocExplicatie = "";
  note.Tert = Value();
  note.Utilizator = CurrentSession().userName;
  note.DataScad = Value();
  note.Jurnal = "OD";
  note.cod = "";
  note.CodSucursala = GetCodSocietate();
  note.Prov = "I";
  note.DevCredit = 0;
  note.DevDebit = 0;
}

void AddCharge(cBLLNoteContabile& note, const Connection& connection, const Recordset& asset,
               double charge) {
  note.CodBUG = asset.Get("COD_CC").TextOrEmpty();
  // The statement's name for the depreciation account is the wrong way round.
  note.Cont = asset.Get("ContDebit").TextOrEmpty();
  note.SetCredit(CStr(charge));
  note.Debit = 0;
  note.AddNota(connection, false);
  note.Cont = asset.Get("ContChelt").TextOrEmpty();
  note.SetCredit("0");
  note.Debit = charge;
  note.AddNota(connection, true);
}

}  // namespace

std::string ChargeDocument(const DateTime& date) {
  return "IMO" + Format(date.Month(), "00");
}

ChargesPosted PostCharges(Connection& connection, const DateTime& date) {
  Transaction transaction(connection);
  Recordset assets = connection.OpenRecordset(ChargesStatement());
  cBLLNoteContabile note;
  SetFixed(note, date);
  connection.Execute("DELETE FROM Kv_LINII WHERE DOC=?", {note.Doc});
  ChargesPosted posted;
  MoneySum sum;
  for (; !assets.Eof(); assets.MoveNext()) {
    const double charge = RoundTo(Nz(assets.Get("VAL_AMOR")).AsDouble(), kBani);
    if (charge == 0) continue;
    try {
      if (!std::isfinite(charge)) throw Failure(kOverflow, "Overflow: VAL_AMOR");
      AddCharge(note, connection, assets, charge);
    } catch (const Failure& failure) {
      throw Failure(failure.Number(), failure.Description(),
                    "NRCRT " + assets.Get("NRCRT").AsText());
    }
    ++posted.notes;
    sum.Add(charge);
  }
  transaction.Commit();
  posted.lei = sum.Total();
  return posted;
}

}  // namespace tevra
