// How the disposal is checked and saved.
#include "platform/forms/Windows.h"
#include "platform/system/MessageBox.h"
#include "register/frmIesireImo.h"
#include "register/frmImo.h"
#include "session/Module1.h"

namespace tevra {

namespace {

using namespace amount;
using namespace account;

}  // namespace

Disposal frmIesireImo::Contents() const {
  Disposal disposal;
  disposal.asset = nrCrt_;
  disposal.code = txtNrInv->Text();
  disposal.sale = txtOut->Text() == "V";
  disposal.date = DTPicker1->Date().value();
  disposal.client = cboIDClient->BoundText();
  disposal.document = txtDocIesire->Text();
  for (std::size_t i = 0; i < txtValoare.size(); ++i) disposal.value[i] = txtValoare[i]->Content();
  disposal.cost = TextCump->Content();
  disposal.foreignCost = TextCumpDev->Content();
  for (std::size_t i = 0; i < txtCont.size(); ++i) disposal.cont[i] = txtCont[i]->Text();
  disposal.vat = cboTVA->Text();
  disposal.vatAmount = txtTVA->Content();
  disposal.assetAccount = sCont_;
  disposal.costCentre = sCodCC_;
  return disposal;
}

void frmIesireImo::cmdSalvare_Click(Procedure& running) {
  if (calculated_ != DTPicker1->Date()) DTPicker1_LostFocus();
  running.line = 1;
  const Disposal disposal = Contents();
  if (Refused(EsteIesireValida(disposal))) return;
  running.line = 2;
  double rate = 1;
  if (Refused(CheckCompany(disposal, rate))) return;
  running.line = 3;
  SaleNoteUse use;
  if (disposal.sale) use = FindSaleNoteUse(disposal);
  if (!MayDelete(use.others)) return;
  running.line = 4;
  if (!Save(disposal)) return;
  MarkSaved();
  if (disposal.sale) AddNotes(disposal, rate, use);
  running.line = 5;
  ShowLeftBefore();
  if (frmImo* list = windows::Single<frmImo>()) list->ShowChanges();
}

bool frmIesireImo::Refused(const std::optional<DisposalRefusal>& refusal) {
  using Box = DisposalRefusal::Box;
  if (!refusal) return false;
  MsgBoxEx(refusal->message, refusal->icon);
  const std::pair<Box, QWidget*> boxes[] = {{Box::kPrice, txtValoare[kPrice]},
                                            {Box::kExpense, cboCheltuieli},
                                            {Box::kCustomer, cboClient},
                                            {Box::kRevenue, cboVenituri},
                                            {Box::kVat, cboTVA},
                                            {Box::kClient, cboIDClient},
                                            {Box::kDocument, txtDocIesire}};
  for (const auto& [box, widget] : boxes) {
    if (box == refusal->box) GiveFocus(widget);
  }
  if (refusal->box == Box::kPrice) txtValoare[kPrice]->selectAll();
  return true;
}

bool frmIesireImo::Save(const Disposal& disposal) {
  return RunWith(
      "pSalvareIesire",
      [&](Procedure&) {
        pSalvareIesire(disposal);
        MsgBoxEx("Datele au fost salvate cu succes !", kInformation);
      },
      [](const Failure& failure, const Procedure&) {
        MsgBoxEx(ShortErrorText(failure), kCritical, "Salvare");
      });
}

// Users know the message by the name of the card.
void frmIesireImo::AddNotes(const Disposal& sale, double rate, const SaleNoteUse& agreed) {
  RunWith(
      "pAddNoteContabile",
      [&](Procedure& running) {
        running.line = 1;
        PostSale(sale, rate, agreed);
        running.line = 2;
        if (!PostRetirement(sale, rate)) {
          MsgBoxEx(NotAssociatedText(sale.assetAccount), kInformation);
        }
      },
      [](const Failure& failure, Procedure running) {
        running.module = "frmFisaImo";
        ShowStandardError(failure, running);
      });
}

}  // namespace tevra
