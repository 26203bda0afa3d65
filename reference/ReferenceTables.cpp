#include "reference/ReferenceTables.h"

#include <algorithm>

#include "platform/text/FailureText.h"

namespace tevra {

namespace {

using Kind = ReferenceInput::Kind;
using Test = ReferenceCheck::Test;
using From = ReferenceField::From;
using Cell = ReferenceCell::Test;

constexpr const char* kShortAccount =
    "Va rugam selectati un cont corespunzator (minim 3 caractere) !";
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
                 {"txtTitlu",
                  "&Denumire",
                  "Denumire, maxim 30 caractere alfanumerice",
                  Kind::kUpperText,
                  30,
                  {},
                  {},
                  2}},
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
                 {"txtTitlu",
                  "&Denumire",
                  "Maxim 30 caractere alfanumerice",
                  Kind::kUpperText,
                  30,
                  {},
                  {},
                  2}},
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

// The five accounts of an association, each with its list.
std::vector<ReferenceInput> AccountInputs() {
  constexpr const char* kAccounts =
      "Select CONT, CONT & '-' & TITLU As CONT_TITLU from kv_PC WHERE Len(CONT) >= 3 order by CONT";
  static constexpr struct {
    const char* box;
    const char* combo;
    const char* label;
    const char* tag;
  } kBoxes[] = {
      {"txtCont(0)", "cboCont(0)", "Cont &imobilizare", "Cont imobilizare"},
      {"txtCont(1)", "cboCont(1)", "Cont &cheltuiala cu amortizarea",
       "Cont cheltuiala cu amortizarea"},
      {"txtCont(2)", "cboCont(2)", "Cont a&mortizare", "Cont amortizare"},
      {"txtCont(3)", "cboCont(3)", "Cont cheltuieli &exceptionale", "Cont cheltuieli exceptionale"},
      {"txtCont(4)", "cboCont(4)", "Cont &venituri exceptionale", "Cont venituri exceptionale"},
  };
  std::vector<ReferenceInput> inputs;
  for (const auto& each : kBoxes) {
    ReferenceInput input{each.box, each.label, each.tag, Kind::kText, 16};
    input.picker = {{each.combo, "adoPC", kAccounts, "CONT_TITLU", "CONT"}};
    inputs.push_back(input);
  }
  return inputs;
}

ReferenceTable AccountLinks() {
  ReferenceTable table{
      .menuItem = "Tab_Aso_Imo",
      .screen = "frmConturi",
      .caption = "Asociere  Conturi de imobilizari",
      .table = "I_CONTURIIM",
      .statement =
          "select CONT,DENUMIRE,CONT_CHELT, CONT_AMO, CONT_CH_EX, CONT_VEN_EX, CENTR_C "
          "from I_CONTURIIM Order by CONT",
      .columns = {{"Cont imobilizare", "CONT"},
                  {"Denumire", "DENUMIRE"},
                  {"Cont de cheltuiala cu amortizarea", "CONT_CHELT"},
                  {"Cont de amortizare", "CONT_AMO"},
                  {"Cont de chelt. exceptionale", "CONT_CH_EX"},
                  {"Cont de ven. exceptionale", "CONT_VEN_EX"},
                  {"Centralizabil", "CENTR_C"}},
      .frame = "fraCont",
      .frameCaption = "Cont nou",
      .inputs = AccountInputs(),
      .inputsInARow = 1,
      .addTip = "Creare asociere noua",
      .deleteTip = "Stergere asociere selectata",
      .question = "Sunteti sigur ca doriti sa stergeti contul {1} ?",
  };
  for (const ReferenceInput& input : table.inputs) {
    table.checks.push_back(
        {Test::kEmpty, input.name, std::string("Va rugam introduceti ") + input.tip});
  }
  table.checks.push_back({Test::kExists, "txtCont(0)",
                          "Acest cont de imobilizare exista deja ! Adaugarea nu se poate efectua !",
                          "CodConturiImob"});
  table.row = {
      {"CONT", From::kText, "txtCont(0)"},       {"DENUMIRE", From::kPickedName, "txtCont(0)"},
      {"CONT_CHELT", From::kText, "txtCont(1)"}, {"CONT_AMO", From::kText, "txtCont(2)"},
      {"CONT_CH_EX", From::kText, "txtCont(3)"}, {"CONT_VEN_EX", From::kText, "txtCont(4)"}};
  table.clears = true;
  table.addFailure = " EroareAdauga";
  table.addFailureLine = true;
  table.users = {{"I_IMO", {"CONT"}}, {"I_INV", {"CONT"}}};
  table.deleteFailure = "Stergere";
  table.cells = {{1, Cell::kEmpty, "Va rugam completati titlul contului !"}};
  table.width = 960;
  return table;
}

