#include "register/AssetColumns.h"

#include <algorithm>

namespace tevra {

namespace {

constexpr const char* kMoney = "Standard";
constexpr const char* kRate = "Percent";
constexpr const char* kMonths = "###";
constexpr const char* kLastShown = "VAL_RAMASA_VAL";

std::vector<std::pair<Value, QString>> YesNo() {
  return {{0, "Nu"}, {-1, "Da"}};
}

}  // namespace

std::vector<GridColumn> AssetColumns() {
  std::vector<GridColumn> columns{
      {"Nr. crt.", "NRCRT", {}, {}, 7},
      {"Nr. inv.", "COD", {}, {}, 12},
      {"Localizare", "loc", {}, {}, 22},
      {"Denumire", "DENUMIRE", {}, {}, 32},
      {"Document", "DOCUMENT", {}, {}, 13},
      {"Data cumparare", "DATA_ACH"},
      {"Furnizor", "furniz", {}, {}, 24},
      {"Cod de  clasificare", "COD_GR", {}, {}, 11},
      {"Cod de clasificare Nou", "COD_GR_NOU", {}, {}, 11},
      {"Centru de Cost", "CC", {}, {}, 20},
      {"Cont", "CONT", {}, {}, 8},
      {"Data punerii in functiune", "DATA_PF"},
      {"Data inceput amortizare", "DATA_IN_AM"},
      {"Data inceput amortizare liniara", "DATA_AMORT"},
      {"Valoare Lei", "VAL_CUMP", kMoney},
      {"Curs", "CURS"},
      {"Valoare USD", "VAL_CUMP_VAL", kMoney},
      {"Coeficient", "COEF"},
      {"DNF ani", "DNFANI", kMonths},
      {"Cota anuala", "COTA_ANUALA", kRate},
      {"DNF luni", "DRFLUNI", kMonths},
      {"Cota lunara", "COTAL_LUNARA", kRate},
      {"Data sfarsit amortizare", "DATA_SF"},
      {"Data de calcul", "DATA_CALCUL"},
      {"Durata amortizata (luni)", "DALUNI"},
      {"Valoare amortizare cumulata LEI", "VAL_AMOR_CUMULATA", kMoney},
      {"Valoare amortizata cumulata USD", "VAL_AMOR_CUMULATA_VAL", kMoney},
      {"Valoare ramasa de amortizat LEI", "VAL_RAMASA", kMoney},
      {"Valoare ramasa de amortizat USD", "VAL_RAMASA_VAL", kMoney},
      {"Blocata", "BLOCATA", {}, YesNo()},
      {"Valoare blocata LEI", "VAL_BLOCATA", kMoney},
      {"Valoare blocata USD", "VAL_BLOCATA_VAL", kMoney},
      {"Data blocare", "DATA_BLOCARE"},
      {"Iesire", "IESIRE", {}, YesNo()},
      {"Tip iesire", "TIP_IESIRE", {}, {}, 8},
      {"Data iesire", "DATA_IESIRE"},
      {"Valoare iesire LEI", "VAL_IESIRE", kMoney},
      {"Valoare iesire USD", "VAL_IESIRE_VAL", kMoney},
      {"Valoare ramasa la iesire LEI", "VAL_RAMASA_IESIRE", kMoney},
      {"Valoare ramasa la iesire USD", "VAL_RAMASA_IESIRE_VAL", kMoney},
      {"Grad de utilizare", "GRAD_U", "Fixed"},
      {"Cod client", "COD_CLIENT", {}, {}, 8},
      {"CH_AMO_EX", "CH_AMO_EX", kMoney},
      {"CH_AMO_EX_VAL", "CH_AMO_EX_VAL", kMoney},
      {"OBS1", "OBS1", {}, {}, 30},
      {"CONSERVATA", "CONSERVATA"},
      {"DATA_IN_C", "DATA_IN_C"},
      {"DATA_SF_C", "DATA_SF_C"},
      {"VALCONSERVARE", "VALCONSERVARE", kMoney},
      {"VALCONSERVARE_VAL", "VALCONSERVARE_VAL", kMoney},
      {"REEV", "REEV"},
      {"OBIECTINV", "OBIECTINV"},
      {"CONT_FURN", "CONT_FURN"},
      {"COD_TVA_CUMP", "COD_TVA_CUMP"},
      {"COD_TVA_VANZ", "COD_TVA_VANZ"},
      {"COD_JNL", "COD_JNL"},
      {"Tip amortizare", "TIP_AM", {}, {}, 10},
      {"CONT_CH_CES", "CONT_CH_CES"},
      {"CONT_CA", "CONT_CA"},
      {"CONT_CLI", "CONT_CLI"},
      {"CONT_VEN", "CONT_VEN"},
      {"20% Cheltuieli  Lei", "VALCHELEI", kMoney},
      {"20% Cheltuieli Valuta", "VALCHEVAL", kMoney},
      {"Utilizator", "UTILIZATOR"},
      {"DR Blocata Luni", "DRBLUNI"},
  };
  auto behind = std::find_if(columns.begin(), columns.end(),
                             [](const GridColumn& column) { return column.field == kLastShown; });
  for (++behind; behind != columns.end(); ++behind) behind->visible = false;
  return columns;
}

}  // namespace tevra
