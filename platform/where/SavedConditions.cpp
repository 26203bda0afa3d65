#include "platform/where/SavedConditions.h"

#include <sstream>

#include "platform/system/Settings.h"
#include "platform/text/Csv.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

// A condition is a line: the set's name, field, operator, value, second value, title.
constexpr std::size_t kCells = 6;

std::string LineOf(const std::string& name, const Condition& condition) {
  return CsvText(name) + "," + CsvText(condition.field) + "," +
         std::to_string(static_cast<int>(condition.op)) + "," + CsvText(condition.value) + "," +
         CsvText(condition.second) + "," + CsvText(condition.title) + "\n";
}

bool IsOperator(const std::string& text) {
  return text.size() == 1 && text[0] >= '0' &&
         text[0] <= '0' + static_cast<int>(WhereOperator::kEmpty);
}

}  // namespace

bool SavedConditions::NoCase::operator()(const std::string& a, const std::string& b) const {
  return CompareNoCase(a, b) < 0;
}

SavedConditions::Sets SavedConditions::Read() const {
  Sets sets;
  std::istringstream stored(Settings().Get(key_).value_or(""));
  CsvReader reader(stored);
  try {
    while (const auto cells = reader.Next()) {
      if (cells->size() != kCells || !IsOperator((*cells)[2].text)) continue;
      sets[(*cells)[0].text].push_back({(*cells)[1].text,
                                        static_cast<WhereOperator>((*cells)[2].text[0] - '0'),
                                        (*cells)[3].text, (*cells)[4].text, (*cells)[5].text});
    }
  } catch (const Failure&) {
    sets.clear();
  }
  return sets;
}

std::vector<std::string> SavedConditions::Names() const {
  std::vector<std::string> names;
  for (const auto& [name, conditions] : Read()) names.push_back(name);
  return names;
}

std::vector<Condition> SavedConditions::Of(const std::string& name) const {
  const Sets sets = Read();
  const auto found = sets.find(name);
  return found == sets.end() ? std::vector<Condition>() : found->second;
}

void SavedConditions::Save(const std::string& name, const std::vector<Condition>& conditions) {
  Sets sets = Read();
  sets.erase(name);  // the name may come in other letters
  sets[name] = conditions;
  Store(sets);
}

void SavedConditions::Remove(const std::string& name) {
  Sets sets = Read();
  sets.erase(name);
  Store(sets);
}

void SavedConditions::Store(const Sets& sets) const {
  std::string lines;
  for (const auto& [name, conditions] : sets) {
    for (const Condition& condition : conditions) lines += LineOf(name, condition);
  }
  Settings().Set(key_, lines);
}

}  // namespace tevra
