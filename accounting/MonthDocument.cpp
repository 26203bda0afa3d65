#include "accounting/MonthDocument.h"

#include <algorithm>
#include <cctype>

#include "platform/data/Recordset.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/CompanySettings.h"
#include "session/Module1.h"

namespace tevra {

namespace {

// True for the lines of charges, of any month. Journal and document do not tell them from the note
// of an object that is put into use or of an asset that is sold. Those have a line on the account
// of the object or the asset, which is in the table of associations; charges have none.
constexpr const char* kIsCharge =
    "(JURNAL = 'OD' AND PROV = 'I' AND NOT NDI IN (SELECT L.NDI FROM Kv_Linii L INNER JOIN "
    "I_CONTURIIM C ON C.CONT = L.CONT WHERE L.DOC = ?))";

constexpr const char* kInMonth = "(DATAINR >= ? AND DATAINR < ?)";

// The values of kIsCharge, DOC = ? and kInMonth.
Values MonthValues(const std::string& document, const DateTime& date) {
  const DateTime first(date.Year(), date.Month(), 1);
  return {document, document, first, first.AddMonths(1)};
}

std::string Described(const NotesOfYear& notes) {
  std::string text = notes.year ? "anul " + std::to_string(*notes.year) : "fara data";
  if (!notes.charges) text += ", altceva decat cheltuielile lunii";
  text += notes.notes == 1 ? ": o nota" : ": " + std::to_string(notes.notes) + " note";
  return text + ", " + Format(notes.lei, "#.##0,00") + " lei";
}

}  // namespace

std::string ChargeDocument(const DateTime& date, bool withYear) {
  const std::string month = "IMO" + Format(date.Month(), "00");
  return withYear ? month + "/" + Format(date.Year(), "0000") : month;
}

std::string ChargeDocument(Connection& company, const DateTime& date) {
  return ChargeDocument(date, IsOn(company, CompanySetting::kDocumentWithYear));
}

bool IsChargeDocument(const std::string& document) {
  constexpr std::size_t kMonthEnd = 5;
  constexpr std::size_t kYearEnd = 10;
  const auto digits = [&](std::size_t from, std::size_t to) {
    return std::all_of(document.begin() + static_cast<std::ptrdiff_t>(from),
                       document.begin() + static_cast<std::ptrdiff_t>(to),
                       [](unsigned char c) { return std::isdigit(c) != 0; });
  };
  if (document.size() != kMonthEnd && document.size() != kYearEnd) return false;
  if (!EqualNoCase(document.substr(0, 3), "IMO") || !digits(3, kMonthEnd)) return false;
  const std::string month = document.substr(3, 2);
  if (month < "01" || month > "12") return false;
  return document.size() == kMonthEnd || (document[kMonthEnd] == '/' && digits(6, kYearEnd));
}

MonthUse OthersUnderMonth(Connection& company, const DateTime& date) {
  MonthUse use{ChargeDocument(company, date), {}};
  Recordset rows = company.OpenRecordset(
      std::string("SELECT AN, FEL, COUNT(DISTINCT NDI) AS NOTE, SUM(DEBIT) AS LEI FROM (SELECT "
                  "NDI, DEBIT, DATAINR, Year(DATAINR) AS AN, CASE WHEN ") +
          kIsCharge + " THEN 1 ELSE 0 END AS FEL FROM Kv_Linii WHERE DOC = ?) Q WHERE FEL = 0 OR " +
          "DATAINR IS NULL OR NOT " + kInMonth + " GROUP BY AN, FEL ORDER BY AN, FEL",
      MonthValues(use.document, date));
  for (; !rows.Eof(); rows.MoveNext()) {
    const Value year = rows.Get("AN");
    use.others.push_back({year.IsNull() ? std::nullopt : std::optional<int>(year.AsLong()),
                          rows.Get("FEL").AsLong() == 1, rows.Get("NOTE").AsLong(),
                          RoundTo(Nz(rows.Get("LEI")).AsDouble(), 2)});
  }
  return use;
}

NotesOfYear ChargesOfMonth(Connection& company, const DateTime& date) {
  NotesOfYear charges{date.Year(), true, 0, 0};
  for (const bool withYear : {false, true}) {
    const Recordset sums = company.OpenRecordset(
        std::string("SELECT COUNT(DISTINCT NDI) AS NOTE, SUM(DEBIT) AS LEI FROM Kv_Linii WHERE ") +
            kIsCharge + " AND DOC = ? AND " + kInMonth,
        MonthValues(ChargeDocument(date, withYear), date));
    charges.notes += sums.Get("NOTE").AsLong();
    charges.lei += Nz(sums.Get("LEI")).AsDouble();
  }
  charges.lei = RoundTo(charges.lei, 2);
  return charges;
}

std::string OthersText(const MonthUse& use) {
  std::string text = "Sub documentul \"" + use.document +
                     "\" exista deja note din alt an sau de la alta operatie:\n";
  for (const NotesOfYear& notes : use.others) text += "- " + Described(notes) + "\n";
  return text;
}

bool MayReplace(const MonthUse& use) {
  if (use.others.empty()) return true;
  const std::string text =
      OthersText(use) + "Scrierea notelor lunii le sterge. Doriti sa continuati?";
  return MsgBoxEx(text, kYesNo | kExclamation | kDefaultStep, "Document folosit") == kYes;
}

void DeleteMonth(Connection& company, const DateTime& date) {
  const bool withYear = IsOn(company, CompanySetting::kDocumentWithYear);
  company.Execute("DELETE FROM Kv_LINII WHERE DOC=?", {ChargeDocument(date, withYear)});
  company.Execute(
      std::string("DELETE FROM Kv_LINII WHERE ") + kIsCharge + " AND DOC=? AND " + kInMonth,
      MonthValues(ChargeDocument(date, !withYear), date));
}

}  // namespace tevra
