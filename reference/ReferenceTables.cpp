#include "reference/ReferenceTables.h"

#include <algorithm>

#include "platform/text/FailureText.h"
#include "reference/AccountTables.h"

namespace tevra {

namespace {

using Kind = ReferenceInput::Kind;
using Test = ReferenceCheck::Test;
using From = ReferenceField::From;
using Cell = ReferenceCell::Test;

constexpr const char* kDeleteCentre =
    "Sunteti sigur ca doriti sa stergeti centrul de cost cu codul : {1} ?";
constexpr const char* kDeleteAny = "Sunteti sigur ca doriti sa efectuati stergerea ?";
constexpr const char* kYesOrNo = "Va rugam completati D (de la DA) sau N (de la NU) !";

ReferenceTable Classes() {
  ReferenceTable table{
      .menuItem = "Tab_Clasificare",
      .screen = "frmClasificare",
      .caption = "Grupe de clasificare",
      .table = "I_CLASIFICARE",
      .statement =
          "select COD_GR, DEN_GR, DURNOR,COD_GR_NOU,LIM_INF,LIM_SUP,DURNOR_NOU from "
          "I_CLASIFICARE Order by COD_GR_NOU",
      .columns = {{"Cod grupa", "COD_GR"},
                  {"Denumire", "DEN_GR"},
                  {"Durata Normala", "DURNOR"},
                  {"Cod grupa NOU", "COD_GR_NOU"},
                  {"Lim INF", "LIM_INF"},
                  {"LIM SUP", "LIM_SUP"},
                  {"Durata Normala noua", "DURNOR_NOU"}},
      .frame = "fraInput",
      .frameCaption = "Cod nou",
      .inputs = {{"txtCodClasif", "C&od", "Maxim 11 caractere alfanumerice", Kind::kText, 11},
                 {"txtDenumire", "&Denumire", "Maxim 40 caractere alfanumerice", Kind::kText, 40},
                 {"txtDN", "Durata &normala", "Durata normala in ani", Kind::kNumber},
                 {"TextLimSup", "&Limita superioara", "Limita superioara a duratei, in ani",
                  Kind::kNumber}},
      .addTip = "Creare cod de clasificare nou",
      .deleteTip = "Stergere cod de clasificare selectat",
      .question = "Sunteti sigur ca doriti sa stergeti codul : {1} ?",
  };
  constexpr const char* kNoDuration =
      "Va rugam introduceti o valoare numerica pentru durata normala !";
  table.checks = {
      {Test::kEmpty, "txtCodClasif", "Va rugam completati codul !"},
      {Test::kEmpty, "txtDenumire", "Va rugam completati denumirea  !"},
      {Test::kNotNumeric, "txtDN", kNoDuration},
      {Test::kNotNumeric, "TextLimSup", kNoDuration},
      {Test::kExists, "txtCodClasif",
       "Acest cod de clasificare exista deja ! Adaugarea nu se poate efectua !", "CodClasificare"}};
  table.row = {{"Cod_gr", From::kText, "txtCodClasif"}, {"Cod_gr_NOU", From::kText, "txtCodClasif"},
               {"Den_gr", From::kText, "txtDenumire"},  {"Durnor", From::kNumber, "txtDN"},
               {"Lim_INF", From::kNumber, "txtDN"},     {"LIM_SUP", From::kNumber, "TextLimSup"}};
  table.addFailure = "AdaugaCod";
  table.keyColumn = 3;
  table.users = {{"I_IMO", {"COD_GR_NOU"}}};
  table.deleteFailure = "stergere";
  table.width = 900;
  return table;
}

ReferenceTable Grades() {
  ReferenceTable table{
      .menuItem = "Tab_Grade",
      .screen = "frmGrade",
      .caption = "Grade de utilizare",
      .table = "I_GRADE",
      .statement = "select INF, SUP, INDICE from I_GRADE order by inf",
      .columns = {{"Limita inferioara", "INF"},
                  {"Limita superioara", "SUP"},
                  {"Grad de utilizare", "INDICE"}},
      .keyColumn = 2,
      .frame = "fraInput",
      .frameCaption = "Grad nou",
      .inputs = {{"txtInf", "Limita &inferioara", "Limita inferioara", Kind::kNumber},
                 {"txtSup", "Limita &superioara", "Limita superioara", Kind::kNumber},
                 {"txtIndice", "&Grad", "Grad", Kind::kNumber}},
      .inputsInARow = 3,
      .addTip = "Creare grad de utilizare nou",
      .deleteTip = "Stergere grad de utilizare selectat",
      .question = kDeleteAny,
  };
  table.checks = {{Test::kNotNumeric, "txtInf",
                   "Va rugam completati o valoare numerica pentru limita inferioara !"},
                  {Test::kNotNumeric, "txtSup",
                   "Va rugam completati o valoare numerica pentru limita superioara!"},
                  {Test::kNotNumeric, "txtIndice",
                   "Va rugam completati o valoare numerica pentru gradul de utilizare  !"}};
  table.row = {{"Inf", From::kNumber, "txtInf"},
               {"Sup", From::kNumber, "txtSup"},
               {"Indice", From::kNumber, "txtIndice"}};
  table.addFailure = "AdaugaJurnal";
  table.deleteFailure = "stergere";
  return table;
}

ReferenceTable MinimumValues() {
  return {
      .menuItem = "Restrictii",
      .screen = "frmValImob",
      .caption = "Valori minime imobilizari",
      .table = "I_VALIM",
      .statement = "select * from I_VALIM Order by DATVALIM",
      .columns = {{"Data initiala", "DATVALIM", "dd.MM.yyyy"}, {"Valoare", "VALIM", "#.##0"}},
      .frame = "fraInput",
      .frameCaption = "Inregistrare noua",
      .inputs = {{"dtpInitial", "&Data initiala", "Data initiala", Kind::kDate},
                 {"txtValoare", "&Valoare", "Valoare", Kind::kNumber}},
      .addTip = "Creare valoare minima noua",
      .checks = {{Test::kNotNumeric, "txtValoare", "Va rugam introduceti o valoare numerica !"},
                 {Test::kExists, "dtpInitial",
                  "Data initiala exista deja ! Adaugarea nu se poate efectua !", "Data"}},
      .row = {{"DATVALIM", From::kDate, "dtpInitial"}, {"VALIM", From::kNumber, "txtValoare"}},
      .deleteTip = "Stergere valoare minima selectata",
      .question = kDeleteAny,
      .width = 480,
  };
}

ReferenceTable Locations() {
  return {
      .menuItem = "Tab_Localizari",
      .screen = "frmLocalizare",
      .caption = "Localizari",
      .table = "I_LOCALIZARE",
      .statement = "select COD,TITLU from i_localizare Order by COD",
      .columns = {{"Cod", "COD"}, {"Denumire", "TITLU"}},
      .frame = "fraCC",
      .frameCaption = "Localizare noua",
      .inputs = {{"txtCod", "C&od", "Cod Localizare, maxim 11 caractere alfanumerice",
                  Kind::kUpperText, 11},
                 NameInput("txtTitlu", "Denumire, maxim 30 caractere alfanumerice",
                           Kind::kUpperText, 30)},
      .addTip = "Creare localizare noua",
      .checks = {{Test::kEmpty, "txtCod", "Va rugam introduceti codul centrului de cost !"},
                 {Test::kEmpty, "txtTitlu", "Va rugam introduceti denumirea centrului de cost !"},
                 {Test::kExists, "txtCod",
                  "Acest cod exista deja ! Adaugarea nu se poate efectua !", "CodLocalizare"}},
      .row = {{"Cod", From::kText, "txtCod"}, {"Titlu", From::kText, "txtTitlu"}},
      .deleteTip = "Stergere localizare selectata",
      .question = kDeleteCentre,
      .users = {{"I_IMO", {"COD_LOC"}}, {"I_INV", {"COD_LOC"}}},
      .deleteFailure = "EroareStergere",
      .cells = {{2, Cell::kNotYesNo, kYesOrNo}},
  };
}

ReferenceTable CostCentres() {
  ReferenceTable table{
      .menuItem = "Tab_CC",
      .screen = "frmCentreCost",
      .caption = "Centre de Cost",
      .table = "kv_cc",
      .statement = "select COD,TITLU,UTILIZABIL from kv_cc Order by COD",
      .columns = {{"Cod", "COD"}, {"Denumire", "TITLU"}, {"Utilizabil", "UTILIZABIL"}},
      .frame = "fraCC",
      .frameCaption = "Centru de Cost",
      .inputs = {{"txtCod", "C&od", "Maxim 16 caractere alfanumerice", Kind::kUpperText, 16},
                 NameInput("txtTitlu", "Maxim 30 caractere alfanumerice", Kind::kUpperText, 30)},
      .addTip = "Creare centru de cost nou",
      .deleteTip = "Stergere centru de cost selectat",
      .question = kDeleteCentre,
  };
  table.checks = {{Test::kEmpty, "txtCod", "Va rugam introduceti codul centrului de cost !"},
                  {Test::kEmpty, "txtTitlu", "Va rugam introduceti denumirea centrului de cost !"},
                  {Test::kExists, "txtCod",
                   "Acest cod exista deja ! Adaugarea nu se poate efectua !", "CodCentruCost"}};
  table.row = {{"Cod", From::kText, "txtCod"},
               {"Titlu", From::kText, "txtTitlu"},
               {"Utilizabil", From::kFixed, nullptr, "D"}};
  table.uses = {{"CentreCostLinii",
                 "Centrul de cost nu se poate sterge deoarece este utilizat in Inregistrari !"}};
  table.users = {{"I_IMO", {"COD_CC"}}, {"I_INV", {"COD_CC"}}};
  table.deleteFailure = "EroareStergere";
  table.cells = {{2, Cell::kNotYesNo, kYesOrNo}};
  return table;
}

}  // namespace

const std::vector<ReferenceTable>& ReferenceTables() {
  static const std::vector<ReferenceTable> kTables{Classes(),   Grades(),      MinimumValues(),
                                                   Locations(), CostCentres(), AccountLinks(),
                                                   Accounts(),  Journals(),    VatRates()};
  return kTables;
}

const ReferenceTable& ReferenceTableOf(const std::string& screen) {
  const std::vector<ReferenceTable>& tables = ReferenceTables();
  const auto found = std::find_if(tables.begin(), tables.end(), [&](const ReferenceTable& each) {
    return each.screen == screen;
  });
  if (found == tables.end()) throw ValueFailure(kInvalidArgument, screen);
  return *found;
}

}  // namespace tevra