ReferenceTable Accounts() {
  ReferenceTable table{
      .menuItem = "Tab_Plan",
      .screen = "frmPC",
      .caption = "Plan de Conturi",
      .table = "kv_pc",
      .statement = "select CONT,TITLU,DEBITN,CREDITN,CODBUG from kv_pc Order by CONT",
      .columns = {{"Cont", "CONT"}, {"Titlu", "TITLU"}, {"Centru de cost", "CODBUG"}},
      .frame = "fraCont",
      .frameCaption = "Cont",
      .inputs = {{"txtCont", "C&ont", "Simbol cont, maxim 16 caractere alfanumerice", Kind::kText,
                  16},
                 {"txtTitlu",
                  "&Denumire",
                  "Titlu cont, maxim 40 caractere alfanumerice",
                  Kind::kUpperText,
                  40,
                  {},
                  {},
                  2},
                 {"txtCC",
                  "&Centru de cost",
                  "Centru de cost",
                  Kind::kText,
                  16,
                  {},
                  {{"cboCentruCost", "adoCentreCost",
                    "Select COD, TITLU from kv_cc where  Ucase(UTILIZABIL) = 'D' order by COD",
                    "TITLU", "COD", true}}}},
      .addTip = "Creare cont nou",
      .deleteTip = "Stergere cont selectat",
      .question = "Sunteti sigur ca doriti sa stergeti contul {1} ?",
  };
  table.checks = {{Test::kEmpty, "txtCont", "Va rugam completati un numar de cont !"},
                  {Test::kEmpty, "txtTitlu", "Va rugam completati titlul contului !"},
                  {Test::kExists, "txtCont",
                   "Acest numar de cont exista deja ! Adaugarea nu se poate efectua !", "Cont"}};
  table.row = {{"CONT", From::kText, "txtCont"},
               {"TITLU", From::kText, "txtTitlu"},
               {"CODBUG", From::kText, "txtCC"}};
  table.insert = "INSERT INTO kv_pc (CONT, TITLU, DEBITN, CREDITN, CODBUG) VALUES(?,?,0,0,?)";
  table.clears = true;
  table.addFailure = "Adauga Cont";
  table.users = {{"I_IMO", {"CONT"}},
                 {"I_INV", {"CONT"}},
                 {"I_CONTURIIM", {"CONT", "CONT_CHELT", "CONT_AMO", "CONT_CH_EX", "CONT_VEN_EX"}},
                 {"Kv_Linii", {"CONT"}}};
  table.deleteFailure = "Stergere";
  table.cells = {{1, Cell::kEmpty, "Va rugam completati titlul contului !"}};
  table.width = 720;
  return table;
}

