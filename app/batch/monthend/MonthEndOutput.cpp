#include "app/batch/monthend/MonthEndOutput.h"

#include "app/batch/monthend/Json.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"

namespace tevra::batch {

namespace {

struct StepName {
  const char* key;      // in JSON
  const char* caption;  // for people
};

StepName NameOf(MonthStep step) {
  switch (step) {
    case MonthStep::kLogin:
      return {"login", "la autentificare"};
    case MonthStep::kCheck:
      return {"check", "la verificare"};
    case MonthStep::kBackup:
      return {"backup", "la salvare"};
    case MonthStep::kCalculation:
      return {"calculation", "la calcul"};
    case MonthStep::kPostings:
      return {"postings", "la notele contabile"};
    default:
      return {"reports", "la rapoarte, dupa calcul"};
  }
}

const char* KeyOf(Postings postings) {
  switch (postings) {
    case Postings::kWritten:
      return "written";
    case Postings::kAlready:
      return "already";
    default:
      return "none";
  }
}

// Several lines of a text, each with an indent.
void WriteIndented(const std::string& text, std::ostream& out) {
  out << "  ";
  for (const char c : text) {
    out << c;
    if (c == '\n') out << "  ";
  }
  out << '\n';
}

std::string Lei(double amount) {
  return Format(amount, "Standard") + " lei";
}

void WriteMonth(const MonthSums& month, std::ostream& out) {
  out << "  " << month.assets << (month.assets == 1 ? " imobilizare" : " imobilizari")
      << ", cheltuieli " << Lei(month.sums.charge) << ", amortizare cumulata "
      << Lei(month.sums.cumulated) << ", valoare ramasa " << Lei(month.sums.remaining) << '\n';
  if (month.postings == Postings::kNone) return;
  out << "  Note contabile " << month.document << ": " << month.notes
      << (month.notes == 1 ? " nota, " : " note, ") << Lei(month.posted) << '\n';
}

void WriteSums(const MonthSums& month, JsonWriter& json) {
  json.Key("assets").Number(month.assets);
  json.Key("sums").Open('{');
  json.Key("charges").Number(RoundTo(month.sums.charge, 2));
  json.Key("cumulated").Number(RoundTo(month.sums.cumulated, 2));
  json.Key("remaining").Number(RoundTo(month.sums.remaining, 2));
  json.Close('}');
  json.Key("postings").Open('{');
  json.Key("state").Text(KeyOf(month.postings));
  json.Key("document").TextOrNull(month.document);
  json.Key("notes").Number(month.notes);
  json.Key("lei").Number(RoundTo(month.posted, 2));
  json.Close('}');
}

void WriteNoSums(JsonWriter& json) {
  for (const char* key : {"assets", "sums", "postings"}) json.Key(key).Null();
}

void WriteFiles(const CompanyMonth& company, JsonWriter& json) {
  json.Key("files").Open('{');
  json.Key("backup").TextOrNull(company.backup.string());
  json.Key("reports").Open('[');
  for (const auto& report : company.reports) json.Text(report.string());
  json.Close(']');
  json.Close('}');
}

void WriteCompany(const CompanyMonth& company, JsonWriter& json) {
  json.Open('{');
  json.Key("code").Text(company.code);
  json.Key("name").Text(company.name);
  json.Key("state").Text(company.failedAt ? "failed" : "done");
  json.Key("failedAt").TextOrNull(company.failedAt ? NameOf(*company.failedAt).key : "");
  json.Key("reason").TextOrNull(company.reason);
  company.month ? WriteSums(*company.month, json) : WriteNoSums(json);
  json.Key("remarks").Open('[');
  for (const std::string& remark : company.remarks) json.Text(remark);
  json.Close(']');
  WriteFiles(company, json);
  json.Key("seconds").Number(RoundTo(company.seconds, 3));
  json.Close('}');
}

}  // namespace

void WriteMonthEndTitle(const MonthEndResult& run, std::size_t companies, std::ostream& out) {
  out << "Sfarsit de luna la " << ShortDate(run.day) << ", "
      << (run.post ? "cu note contabile, " : "fara note contabile, ") << companies
      << (companies == 1 ? " societate\n" : " societati\n");
}

void WriteCompanyMonth(const CompanyMonth& company, bool dryRun, std::ostream& out) {
  out << company.code << (company.name.empty() ? "" : " " + company.name) << ": ";
  if (company.failedAt) {
    out << "NEEFECTUAT, " << NameOf(*company.failedAt).caption;
  } else {
    out << (dryRun ? "s-ar efectua" : "efectuat");
  }
  out << " (" << Format(company.seconds, "Standard") << " s)\n";
  if (company.failedAt) WriteIndented(company.reason, out);
  if (company.month) WriteMonth(*company.month, out);
  for (const std::string& remark : company.remarks) WriteIndented("Atentie: " + remark, out);
  if (!company.backup.empty()) out << "  Salvare: " << company.backup.string() << '\n';
  for (const auto& report : company.reports) out << "  Raport: " << report.string() << '\n';
  out.flush();
}

void WriteMonthEndSum(const MonthEndResult& run, std::ostream& out) {
  const std::size_t failed = run.Failed();
  out << (run.dryRun ? "S-ar efectua: " : "Efectuate: ") << run.companies.size() - failed
      << ", neefectuate: " << failed << '\n';
  if (run.dryRun) out << "Nu s-a scris nimic (--dry-run).\n";
}

void WriteMonthEndJson(const MonthEndResult& run, std::ostream& out) {
  JsonWriter json(out);
  const std::size_t failed = run.Failed();
  json.Open('{');
  json.Key("date").Text(Format(run.day, "yyyy-mm-dd"));
  json.Key("post").Bool(run.post);
  json.Key("dryRun").Bool(run.dryRun);
  json.Key("done").Number(static_cast<double>(run.companies.size() - failed));
  json.Key("failed").Number(static_cast<double>(failed));
  json.Key("companies").Open('[');
  for (const CompanyMonth& company : run.companies) WriteCompany(company, json);
  json.Close(']');
  json.Close('}');
}

}  // namespace tevra::batch
