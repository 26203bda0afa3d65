#include "exchange/WorkTables.h"

#include <exception>
#include <fstream>
#include <optional>
#include <set>
#include <vector>

#include "exchange/ExchangeHeader.h"
#include "platform/data/Catalogue.h"
#include "platform/data/Command.h"
#include "platform/data/MoneySum.h"
#include "platform/rowset/RowsetReader.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr const char* kOtherVersion =
    "Versiunile dintre bazele de date de Export si Import sunt diferite, nu am putut importa: ";
constexpr int kRowsBetweenReports = 256;

/// Adds up the lines while they pass.
class LineSums {
 public:
  LineSums(const std::vector<FieldInfo>& fields, const ExchangeHeader& header) : header_(header) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      for (const auto& [name, column] :
           {std::pair{"DATAINR", &day_}, std::pair{"DEBIT", &debit_}, {"CREDIT", &credit_}}) {
        if (EqualNoCase(fields[i].def.name, name)) *column = i;
      }
    }
  }

  void Add(const Values& row) {
    ++lines_;
    if (debit_) debits_.Add(NumberOf(row[*debit_]));
    if (credit_) credits_.Add(NumberOf(row[*credit_]));
    if (day_ && !IsInside(row[*day_])) ++outside_;
  }
  LoadedLines Result() const { return {lines_, outside_, debits_.Total(), credits_.Total()}; }

 private:
  static double NumberOf(const Value& value) { return value.IsNull() ? 0 : value.AsDouble(); }
  bool IsInside(const Value& day) const {
    if (day.IsNull()) return false;
    const DateTime date = day.AsDateTime();
    return !(date < header_.from) && !(header_.to < date);
  }

  const ExchangeHeader& header_;
  std::optional<std::size_t> day_;
  std::optional<std::size_t> debit_;
  std::optional<std::size_t> credit_;
  std::int64_t lines_ = 0;
  std::int64_t outside_ = 0;
  MoneySum debits_;
  MoneySum credits_;
};

class Loader {
 public:
  Loader(Connection& company, const LoadRequest& request, LoadedLines& lines)
      : company_(company),
        request_(request),
        lines_(lines),
        in_(OpenExchange(request.file)),
        xml_(in_, request.file) {}

  bool Run() {
    for (const ExchangeTable* table : kExchangeOrder) {
      if (table != &kLines || !request_.header.isCentre) missing_.insert(table);
    }
    try {
      ReadDocument();
    } catch (const Failure&) {
      // What follows a failure that the user has seen is not reported again.
      if (allDone_) throw;
    }
    return allDone_;
  }

 private:
  void ReadDocument() {
    bool read = !xml_.Is("", kExchangeRoot);
    while (xml_.NextChild(0)) {
      if (read || !xml_.Is("", kExchangeTables)) continue;
      read = true;
      while (xml_.NextChild(1)) ReadElement();
    }
    xml_.Finish();
    if (missing_.empty()) return;
    xml_.Fail(kNotReadable, std::string("lipseste IE/Tables/") + (*missing_.begin())->element);
  }

  void ReadElement() {
    for (const ExchangeTable* table : kExchangeOrder) {
      if (!xml_.Is("", table->element)) continue;
      if (table == &kLines && request_.header.isCentre) return;
      if (missing_.erase(table) == 0) {
        xml_.Fail(kNotReadable, std::string(table->element) + " apare de doua ori");
      }
      ReadTable(*table);
      return;
    }
  }

  void ReadTable(const ExchangeTable& table) {
    std::optional<RowsetReader> rows;
    const bool opened = request_.run("XMLNode2Recordset", table.table, [&] {
      if (!xml_.NextChild(2)) {
        xml_.Fail(kNotReadable, std::string("IE/Tables/") + table.element + " este gol");
      }
      rows.emplace(xml_, RowsetReader::Changes::kRefuse);
    });
    if (!opened) {
      allDone_ = false;
      return;
    }
    std::exception_ptr unread;
    bool inserted = false;
    const bool ran = request_.run("InsertFromRstTemp", table.table,
                                  [&] { inserted = InsertFromRstTemp(*rows, table, unread); });
    if (unread) {
      request_.run("XMLNode2Recordset", table.table, [&] { std::rethrow_exception(unread); });
    }
    if (!ran || !inserted || unread) allDone_ = false;
  }

  // False when the file comes from another structure. A row that cannot be read ends the table and
  // is kept in `unread`, because another procedure answers for it.
  bool InsertFromRstTemp(RowsetReader& rows, const ExchangeTable& table,
                         std::exception_ptr& unread) {
    company_.Execute(std::string("delete from ") + table.work);
    const TableDef work = Catalogue(company_).Table(table.work);
    if (work.fields.size() != rows.Fields().size()) {
      request_.refuse(std::string(kOtherVersion) + table.table);
      return false;
    }
    const std::vector<const FieldDef*> targets = TargetsOf(rows.Fields(), work);
    Command insert(company_, InsertSql(work.name, targets));
    LineSums sums(rows.Fields(), request_.header);
    int count = 0;
    Values row;
    while (Next(rows, row, unread)) {
      Convert(row, targets);
      insert.Execute(row);
      if (&table != &kLines) continue;
      sums.Add(row);
      if (++count % kRowsBetweenReports == 0) Report(count);
    }
    if (&table == &kLines) lines_ = sums.Result();
    return true;
  }

  static std::vector<const FieldDef*> TargetsOf(const std::vector<FieldInfo>& fields,
                                                const TableDef& work) {
    std::vector<const FieldDef*> targets;
    for (const FieldInfo& field : fields) {
      const FieldDef* target = work.Find(field.def.name);
      if (!target) {
        throw Failure(kItemNotFound, "Item not found: " + work.name + "." + field.def.name);
      }
      targets.push_back(target);
    }
    return targets;
  }

  static std::string InsertSql(const std::string& table,
                               const std::vector<const FieldDef*>& targets) {
    std::string names;
    std::string marks;
    for (const FieldDef* target : targets) {
      names += (names.empty() ? "[" : ", [") + target->name + "]";
      marks += marks.empty() ? "?" : ", ?";
    }
    return "insert into " + table + " (" + names + ") values (" + marks + ")";
  }

  static bool Next(RowsetReader& rows, Values& row, std::exception_ptr& unread) {
    try {
      return rows.Next(row);
    } catch (const Failure&) {
      unread = std::current_exception();
      return false;
    }
  }

  void Convert(Values& row, const std::vector<const FieldDef*>& targets) const {
    try {
      for (std::size_t i = 0; i < row.size(); ++i) {
        if (!row[i].IsNull()) row[i] = ConvertToField(row[i], *targets[i]);
      }
    } catch (const Failure& failure) {
      xml_.Fail(failure.Number(), failure.Description());
    }
  }

  void Report(int lines) const {
    if (request_.progress && !request_.progress(lines, 0)) throw LoadStopped();
  }

  Connection& company_;
  const LoadRequest& request_;
  LoadedLines& lines_;
  std::ifstream in_;
  XmlReader xml_;
  std::set<const ExchangeTable*> missing_;  // not met yet
  bool allDone_ = true;
};

}  // namespace

bool LoadWorkTables(Connection& company, const LoadRequest& request, LoadedLines& lines) {
  return Loader(company, request, lines).Run();
}

}  // namespace tevra