ReferenceTable Journals() {
  ReferenceTable table{
      .menuItem = "Tab_Jurnale",
      .screen = "frmJurnale",
      .caption = "Jurnale",
      .table = "KV_JUR",
      .statement =
          "select COD,TITLU,CONT,TIP,BANCA,ADRESA,ORAS,CONTBN, CODOPER from KV_JUR "
          "Order by COD",
      .columns = {{"Cod", "COD"},
                  {"Titlu", "TITLU"},
                  {"Cont", "CONT"},
                  {"Tip", "TIP"},
                  {"Banca", "BANCA"},
                  {"Adresa", "ADRESA"},
                  {"Oras", "ORAS"},
                  {"Cont bancar", "CONTBN"},
                  {"Operatie", "CODOPER"}},
      .frame = "fraInput",
      .frameCaption = "Jurnal nou",
      .inputs = {{"txtCodJurnal", "C&od", "Maxim 3 caractere alfanumerice", Kind::kText, 3},
                 {"txtTitluJurnal",
                  "&Denumire",
                  "Maxim 40 caractere alfanumerice",
                  Kind::kText,
                  40,
                  {},
                  {},
                  2},
                 {"cboCont", "Con&t", "Numar cont", Kind::kList},
                 {"cboTip",
                  "Ti&p",
                  "B banca, C cumparari, D diverse, R registru de casa, V vanzari",
                  Kind::kList,
                  0,
                  {"B", "C", "D", "R", "V"},
                  {},
                  2}},
      .addTip = "Creare jurnal nou",
      .deleteTip = "Stergere jurnal selectat",
      .question = "Sunteti sigur ca doriti sa stergeti jurnalul cu codul : {1} ?",
  };
  table.checks = {
      {Test::kEmpty, "txtCodJurnal", "Va rugam completati codul jurnalului  !"},
      {Test::kEmpty, "txtTitluJurnal", "Va rugam completati titlul  !"},
      {Test::kExists, "txtCodJurnal",
       "Acest cod de jurnal exista deja ! Adaugarea nu se poate efectua !", "CodJurnal"},
      {Test::kShort, "cboCont", kShortAccount, nullptr, true}};
  table.row = {{"Cod", From::kText, "txtCodJurnal"},
               {"Titlu", From::kText, "txtTitluJurnal"},
               {"Cont", From::kAccount, "cboCont"},
               {"Tip", From::kFirstLetter, "cboTip"}};
  table.addFailure = "AdaugaJurnal";
  table.uses = {
      {"JurnalLinii", "Jurnalul nu se poate sterge deoarece este utilizat in Inregistrari !"}};
  table.deleteFailure = "stergere";
  table.cells = {{2, Cell::kShort, "Introduceti un cont format din minim 3 caractere !"}};
  table.width = 900;
  return table;
}

ReferenceTable VatRates() {
  return {
      .menuItem = "Tab_TVA",
      .screen = "frmCoteTVA",
      .caption = "Cote TVA",
      .table = "kv_cote",
      .statement = "select COD,CONT,PROCENT from kv_COTE Order by COD",
      .columns = {{"Cod", "COD"}, {"Cont", "CONT"}, {"Cota", "PROCENT"}},
      .frame = "fraInput",
      .frameCaption = "Cod TVA nou",
      .inputs = {{"cboCont", "Con&t", "Cont TVA", Kind::kList, 0, {}, {}, 3},
                 {"txtProcent", "Cot&a", "Cota TVA", Kind::kNumber}},
      .addTip = "Creare cota TVA noua",
      .checks = {{Test::kNotNumeric, "txtProcent",
                  "Va rugam introduceti o valoare numerica pentru cota TVA !"},
                 {Test::kShort, "cboCont", kShortAccount}},
      .row = {{"Cod", From::kNextNumber, nullptr, "kv_cote"},
              {"cont", From::kAccount, "cboCont"},
              {"procent", From::kNumber, "txtProcent"}},
      .deleteTip = "Stergere cota TVA selectata",
      .question = "Sunteti sigur ca doriti sa stergeti cota TVA : {2} - {3}% ?",
      .users = {{"I_IMO", {"COD_TVA_CUMP", "COD_TVA_VANZ"}}, {"I_INV", {"COD_TVA_CUMP"}}},
  };
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
