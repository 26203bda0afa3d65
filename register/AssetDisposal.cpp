#include "register/AssetDisposal.h"

#include "engine/Method.h"
#include "engine/Module3.h"
#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

using namespace amount;
using namespace account;

constexpr const char* kSold = "V";
constexpr const char* kScrapped = "C";
constexpr double kVatOnPrice = 19;

}  // namespace

// ---- What the boxes show ------------------------------------------------------------------------

std::optional<DisposalAsset> ReadDisposalAsset(std::int32_t nrCrt) {
  const Recordset row = OpenRecordset(
      "Select VAL_RAMASA, VAL_RAMASA_VAL, CURS, VAL_CUMP, VAL_CUMP_VAL,CONT,COD_CC from i_imo "
      "where NRCRT = ?",
      {nrCrt});
  if (row.Eof()) return std::nullopt;
  DisposalAsset asset;
  asset.residual = row.Get("VAL_RAMASA");
  asset.foreignResidual = row.Get("VAL_RAMASA_VAL");
  asset.cost = row.Get("VAL_CUMP");
  asset.foreignCost = row.Get("VAL_CUMP_VAL");
  asset.rate = Nz(row.Get("CURS")).AsDouble();
  asset.noteRate = Nz(row.Get("CURS"), 1.0).AsDouble();
  asset.account = Nz(row.Get("CONT"), "").TextOrEmpty();
  asset.costCentre = Nz(row.Get("COD_CC"), "").TextOrEmpty();
  return asset;
}

std::optional<DisposalAsset> BringUpTo(std::int32_t nrCrt, const DateTime& date) {
  CalculImobilizare(date, nrCrt);
  return ReadDisposalAsset(nrCrt);
}

double RateOf(std::int32_t nrCrt) {
  const Recordset row = OpenRecordset("select CURS from i_imo where NRCRT = ?", {nrCrt});
  return row.Eof() ? 0 : Nz(row.Get("CURS")).AsDouble();
}

double PriceInCurrency(double price, double rate) {
  return rate == 0 ? 0 : RoundTo(price / rate, 0);
}

Differences DifferencesOf(const Disposal& sale, double rate) {
  const auto number = [&](amount::Place place) { return Nz(sale.value[place]).AsDouble(); };
  return {number(kPrice) - number(kResidual),
          rate == 0 ? 0 : number(kForeignPrice) - number(kForeignResidual)};
}

double VatOnPrice(double price, double vatCode) {
  return vatCode == 0 ? 0 : VatAtRate(price, kVatOnPrice);
}

double VatAtRate(double price, double percent) {
  return price * percent / 100;
}

std::string LeftBefore(std::int32_t nrCrt) {
  const Recordset row = OpenRecordset(
      "SELECT IESIRE, TIP_IESIRE, DATA_IESIRE, DocIesire FROM I_IMO WHERE NRCRT = ?", {nrCrt});
  if (row.Eof() || !row.Get("IESIRE").AsBool()) return {};
  const std::string type = row.Get("TIP_IESIRE").TextOrEmpty();
  const std::string document = row.Get("DocIesire").TextOrEmpty();
  const Value date = row.Get("DATA_IESIRE");
  std::string text = "Imobilizarea a iesit deja din gestiune";
  if (!date.IsNull()) text += " la " + ShortDate(date.AsDateTime());
  text += type == kSold ? ", prin vanzare" : type == kScrapped ? ", prin casare" : "";
  if (!document.empty()) text += ", cu documentul " + document;
  return text + ". Salvarea inlocuieste datele iesirii.";
}

// ---- Checks -------------------------------------------------------------------------------------

std::string NotANumberText(amount::Place box) {
  return std::string("Va rugam introduceti o valoare numerica pozitiva pentru ") +
         kAmountTags[box] + "!";
}

