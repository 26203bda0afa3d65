#include "care/Restore.h"

#include <ctime>

#include <sys/stat.h>

#include "care/BackupName.h"
#include "care/KeptBefore.h"
#include "platform/data/Catalogue.h"
#include "platform/data/CompanyFile.h"
#include "platform/data/Recordset.h"
#include "platform/text/Dates.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"
#include "session/DatabaseFiles.h"
#include "session/Module1.h"
#include "session/Version.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

DateTime LastChange(const fs::path& file) {
  struct stat status {};
  tm local{};
  if (stat(file.c_str(), &status) != 0 || !localtime_r(&status.st_mtime, &local)) return {};
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     std::min(local.tm_sec, 59)};
}

int RowsOf(Connection& company, const Catalogue& catalogue, const std::string& table) {
  if (!catalogue.HasTable(table)) return 0;
  return company.QueryValue("SELECT COUNT(*) FROM " + table).AsLong();
}

void RequireTables(const Catalogue& catalogue, const fs::path& file) {
  for (const char* table : {"kv_info", "kv_par", "UTILIZATORI", "I_IMO"}) {
    if (catalogue.HasTable(table)) continue;
    throw Failure(kDatabaseNotOpened,
                  "Fisierul nu este o baza de date a unei societati, ii "
                  "lipseste tabela " +
                      std::string(table) + ": " + file.string());
  }
}

std::string Count(int number, const char* one, const char* many) {
  return std::to_string(number) + (number == 1 ? one : many);
}

}  // namespace

CompanyContent Inspect(const fs::path& file) {
  // A file that somebody is writing is refused soon: the screen waits for the answer.
  Connection company("Data Source=" + file.string() +
                     ";Mode=Read;Lock Timeout=300;PWD=" + kFilePassword);
  const Catalogue catalogue(company);
  RequireTables(catalogue, file);
  CompanyContent content;
  content.file = file;
  const Recordset info = company.OpenRecordset("SELECT * FROM kv_info");
  const auto field = [&](const char* name) {
    return info.Eof() || !catalogue.Table("kv_info").Find(name) ? Value() : info.Get(name);
  };
  content.name = Trim(field("DENUMIRE").TextOrEmpty());
  content.fiscalCode = Trim(field("CODFISCAL").TextOrEmpty());
  const Value version = field("VERSIUNE");
  if (!version.IsNull()) content.version = version.AsLong();
  content.moment = MomentInName(file.filename().string()).value_or(LastChange(file));
  content.assets = RowsOf(company, catalogue, "I_IMO");
  content.lines = RowsOf(company, catalogue, "Kv_Linii");
  return content;
}

std::string Description(const CompanyContent& content) {
  std::string text = content.name.empty() ? "Societate fara denumire" : content.name;
  if (!content.fiscalCode.empty()) text += ", cod fiscal " + content.fiscalCode;
  text += "\nSalvata la " + Format(content.moment, "dd.mm.yyyy hh:nn");
  text += ", structura " + (content.version == 0 ? "necunoscuta" : std::to_string(content.version));
  if (content.version != 0 && content.version < kRevision) {
    text += " (veche: se actualizeaza la urmatoarea intrare in program)";
  }
  return text + "\n" + Count(content.assets, " imobilizare, ", " imobilizari, ") +
         Count(content.lines, " inregistrare contabila", " inregistrari contabile");
}

bool OfAnotherCompany(const CompanyContent& backup, const CompanyContent& current) {
  if (!backup.fiscalCode.empty() && !current.fiscalCode.empty()) {
    return !EqualNoCase(backup.fiscalCode, current.fiscalCode);
  }
  if (backup.name.empty() && current.name.empty()) {
    const std::string name = UCase(backup.file.filename().string());
    return name.find(UCase(current.file.stem().string())) == std::string::npos;
  }
  return !EqualNoCase(backup.name, current.name);
}

std::string AnotherCompanyQuestion(const CompanyContent& backup, const CompanyContent& current) {
  const auto named = [](const CompanyContent& content) {
    const std::string name = content.name.empty() ? "o societate fara denumire" : content.name;
    return content.fiscalCode.empty() ? name : name + " (cod fiscal " + content.fiscalCode + ")";
  };
  return "Fisierul ales pare sa fie al altei societati: " + named(backup) + ", din " +
         Format(backup.moment, "dd.mm.yyyy hh:nn") + ".\nIn " + current.file.filename().string() +
         " este " + named(current) + ".\nDoriti sa o inlocuiti ?";
}

void RequireKnownStructure(const CompanyContent& content) {
  if (content.version <= kRevision) return;
  throw Failure(kDatabaseNotOpened, "Fisierul are structura " + std::to_string(content.version) +
                                        ", a unui program mai nou (acest program: structura " +
                                        std::to_string(kRevision) + "): " + content.file.string());
}

fs::path RestoreBackup(const fs::path& backup, const fs::path& target, const Progress& progress) {
  std::error_code error;
  if (fs::equivalent(backup, target, error)) {
    throw Failure(kPermissionDenied,
                  "Fisierul este chiar baza de date care s-ar inlocui: " + target.string());
  }
  RequireKnownStructure(Inspect(backup));
  KeptBefore before(target);
  OverwriteWithCopy(
      backup, target, [&](const fs::path&) { before.Make(); }, progress);
  before.Keep(backup);
  return before.Copy();
}

}  // namespace tevra
