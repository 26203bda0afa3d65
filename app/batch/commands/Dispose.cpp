#include "app/batch/Entries.h"
#include "app/batch/NoteTable.h"
#include "app/batch/Refusal.h"
#include "app/batch/WholeNumber.h"
#include "app/batch/commands/Commands.h"
#include "platform/data/Recordset.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "register/AssetDisposal.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

using namespace amount;
using namespace account;

std::int32_t ByNumber(Connection& company, const std::string& written) {
  const std::optional<std::int32_t> number = WholeNumber(written);
  if (number && !company.OpenRecordset("SELECT COD FROM I_IMO WHERE NRCRT = ?", {*number}).Eof()) {
    return *number;
  }
  throw Refusal("Imobilizarea cu numarul curent " + written + " nu exista !");
}

std::int32_t ByCode(Connection& company, const std::string& code) {
  Recordset found =
      company.OpenRecordset("SELECT NRCRT FROM I_IMO WHERE COD = ? ORDER BY NRCRT", {code});
  if (found.Eof()) throw Refusal("Imobilizarea cu numarul de inventar " + code + " nu exista !");
  const std::int32_t first = found.Get("NRCRT").AsLong();
  if (found.RecordCount() == 1) return first;
  std::string numbers;
  for (; !found.Eof(); found.MoveNext()) {
    numbers += (numbers.empty() ? "" : ", ") + std::to_string(found.Get("NRCRT").AsLong());
  }
  throw Refusal("Numarul de inventar " + code + " este al mai multor imobilizari, cu numerele " +
                "curente " + numbers + ": alegeti cu --nrcrt !");
}

// The entries of the window's lists: what the user cannot pick there is refused here, too.
void PickAccounts(Connection& company, const DisposalOptions& options, Disposal& disposal) {
  const auto pick = [&](const char* list, const std::string& written, const char* what) {
    return PickEntry(company, list, "CONT", "CONT_TITLU", written, what).code;
  };
  disposal.cont[kExpense] = pick(disposal.sale ? kExpenseAccounts : kAllAccounts, options.expense,
                                 "Contul de cheltuieli");
  disposal.cont[kCustomer] = pick(kCustomerAccounts, options.customer, "Contul de client");
  disposal.cont[kRevenue] = pick(kRevenueAccounts, options.revenue, "Contul de venituri");
  disposal.client =
      PickEntry(company, kDisposalClients, "COD", "Nume", options.client, "Clientul").code;
  const Entry vat =
      PickEntry(company, kSaleVatRates, "COD", "CONT_PROCENT", options.vat, "Cota de TVA");
  disposal.cont[kVat] = vat.code;
  disposal.vat = vat.text;
}

Disposal Written(Connection& company, const CommandLine& line, const DateTime& date) {
  Disposal disposal;
  disposal.asset = line.code.empty() ? ByNumber(company, line.nrcrt) : ByCode(company, line.code);
  disposal.code =
      company.QueryValue("SELECT COD FROM I_IMO WHERE NRCRT = ?", {disposal.asset}).TextOrEmpty();
  disposal.sale = line.disposal.sell;
  disposal.date = date;
  disposal.document = line.disposal.document;
  disposal.value[kPrice] = NumberFrom(line.disposal.price);
  PickAccounts(company, line.disposal, disposal);
  return disposal;
}

void Refuse(const std::optional<DisposalRefusal>& refusal) {
  if (refusal) throw Refusal(refusal->message);
}

DisposalAsset Calculated(const Disposal& disposal) {
  try {
    if (const auto asset = BringUpTo(disposal.asset, disposal.date)) return *asset;
  } catch (const Failure& failure) {
    throw Refusal(ErrorText(failure, failure.Source()), failure);
  }
  throw Refusal("Imobilizarea nu mai exista !");
}

// What the window derives: from the price when it is left, then from the VAT rate when it is
// chosen.
void Derive(Connection& company, const DisposalAsset& asset, Disposal& disposal) {
  disposal.value[kResidual] = asset.residual;
  disposal.value[kForeignResidual] = asset.foreignResidual;
  disposal.cost = asset.cost;
  disposal.foreignCost = asset.foreignCost;
  disposal.assetAccount = asset.account;
  disposal.costCentre = asset.costCentre;
  if (!disposal.sale) return;
  const double price = disposal.value[kPrice].AsDouble();
  disposal.value[kForeignPrice] = PriceInCurrency(price, asset.rate);
  const Differences differences = DifferencesOf(disposal, asset.rate);
  disposal.value[kDifference] = differences.lei;
  disposal.value[kForeignDifference] = differences.foreign;
  const std::int32_t rate = CLng(CDbl(disposal.cont[kVat]));
  disposal.vatAmount =
      rate == 0 ? 0.0 : VatAtRate(price, Nz(company.QueryValue(kPercentOfRate, {rate})).AsDouble());
}

// The row is saved; what is missing of the notes makes the command fail.
template <typename Step>
auto AfterTheRow(const char* lost, Step step) {
  try {
    return step();
  } catch (const Failure& failure) {
    throw Refusal(std::string("Imobilizarea este trecuta ca vanduta, dar ") + lost +
                      " nu a fost scrisa !\n" +
                      ErrorText(failure, CurrentSession().selectedDatabase),
                  failure);
  }
}

void PostNotes(const Disposal& sale, double rate, const SaleNoteUse& agreed, std::ostream& out) {
  const Note first = AfterTheRow("nota vanzarii", [&] { return PostSale(sale, rate, agreed); });
  WriteNote(first, out);
  const auto second =
      AfterTheRow("nota scoaterii din gestiune", [&] { return PostRetirement(sale, rate); });
  if (!second) throw Refusal(NotAssociatedText(sale.assetAccount));
  WriteNote(*second, out);
  const std::string warning = WarningsOf(sale, {first, *second});
  if (!warning.empty()) MsgBoxEx(warning, kExclamation);
}

}  // namespace

void DisposeOfAsset(Connection& company, const CommandLine& line, const DateTime& date,
                    std::ostream& out) {
  Disposal disposal = Written(company, line, date);
  Refuse(EsteIesireValida(disposal));
  Derive(company, Calculated(disposal), disposal);
  double rate = 1;
  Refuse(CheckCompany(disposal, rate));
  SaleNoteUse use;
  if (disposal.sale) use = FindSaleNoteUse(disposal);
  if (!MayDelete(use.others)) throw Refusal("Nu s-a efectuat nimic !");
  const std::string before = LeftBefore(disposal.asset);
  if (!before.empty()) MsgBoxEx(before, kExclamation);
  pSalvareIesire(disposal);
  out << "Datele au fost salvate cu succes !\n";
  if (disposal.sale) PostNotes(disposal, rate, use, out);
}

}  // namespace tevra::batch
