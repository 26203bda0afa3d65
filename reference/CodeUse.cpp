#include "reference/CodeUse.h"

#include <map>

#include "platform/data/Connection.h"
#include "platform/text/Strings.h"
#include "session/Session.h"

namespace tevra {

namespace {

struct Words {
  const char* one;
  const char* many;
};

const Words& WordsOf(const std::string& table) {
  static const std::map<std::string, Words> kWords{
      {"I_IMO", {"o imobilizare", "imobilizari"}},
      {"I_INV", {"un obiect de inventar", "obiecte de inventar"}},
      {"I_CONTURIIM", {"o asociere de conturi", "asocieri de conturi"}},
      {"KV_LINII", {"o inregistrare contabila", "inregistrari contabile"}},
      {"KV_PAR", {"configurarea societatii", "configurari"}},
      {"KV_VAL2", {"un curs valutar", "cursuri valutare"}}};
  return kWords.at(UCase(table));
}

std::int64_t CountUses(Connection& company, const Value& code, const ReferenceUser& user) {
  std::string condition;
  Values values;
  for (const char* column : user.columns) {
    condition += (condition.empty() ? "" : " OR ") + std::string(column) + " = ?";
    values.push_back(code);
  }
  return company
      .QueryValue("SELECT COUNT(*) FROM " + std::string(user.table) + " WHERE " + condition, values)
      .Whole();
}

// "20 de imobilizari": from 20 on, but for 101 to 119 of each hundred, a "de" follows the number.
std::string Counted(std::int64_t count, const Words& words) {
  if (count == 1) return words.one;
  const std::int64_t rest = count % 100;
  const bool de = rest == 0 || rest >= 20;
  return std::to_string(count) + (de ? " de " : " ") + words.many;
}

}  // namespace

std::string UseSentence(const Value& code, const std::vector<ReferenceUser>& users) {
  if (code.IsNull() || users.empty()) return {};
  Connection company(CurrentSession().connectionString);
  std::vector<std::string> uses;
  for (const ReferenceUser& user : users) {
    const std::int64_t count = CountUses(company, code, user);
    if (count > 0) uses.push_back(Counted(count, WordsOf(user.table)));
  }
  std::string list;
  for (std::size_t i = 0; i < uses.size(); ++i) {
    if (i > 0) list += i + 1 == uses.size() ? " si " : ", ";
    list += uses[i];
  }
  return list.empty() ? std::string() : "\n\nEste folosit in " + list + ".";
}

}  // namespace tevra
