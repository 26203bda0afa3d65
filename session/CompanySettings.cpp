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

TableDef SettingsTable() {
  const FieldDef name{.name = "NUME", .size = 50, .required = true, .defaultValue = {}};
  const FieldDef value{.name = "VALOARE", .size = 255, .defaultValue = {}};
  return {kTable, false, {name, value}, {{"PrimaryKey", {name.name}, true, true}}};
}

}  // namespace

bool IsOn(Connection& company, CompanySetting setting) {
  if (!Catalogue(company).HasTable(kTable)) return false;
  const Value value =
      company.QueryValue("SELECT VALOARE FROM kv_setari WHERE NUME = ?", {NameOf(setting)});
  return EqualNoCase(value.TextOrEmpty(), kOn);
}

void SetOn(Connection& company, CompanySetting setting, bool on) {
  Transaction transaction(company);
  Catalogue catalogue(company);
  const bool known = catalogue.HasTable(kTable);
  if (!known && on) catalogue.CreateTable(SettingsTable());
  if (known || on) {
    const Value stored = on ? kOn : kOff;
    const Value name = NameOf(setting);
    if (company.Execute("UPDATE kv_setari SET VALOARE = ? WHERE NUME = ?", {stored, name}) == 0) {
      company.Execute("INSERT INTO kv_setari (NUME, VALOARE) VALUES (?, ?)", {name, stored});
    }
  }
  transaction.Commit();
}

}  // namespace tevra
