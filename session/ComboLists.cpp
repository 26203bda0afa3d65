#include "session/ComboLists.h"

#include <array>
#include <string_view>

#include "platform/text/FailureText.h"
#include "session/Module1.h"

namespace tevra {

namespace {

struct ComboList {
  std::array<std::string_view, 3> combos;  // the combos that show it
  const char* statement;
};

constexpr ComboList kLists[] = {
    {{"cboCont", "cboContdela", "cboContla"},
     "Select kv_pc.CONT & '-' & TITLU AS CONT_TITLU from kv_pc order by kv_pc.CONT"},
    {{"cboCodTVA"}, "Select kv_cote.COD from kv_cote"},
    {{"cboCodJurnal"}, "Select COD & '-' & TITLU AS COD_TITLU from kv_jur order by COD"},
    {{"cboCodDeviza", "cboCodDevizaDenumire"},
     "Select COD & '-' & TITLU AS COD_TITLU from kv_val order by COD"},
    {{"cboCodOperatieDeLa", "cboCodOperatieLa"},
     "Select COD & '-' & DENUMIRE AS COD_TITLU from kv_oper order by COD"},
    {{"cboJurnalCumparare"},
     "Select COD & '-' & TITLU AS COD_TITLU from kv_jur where Ucase(TIP) = 'C' order by COD"},
    {{"cboJurnalVanzare"},
     "Select COD & '-' & TITLU AS COD_TITLU from kv_jur where Ucase(TIP) = 'V' order by COD"},
    {{"cboJurnalBanca"},
     "Select COD & '-' & TITLU AS COD_TITLU from kv_jur where Ucase(TIP) = 'B' order by COD"},
    {{"cboRegistruCasa"},
     "Select COD & '-' & TITLU AS COD_TITLU from kv_jur where Ucase(TIP) = 'R' order by COD"},
    {{"cboFurnizori"},
     "Select COD & '-' & NUME AS COD_NUME from kv_ter where Ucase(TIP) in ('F', 'M') and "
     "Ucase(UTILIZABIL) = 'D' order by COD"},
    {{"cboClienti"},
     "Select COD & '-' & NUME AS COD_NUME from kv_ter where Ucase(TIP) in ('C', 'M') and "
     "Ucase(UTILIZABIL) = 'D'  order by COD"},
    {{"cboTerti"},
     "Select COD & '-' & NUME AS COD_NUME from kv_ter where Ucase(UTILIZABIL) = 'D' order by COD"},
    {{"cboOperatiiCumparare"},
     "Select COD & '-' & DENUMIRE AS COD_DENUMIRE from kv_oper where Ucase(TIP) = 'C' order by "
     "COD"},
    {{"cboOperatiiVanzare"},
     "Select COD & '-' & DENUMIRE AS COD_DENUMIRE from kv_oper where Ucase(TIP) = 'V' order by "
     "COD"},
    {{"cboOperatiiIncasari"},
     "Select COD & '-' & DENUMIRE AS COD_DENUMIRE from kv_oper where Ucase(TIP) in ('I', 'V') "
     "order by COD"},
    {{"cboOperatiiPlati"},
     "Select COD & '-' & DENUMIRE AS COD_DENUMIRE from kv_oper where Ucase(TIP) in ('P', 'C') "
     "order by COD"},
    {{"cboOpFinanciare"},
     "Select COD & '-' & DENUMIRE AS COD_DENUMIRE from kv_oper where Ucase(TIP) = 'O' order by "
     "COD"},
    {{"cboOperatiiCumpVanz"},
     "Select COD & '-' & DENUMIRE AS COD_DENUMIRE from kv_oper where Ucase(TIP) in ('I', 'V', 'P', "
     "'C', 'D') order by TIP, COD"},
    {{"cboTVACump"},
     "Select CONT & '_' & PROCENT AS CONT_PROCENT from kv_cote where  Left(CONT,4) = '4426' order "
     "by COD"},
    {{"cboTVAVanz"},
     "Select CONT & '_' & PROCENT AS CONT_PROCENT from kv_cote where Left(CONT,4) = '4427' order "
     "by COD"},
    {{"cboTVA1Cumparare", "cboTVA2Cumparare"},
     "Select PROCENT from kv_cote where  Ucase(CONT) in ('TVA DEDUCTIBILA', 'FARA TVA') order by "
     "COD"},
    {{"cboTVA1Vanzare", "cboTVA2Vanzare"},
     "Select PROCENT from kv_cote where  Ucase(CONT) in ('TVA COLECTATA', 'FARA TVA') order by "
     "COD"},
    {{"cboContTVA"}, "Select CONT & '_' & PROCENT AS CONT_PROCENT from kv_cote order by CONT"},
    {{"cboCentruCost"},
     "Select COD & '-' & TITLU AS COD_TILU from kv_cc where  Ucase(UTILIZABIL) = 'D' order by COD"},
};

}  // namespace

std::optional<std::string> ComboStatement(const std::string& comboName) {
  if (comboName.empty()) return std::nullopt;
  for (const ComboList& list : kLists) {
    for (const std::string_view combo : list.combos) {
      if (combo == comboName) return list.statement;
    }
  }
  return std::nullopt;
}

std::vector<std::string> ComboEntries(const std::string& comboName) {
  const auto statement = ComboStatement(comboName);
  if (!statement) throw ValueFailure(kInvalidArgument, comboName);
  std::vector<std::string> entries;
  for (Recordset rows = OpenRecordset(*statement); !rows.Eof(); rows.MoveNext()) {
    entries.push_back(rows.Get(0).TextOrEmpty());
  }
  if (entries.empty()) entries.push_back("0-Nu exista inregistrari !");
  return entries;
}

}  // namespace tevra
