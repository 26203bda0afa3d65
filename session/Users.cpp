#include "session/Users.h"

#include "platform/data/Recordset.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr const char* kFullRightsMustRemain =
    "Trebuie sa ramana cel putin un utilizator cu parola si de tipul 0 (Toate) !";

bool IsBlank(const Value& value) {
  return Trim(value.TextOrEmpty()).empty();
}

// TIP may be Null in companies that other programs wrote; Null gives no rights.
bool HasFullRights(const Value& type, const Value& password) {
  return !type.IsNull() && type.AsLong() == 0 && !IsBlank(password);
}

struct OtherUsers {
  bool fullRights = false;
  bool sameName = false;
};

OtherUsers LookAtOthers(Connection& company, const std::string& name, const std::string& newName) {
  OtherUsers others;
  Recordset rows =
      company.OpenRecordset("SELECT NUME, PAROLA, TIP FROM UTILIZATORI WHERE NUME <> ?", {name});
  for (; !rows.Eof(); rows.MoveNext()) {
    if (HasFullRights(rows.Get("TIP"), rows.Get("PAROLA"))) others.fullRights = true;
    if (EqualNoCase(Trim(rows.Get("NUME").TextOrEmpty()), Trim(newName))) others.sameName = true;
  }
  return others;
}

// The last one with full rights must not lose them.
bool IsLastWithFullRights(Connection& company, const std::string& name) {
  const Recordset row =
      company.OpenRecordset("SELECT PAROLA, TIP FROM UTILIZATORI WHERE NUME = ?", {name});
  return !row.Eof() && HasFullRights(row.Get("TIP"), row.Get("PAROLA")) &&
         !LookAtOthers(company, name, name).fullRights;
}

std::optional<std::string> RefusalOfName(Connection& company, const std::string& name,
                                         const Value& value) {
  const std::string newName = value.TextOrEmpty();
  if (newName == name) return std::nullopt;
  if (name == kProtectedUser) return "Numele utilizatorului admin nu se poate modifica !";
  if (IsBlank(value)) return "Va rugam introduceti numele !";
  if (LookAtOthers(company, name, newName).sameName) {
    return "Acest nume de utilizator exista deja ! Modificarea nu se poate efectua !";
  }
  return std::nullopt;
}

std::optional<std::string> RefusalOfType(Connection& company, const std::string& name,
                                         const Value& value) {
  if (name == kProtectedUser) return "Nu se poate modifica tipul pentru utilizatorul admin !";
  const bool keepsRights = !value.IsNull() && value.AsLong() == 0;
  if (!keepsRights && IsLastWithFullRights(company, name)) return kFullRightsMustRemain;
  return std::nullopt;
}

}  // namespace

std::optional<std::string> RefusalOfUserChange(Connection& company, const std::string& name,
                                               const std::string& field, const Value& value) {
  if (EqualNoCase(field, "NUME")) return RefusalOfName(company, name, value);
  if (EqualNoCase(field, "TIP")) return RefusalOfType(company, name, value);
  if (IsBlank(value)) return "Va rugam introduceti parola !";
  return std::nullopt;
}

std::optional<std::string> RefusalOfUserDeletion(Connection& company, const std::string& name) {
  if (name == kProtectedUser) return "Utilizatorul admin nu se poate sterge !";
  if (IsLastWithFullRights(company, name)) return kFullRightsMustRemain;
  return std::nullopt;
}

}  // namespace tevra
