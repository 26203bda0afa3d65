#include "session/CompanySettings.h"

#include <string>

#include "platform/data/Catalogue.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr const char* kTable = "kv_setari";
constexpr const char* kOn = "D";
constexpr const char* kOff = "N";

std::string NameOf(CompanySetting setting) {
  switch (setting) {
    case CompanySetting::kDocumentWithYear:
      return "DocumentLunaCuAn";
  }
  return {};
}

std::string NameOf(CompanyText setting) {
  switch (setting) {
    case CompanyText::kPendingExport:
      return "ExportNeterminat";
    case CompanyText::kCheckedOn:
      return "VerificatLa";
  }
  return {};
}

TableDef SettingsTable() {
  const FieldDef name{.name = "NUME", .size = 50, .required = true, .defaultValue = {}};
  const FieldDef value{.name = "VALOARE", .size = 255, .defaultValue = {}};
  return {kTable, false, {name, value}, {{"PrimaryKey", {name.name}, true, true}}};
}

bool HasSettings(Connection& company) {
  return Catalogue(company).HasTable(kTable);
}

std::string Stored(Connection& company, const std::string& name) {
  if (!HasSettings(company)) return {};
  return company.QueryValue("SELECT VALOARE FROM kv_setari WHERE NUME = ?", {name}).TextOrEmpty();
}

void Store(Connection& company, const std::string& name, const std::string& value) {
  if (!HasSettings(company)) Catalogue(company).CreateTable(SettingsTable());
  if (company.Execute("UPDATE kv_setari SET VALOARE = ? WHERE NUME = ?", {value, name}) == 0) {
    company.Execute("INSERT INTO kv_setari (NUME, VALOARE) VALUES (?, ?)", {name, value});
  }
}

}  // namespace

bool IsOn(Connection& company, CompanySetting setting) {
  return EqualNoCase(Stored(company, NameOf(setting)), kOn);
}

void SetOn(Connection& company, CompanySetting setting, bool on) {
  Transaction transaction(company);
  if (on || HasSettings(company)) Store(company, NameOf(setting), on ? kOn : kOff);
  transaction.Commit();
}

std::string TextOf(Connection& company, CompanyText setting) {
  return Stored(company, NameOf(setting));
}

void SetText(Connection& company, CompanyText setting, const std::string& text) {
  Transaction transaction(company);
  if (!text.empty()) {
    Store(company, NameOf(setting), text);
  } else if (HasSettings(company)) {
    company.Execute("DELETE FROM kv_setari WHERE NUME = ?", {NameOf(setting)});
  }
  transaction.Commit();
}

}  // namespace tevra
