// The editors of the tables about accounts: their associations, the chart, journals and VAT rates.
#include "reference/AccountTables.h"

namespace tevra {

namespace {

using Kind = ReferenceInput::Kind;
using Test = ReferenceCheck::Test;
using From = ReferenceField::From;
using Cell = ReferenceCell::Test;

constexpr const char* kShortAccount =
    "Va rugam selectati un cont corespunzator (minim 3 caractere) !";
constexpr const char* kDeleteAccount = "Sunteti sigur ca doriti sa stergeti contul {1} ?";
constexpr const char* kNoTitle = "Va rugam completati titlul contului !";

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

}  // namespace

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
      .question = kDeleteAccount,
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
  table.cells = {{1, Cell::kEmpty, kNoTitle}};
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
                 NameInput("txtTitlu", "Titlu cont, maxim 40 caractere alfanumerice",
                           Kind::kUpperText, 40),
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
      .question = kDeleteAccount,
  };
  table.checks = {{Test::kEmpty, "txtCont", "Va rugam completati un numar de cont !"},
                  {Test::kEmpty, "txtTitlu", kNoTitle},
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
  table.cells = {{1, Cell::kEmpty, kNoTitle}};
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
                 NameInput("txtTitluJurnal", "Maxim 40 caractere alfanumerice", Kind::kText, 40),
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

}  // namespace tevra
