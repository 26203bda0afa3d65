#include "platform/data/TableLoader.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/data/Catalogue.h"
#include "platform/data/Database.h"
#include "platform/text/Csv.h"
#include "platform/text/Dates.h"
#include "platform/text/FailureText.h"
#include "platform/text/Invariant.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

double InvariantNumber(const std::string& text) {
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [last, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc::result_out_of_range) throw ValueFailure(kOverflow, text);
  if (error != std::errc() || last != end || !std::isfinite(number)) {
    throw ValueFailure(kTypeMismatch, text);
  }
  return number;
}

// Fractions are not rounded: 2.5 in a field of whole years is a mistake in the file, which the user
// must correct.
double WholeNumber(const std::string& text) {
  const double number = InvariantNumber(text);
  if (number != std::floor(number)) throw ValueFailure(kTypeMismatch, text);
  return number;
}

DateTime InvariantDate(const std::string& text) {
  const auto date = WholeDate(text);
  if (!date) throw ValueFailure(kTypeMismatch, text);
  return *date;
}

Value InvariantYesNo(const std::string& text) {
  const Value value(text);
  for (const char* word : {"True", "Da", "False", "Nu"}) {
    if (EqualNoCase(text, word)) return Value::YesNo(value.AsBool());
  }
  const double number = WholeNumber(text);
  if (number < -1 || number > 1) throw ValueFailure(kTypeMismatch, text);
  return Value::YesNo(number != 0);
}

// Reads the file's forms; the conversion to the field's type follows.
Value InvariantValue(const std::string& text, const FieldDef& field) {
  try {
    switch (field.type) {
      case FieldType::YesNo:
        return InvariantYesNo(text);
      case FieldType::Double:
        return InvariantNumber(text);
      case FieldType::DateTime:
        return InvariantDate(text);
      default:
        return WholeNumber(text);
    }
  } catch (const Failure& failure) {
    throw Failure(failure.Number(), field.name + ": " + failure.Description());
  }
}

Value CellValue(const CsvCell& cell, const FieldDef& field, bool quotedEmptyIsText) {
  if (cell.text.empty()) {
    // Yes/no has no Null; a missing value is no.
    if (field.type == FieldType::YesNo) return Value::YesNo(false);
    const bool text = quotedEmptyIsText && cell.quoted && field.type == FieldType::Text;
    return text ? Value("") : Value();
  }
  if (field.type == FieldType::Text) return ConvertToField(cell.text, field);
  return ConvertToField(InvariantValue(Trim(cell.text), field), field);
}

class Loader {
 public:
  Loader(Connection& connection, CsvReader& reader, const std::string& table,
         bool quotedEmptyIsText)
      : connection_(connection),
        reader_(reader),
        table_(Catalogue(connection).Table(table)),
        quotedEmptyIsText_(quotedEmptyIsText) {
    if (table_.system) throw Failure(kItemNotFound, "Item not found: " + table);
    ReadHeader();
  }

  LoadResult Run() {
    LoadResult result;
    Transaction transaction(connection_);
    sqlite3* db = detail::DatabaseOf(connection_)->db;
    const auto before = sqlite3_total_changes64(db);
    detail::Statement insert(*detail::DatabaseOf(connection_), InsertSql());
    for (;;) {
      try {
        const auto row = reader_.Next();
        if (!row) break;
        Insert(insert, *row);
        ++result.rows;
      } catch (const Failure& failure) {
        if (!ConcernsOneRow(failure)) throw;
        insert.Reset();
        result.refused.push_back({reader_.Line(), failure.Description()});
      }
    }
    if (!result.refused.empty()) {
      result.rows = 0;
      return result;
    }
    InvariantEqual(sqlite3_total_changes64(db) - before, result.rows,
                   "randurile incarcate nu sunt cate s-au citit");
    transaction.Commit();
    return result;
  }

 private:
  static bool ConcernsOneRow(const Failure& failure) {
    return failure.Number() == kTypeMismatch || failure.Number() == kOverflow ||
           failure.Number() == kValueNotAccepted;
  }

  void ReadHeader() {
    const auto header = reader_.Next();
    if (!header)
      throw Failure(kValueNotAccepted, "Valoare neacceptata: fisierul nu are rand de antet");
    for (const CsvCell& cell : *header) {
      const std::string name = Trim(cell.text);
      const FieldDef* field = table_.Find(name);
      if (!field) throw Failure(kItemNotFound, "Item not found: " + table_.name + "." + name);
      for (const FieldDef* other : fields_) {
        if (other != field) continue;
        throw Failure(kValueNotAccepted,
                      "Valoare neacceptata: coloana " + name + " apare de doua ori");
      }
      fields_.push_back(field);
    }
  }

  std::string InsertSql() const {
    std::string names;
    std::string marks;
    for (const FieldDef* field : fields_) {
      names += (names.empty() ? "" : ", ") + detail::Quoted(field->name);
      marks += marks.empty() ? "?" : ", ?";
    }
    return "INSERT INTO " + detail::Quoted(table_.name) + " (" + names + ") VALUES (" + marks + ")";
  }

  void Insert(detail::Statement& insert, const std::vector<CsvCell>& row) {
    if (row.size() != fields_.size()) {
      throw Failure(kValueNotAccepted, "Valoare neacceptata: " + std::to_string(row.size()) +
                                           " celule sub " + std::to_string(fields_.size()) +
                                           " coloane");
    }
    RequireAbsent();
    for (std::size_t i = 0; i < row.size(); ++i) {
      const Value value = CellValue(row[i], *fields_[i], quotedEmptyIsText_);
      if (value.IsNull()) Require(*fields_[i]);
      insert.Bind(static_cast<int>(i) + 1, value);
    }
    insert.Step();
    insert.Reset();
  }

  static void Require(const FieldDef& field) {
    if (!field.required || field.autoNumber) return;
    throw Failure(kValueNotAccepted,
                  "Valoare neacceptata: " + field.name + ": valoarea este obligatorie");
  }

  // SQLite would number a key itself if the file had none.
  void RequireAbsent() const {
    for (const FieldDef& field : table_.fields) {
      if (!field.defaultValue.empty()) continue;
      if (std::find(fields_.begin(), fields_.end(), &field) == fields_.end()) Require(field);
    }
  }

  Connection& connection_;
  CsvReader& reader_;
  TableDef table_;
  bool quotedEmptyIsText_;
  std::vector<const FieldDef*> fields_;
};

}  // namespace

LoadResult LoadTable(Connection& connection, std::istream& csv, const std::string& table,
                     bool quotedEmptyIsText) {
  CsvReader reader(csv);
  return Loader(connection, reader, table, quotedEmptyIsText).Run();
}

}  // namespace tevra