std::optional<DisposalRefusal> EsteIesireValida(const Disposal& disposal) {
  using Box = DisposalRefusal::Box;
  if (!disposal.sale) return std::nullopt;
  const Value& price = disposal.value[kPrice];
  if (price.IsNull() || price.IsText() || price.AsDouble() < 0) {
    return DisposalRefusal{NotANumberText(kPrice), kCritical, Box::kPrice};
  }
  if (price.AsDouble() >= kAmountLimit) {
    return DisposalRefusal{TooLargeText(kAmountTags[kPrice]), kCritical, Box::kPrice};
  }
  constexpr Box kBoxes[] = {Box::kExpense, Box::kCustomer, Box::kRevenue, Box::kVat};
  for (std::size_t i = 0; i < account::kCount; ++i) {
    if (!Trim(disposal.cont[i]).empty()) continue;
    return DisposalRefusal{std::string("Va rugam completati ") + kAccountTags[i] + " !", kCritical,
                           kBoxes[i]};
  }
  if (disposal.client.empty())
    return DisposalRefusal{"Va rog selectati Clientul", kInformation, Box::kClient};
  if (disposal.document.empty()) {
    return DisposalRefusal{"Va rog introduceti nr documentului de vanzare", kInformation,
                           Box::kDocument};
  }
  return std::nullopt;
}

std::optional<DisposalRefusal> CheckCompany(const Disposal& disposal, double& rate) {
  rate = 1;
  Method method = kAccelerated;
  const Recordset row =
      OpenRecordset("select CURS, TIP_AM from i_imo where NRCRT = ?", {disposal.asset});
  if (!row.Eof()) {
    rate = Nz(row.Get("CURS"), 1.0).AsDouble();
    method = MethodOf(row.Get("TIP_AM").TextOrEmpty());
  }
  if (rate == 0) {
    return DisposalRefusal{"Va rog introduceti cursul pentru obiectul de inventar: " +
                           disposal.code};
  }
  if (method != kNoDepreciation && !IsValidCalcul(disposal.date)) {
    const DateTime today = clock::Today();
    return DisposalRefusal{
        "Va rog efectuati calculul pentru mijloacele fixe pana in luna curenta: [" +
        std::to_string(today.Month()) + "-" + std::to_string(today.Year()) + "]"};
  }
  if (!disposal.sale ||
      !OpenRecordset("SELECT COD FROM Kv_Ter WHERE COD = CLng(?)", {disposal.client}).Eof()) {
    return std::nullopt;
  }
  return DisposalRefusal{"Clientul ales nu mai exista in tabela de terti !", kExclamation,
                         DisposalRefusal::Box::kClient};
}

SaleNoteUse FindSaleNoteUse(const Disposal& sale) {
  Connection connection(CurrentSession().connectionString);
  const Recordset left = connection.OpenRecordset(
      "SELECT NRCRT, IESIRE, TIP_IESIRE FROM I_IMO WHERE DocIesire = ?", {sale.document});
  const bool again = left.RecordCount() == 1 && left.Get("NRCRT").AsLong() == sale.asset &&
                     left.Get("IESIRE").AsBool() && left.Get("TIP_IESIRE").TextOrEmpty() == kSold;
  SaleNoteUse use;
  if (again) use.own = {"JV", "OD"};
  use.others = NotesUnder(connection, sale.document, use.own);
  return use;
}

// ---- The row ------------------------------------------------------------------------------------

FieldValues DisposalFields(const Disposal& disposal, const std::string& user) {
  FieldValues fields{
      {"IESIRE", Value::YesNo(true)},
      {"TIP_IESIRE", disposal.sale ? kSold : kScrapped},
      {"CONT_CA", TextOrNull(disposal.cont[kExpense])},
      {"VAL_RAMASA_IESIRE", disposal.value[kResidual]},
      {"VAL_RAMASA_IESIRE_VAL", disposal.value[kForeignResidual]},
      {"DATA_IESIRE", disposal.date.Midnight()},
      {"UTILIZATOR", user},
  };
  if (disposal.sale) {
    fields.insert(fields.end(), {{"VAL_IESIRE", disposal.value[kPrice]},
                                 {"VAL_IESIRE_VAL", disposal.value[kForeignPrice]},
                                 {"CONT_CLI", TextOrNull(disposal.cont[kCustomer])},
                                 {"CONT_VEN", TextOrNull(disposal.cont[kRevenue])},
                                 {"COD_TVA_VANZ", CLng(CDbl(disposal.cont[kVat]))}});
  }
  fields.emplace_back("DocIesire", TextOrNull(disposal.document));
  fields.emplace_back("ID_Client", TextOrNull(disposal.client));
  return fields;
}

void pSalvareIesire(const Disposal& disposal) {
  const FieldValues fields = DisposalFields(disposal, CurrentSession().userName);
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  Recordset row = connection.OpenRecordset("Select * from I_IMO where NRCRT = ?", {disposal.asset});
  for (const auto& [field, value] : fields) row.Set(field, value);
  row.Update();
  transaction.Commit();
}

}  // namespace tevra
