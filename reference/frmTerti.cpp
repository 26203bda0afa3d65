#include "reference/frmTerti.h"

#include <QTableView>

#include "platform/forms/FormsApplication.h"
#include "platform/text/Strings.h"
#include "reference/CodeUse.h"
#include "session/Lists.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

frmTerti::frmTerti(QWidget* parent) : ListScreen("frmTerti", "Terti", parent) {
  BuildForm();
  Open(Describe());
  TDBGrid1 = Grid();
  txtCautare->setToolTip("Introduceti sir de cautare");
  txtCautare->SetUpperCase();
  OrderForm();
  Connect();
  CurataCampuri();
}

ListDescription frmTerti::Describe() {
  ListDescription list;
  list.connection = CurrentSession().connectionString;
  list.statement = PartyListStatement() + " Order by NUME";
  list.columns = {{"Cod", "COD"},
                  {"Denumire", "NUME"},
                  {"Tip", "TIP"},
                  {"CT", "CT"},
                  {"Cod fiscal", "CODFISCAL"},
                  {"Adresa facturare", "AD"},
                  {"CP facturare", "CP"},
                  {"Oras facturare", "ORAS"},
                  {"Tara facturare", "TARA"},
                  {"Persoana de contact", "REPREZ"},
                  {"Telefon", "TELEFON"},
                  {"Fax", "FAX"},
                  {"E-mail", "EMAIL"},
                  {"Adresa livrare", "ADL"},
                  {"CP livrare", "CPL"},
                  {"Oras livrare", "ORASL"},
                  {"Tara livrare", "TARAL"},
                  {"Banca", "BANCA"},
                  {"Cont bancar", "CONTBANCAR"},
                  {"Sold", "SOLD", "Standard"}};
  list.key = "COD";
  list.refreshed = list.rowSelect = list.counted = list.shortFailures = true;
  list.search = ListSearch{PartyListStatement() + " order by NUME",
                           {{PartyListStatement() + " WHERE NUME like ? order by NUME",
                             "Nu exista societati ale caror nume sa inceapa cu "}},
                           "Cauta",
                           "Cautare dupa denumire"};
  list.sort = ListSort{.groupText = "Drag a column header here to group by that column",
                       .up = nullptr,
                       .down = nullptr};
  list.toolsKey = GridKey("frmTerti.TDBGrid1");
  list.print.header = "R A P O R T";
  list.print.headerBold = true;
  list.print.footer = "Editat de Tevra       \tPagina: \\p";
  list.below = form_;
  list.buttons = Buttons();
  list.least = {760, 460};
  list.size = {1120, 620};
  return list;
}

std::vector<ListButton> frmTerti::Buttons() {
  using Role = ListButton::Role;
  return {
      {&cmdListare, "cmdListare", "Listare", "Listare pe ecran sau pe imprimanta linii selectate",
       [this](Procedure& running) { ListMarked(running); }},
      {&cmdAdauga, "cmdAdauga", "Adaugare", "Creare tert nou (client/furnizor)",
       [this](Procedure&) { cmdAdauga_Click(); }},
      {&cmdModifica, "cmdModifica", "Salvare", "Salvare modificari",
       [this](Procedure&) { cmdModifica_Click(); }},
      {&cmdSterge, "cmdSterge", "Stergere", "Stergere linie selectata",
       [this](Procedure&) { cmdSterge_Click(); }, Role::kPlain, true},
      {&cmdIesire, "cmdIesire", "Iesire", "Inchidere fereastra", {}, Role::kClose}};
}

void frmTerti::Connect() {
  OnLeave(txtFields[party::kKind], "txtFields_Validate",
          [this](Procedure&) { return txtFields_Validate(); });
  OnLeave(TextCT, "TextCT_LostFocus", [this](Procedure&) {
    TextCT->SetText(UCase(TextCT->Text()));
    return true;
  });
  // A row that was selected before the form was emptied shows again when the user goes back to it.
  const auto again = [this] {
    if (txtFields[party::kCode]->text().isEmpty()) RowSelected(CurrentCode());
  };
  connect(TDBGrid1->View(), &QTableView::clicked, this, again);
  connect(TDBGrid1->View(), &QTableView::activated, this, [this, again] {
    again();
    AfterEvent(this, [this] { GiveFocus(txtFields[party::kName]); });
  });
}

void frmTerti::WhenAdded(CodeAdded added) {
  added_ = std::move(added);
  GiveFocus(txtFields[party::kName]);
}

void frmTerti::RunTitled(const char* title, const Body& body) {
  RunWith(title, body, [title](const Failure& failure, const Procedure&) {
    MsgBoxEx(ShortErrorText(failure), kCritical, title);
  });
}

// ---- The form -----------------------------------------------------------------------------------

Party frmTerti::Typed() const {
  Party party;
  for (std::size_t i = 0; i < txtFields.size(); ++i) party.text[i] = txtFields[i]->Text();
  party.countryCode = TextCT->Text();
  return party;
}

void frmTerti::Show(const Party& party) {
  for (std::size_t i = 0; i < txtFields.size(); ++i) {
    txtFields[i]->SetText(party.text[i]);
    txtFields[i]->setCursorPosition(0);
  }
  TextCT->SetText(party.countryCode);
  MarkSaved(form_);
}

void frmTerti::CurataCampuri() {
  RunWith(
      "CurataCampuri",
      [this](Procedure&) {
        Party empty;
        empty.text[party::kKind] = kNewPartyKind;
        empty.countryCode = kHomeCountry;
        Show(empty);
      },
      [](const Failure& failure, const Procedure&) {
        MsgBoxEx(ShortErrorText(failure), kCritical, "CurataCampuri");
      });
}

bool frmTerti::EsteTertValid() const {
  return !Trim(txtFields[party::kName]->Text()).empty();
}

bool frmTerti::txtFields_Validate() {
  if (IsPartyKind(txtFields[party::kKind]->Text())) return true;
  MsgBoxEx(
      "Va rugam completati C (de la Client)sau F (de la Furnizor) sau M (de la Mixt - client si "
      "furnizor) !",
      kCritical);
  txtFields[party::kKind]->selectAll();
  return false;
}

// ---- The list -----------------------------------------------------------------------------------

std::string frmTerti::CurrentCode() const {
  return datPrimaryRS->HasRow() ? datPrimaryRS->Recordset().Get("COD").TextOrEmpty()
                                : std::string();
}

bool frmTerti::MayDropTyping() const {
  if (!HasChanges(form_)) return true;
  return MsgBoxEx(
             "Modificarile tertului din formular nu au fost salvate ! Doriti sa renuntati la ele ?",
             kYesNo | kQuestion | kDefaultStep, "Modificari nesalvate") == kYes;
}

void frmTerti::RowSelected(const std::string& key) {
  if (positioning_ || following_ || key.empty()) return;
  following_ = true;
  AfterEvent(this, [this] {
    following_ = false;
    RunShort("TDBGrid1_SelChange", [this](Procedure&) { TDBGrid1_SelChange(); });
  });
}

// The user who keeps what he typed goes back to its row.
void frmTerti::TDBGrid1_SelChange() {
  const std::string code = CurrentCode();
  const std::string shown = txtFields[party::kCode]->Text();
  if (code.empty() || (code == shown && HasChanges(form_))) return;
  if (!MayDropTyping()) {
    if (!shown.empty()) GoTo(shown);
    return;
  }
  if (const auto party = ReadParty(datPrimaryRS->GetConnection(), code)) Show(*party);
}

void frmTerti::Cautare() {
  RunShort("Cautare", [this](Procedure& running) { ListScreen::cmdCauta_Click(running); });
}

void frmTerti::cmdCauta_Click(Procedure&) {
  RunTitled("Cautare", [this](Procedure& running) { ListScreen::cmdCauta_Click(running); });
}

// Selecting the row shows nothing.
void frmTerti::GoTo(const std::string& code) {
  Recordset& rows = datPrimaryRS->Recordset();
  Recordset found = rows.Clone();
  if (found.RecordCount() > 0) {
    found.MoveFirst();
    found.Find("COD =" + code);
  }
  if (found.RecordCount() == 0 || found.Eof()) return;
  positioning_ = true;
  datPrimaryRS->MoveTo(found.Position());
  TDBGrid1->View()->selectRow(static_cast<int>(rows.Position()));
  positioning_ = false;
}

void frmTerti::Pozitionare(const std::string& code) {
  RunTitled("Pozitionare", [&](Procedure&) {
    GoTo(code);
    CurataCampuri();
  });
}

// ---- Buttons ------------------------------------------------------------------------------------

// With a row in the form the first press empties it, the second one adds what was typed since.
void frmTerti::cmdAdauga_Click() {
  if (!txtFields[party::kCode]->text().isEmpty()) {
    if (!MayDropTyping()) return;
    CurataCampuri();
    return GiveFocus(txtFields[party::kName]);
  }
  if (!EsteTertValid()) {
    MsgBoxEx("Va rugam introduceti numele societatii ! Salvarea nu se poate efectua !", kCritical);
    return GiveFocus(txtFields[party::kName]);
  }
  if (!txtFields_Validate()) return GiveFocus(txtFields[party::kKind]);
  txtCautare->clear();
  Cautare();
  AdaugaSocietate();
}

void frmTerti::AdaugaSocietate() {
  RunWith(
      "AdaugaSocietate",
      [this](Procedure&) {
        const std::string code = std::to_string(AddParty(datPrimaryRS->GetConnection(), Typed()));
        txtFields[party::kCode]->SetText(code);
        MarkSaved(form_);
        datPrimaryRS->Refresh();
        ShowCount();
        Pozitionare(code);
        GiveFocus(txtFields[party::kName]);
        if (added_) added_({{"COD", Value(code)}});
      },
      [](const Failure& failure, const Procedure&) {
        MsgBoxEx(ShortErrorText(failure) + " - AdaugaSocietate", kCritical);
      });
}

void frmTerti::cmdModifica_Click() {
  const std::string code = txtFields[party::kCode]->Text();
  if (code.empty()) return;
  if (!ChangeParty(datPrimaryRS->GetConnection(), Typed())) {
    MsgBoxEx("Tertul nu mai exista, a fost sters intre timp ! Salvarea nu se poate efectua !",
             kCritical);
    return;
  }
  MarkSaved(form_);
  datPrimaryRS->Refresh();
  ShowCount();
  Pozitionare(code);
}

std::string frmTerti::Question() const {
  return "Sunteti sigur ca doriti sa stergeti societatea : " + Text("NUME") + " ?" +
         UseSentence(datPrimaryRS->Recordset().Get("COD"), UsersOfParty());
}

void frmTerti::cmdSterge_Click() {
  RunTitled("Stergere", [this](Procedure& running) {
    if (!datPrimaryRS->HasRow()) return;
    DeleteRow(running, Question(), 0, [this](const Value& code) {
      if (!DeleteParty(datPrimaryRS->GetConnection(), code.AsText())) {
        MsgBoxEx("Societatea nu se poate sterge deoarece este utilizata in Inregistrari !",
                 kCritical);
      } else {
        CurataCampuri();
      }
    });
  });
}

}  // namespace tevra
