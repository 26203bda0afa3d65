#include "platform/dialect/Rewriter.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/dialect/Expressions.h"
#include "platform/dialect/Joins.h"
#include "platform/dialect/SelectList.h"
#include "platform/dialect/Tokenizer.h"
#include "platform/text/Strings.h"

namespace tevra::dialect {

namespace {

std::size_t Find(const Nodes& nodes, const char* word, std::size_t at = 0) {
  while (at < nodes.size() && !Is(nodes[at], word)) ++at;
  return at;
}

void Erase(Nodes& nodes, Range range) {
  nodes.erase(nodes.begin() + static_cast<std::ptrdiff_t>(range.begin),
              nodes.begin() + static_cast<std::ptrdiff_t>(range.end));
}

void Insert(Nodes& nodes, std::size_t at, Nodes more) {
  nodes.insert(nodes.begin() + static_cast<std::ptrdiff_t>(at),
               std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

void Replace(Nodes& nodes, Range range, Nodes by) {
  Erase(nodes, range);
  Insert(nodes, range.begin, std::move(by));
}

// Definitions of tables, indexes and saved queries are not changed: they are stored in the file,
// where only SQLite's own functions are allowed.
bool IsRewritten(const Nodes& nodes) {
  if (nodes.empty()) return false;
  for (const char* word : {"SELECT", "INSERT", "UPDATE", "DELETE", "REPLACE", "WITH", "EXPLAIN"}) {
    if (Is(nodes.front(), word)) return true;
  }
  return false;
}

// --- Rules for every SELECT

// "SELECT TOP n .." becomes a LIMIT at the end.
void TopBecomesLimit(Nodes& nodes) {
  const auto clauses = FindSelect(nodes);
  if (!clauses) return;
  const std::size_t top = clauses->list.begin;
  if (top + 1 >= nodes.size() || !Is(nodes[top], "TOP")) return;
  Node count = nodes[top + 1];
  if (count.kind != Kind::Number && count.kind != Kind::Parameter) return;
  Erase(nodes, {top, top + 2});
  Insert(nodes, clauses->end - 2, {Word("LIMIT"), std::move(count)});
}

void FlattenJoins(Nodes& nodes) {
  for (auto clauses = FindSelect(nodes); clauses; clauses = FindSelect(nodes, clauses->end)) {
    const auto sources = ReadJoins(nodes, clauses->sources.begin, clauses->sources.end);
    const auto known = [](const JoinedSource& source) { return !source.kind.empty(); };
    if (!sources || !std::any_of(sources->begin(), sources->end(), known)) continue;
    Nodes flat = WriteJoins(*sources);
    const std::size_t behind = nodes.size() - clauses->end;
    Replace(nodes, clauses->sources, std::move(flat));
    clauses->end = nodes.size() - behind;
  }
}

bool IsPlainColumn(const Nodes& nodes, Range definition, const std::string& name) {
  const std::size_t last = definition.end - 1;
  const bool path = definition.end - definition.begin == 1 ||
                    (definition.end - definition.begin == 3 && IsSymbol(nodes[last - 1], "."));
  return path && IsName(nodes[last]) && EqualNoCase(PlainName(nodes[last]), name);
}

// Where a name is both alias and column, SQLite orders by the alias. After a sign it looks for the
// column first, as everywhere else.
void OrderByColumnsFirst(Nodes& nodes) {
  const auto clauses = FindSelect(nodes);
  if (!clauses || IsCompound(nodes) || clauses->order + 2 >= clauses->end) return;
  const auto items = ReadList(nodes, *clauses);
  auto keys = SplitAtCommas(nodes, clauses->order + 2, clauses->end);
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
    const bool name = key->begin < key->end && IsName(nodes[key->begin]);
    if (!name || (key->end > key->begin + 1 && nodes[key->begin + 1].kind != Kind::Word)) continue;
    const std::string alias = PlainName(nodes[key->begin]);
    const bool ambiguous = std::any_of(items.begin(), items.end(), [&](const ListItem& item) {
      return EqualNoCase(item.alias, alias) && !IsPlainColumn(nodes, item.definition, alias);
    });
    if (ambiguous) Insert(nodes, key->begin, {Symbol("+")});
  }
}

void RewriteSelects(Nodes& nodes) {
  for (Node& node : nodes) {
    if (node.kind == Kind::Group) RewriteSelects(node.items);
  }
  TopBecomesLimit(nodes);
  OrderByColumnsFirst(nodes);
  FlattenJoins(nodes);
}

// --- Rules for the outermost SELECT of a recordset

bool CallsAggregate(const Nodes& nodes) {
  for (std::size_t at = 0; at < nodes.size(); ++at) {
    if (nodes[at].kind != Kind::Group) continue;
    if (!nodes[at].items.empty() && Is(nodes[at].items.front(), "SELECT")) continue;
    for (const char* name : {"COUNT", "SUM", "AVG", "MIN", "MAX", "TOTAL", "GROUP_CONCAT"}) {
      if (at > 0 && Is(nodes[at - 1], name)) return true;
    }
    if (CallsAggregate(nodes[at].items)) return true;
  }
  return false;
}

std::vector<Source> ReadSources(const Nodes& nodes) {
  if (!Is(nodes.front(), "SELECT") || IsCompound(nodes)) return {};
  const auto clauses = FindSelect(nodes);
  if (clauses->distinct || clauses->grouped) return {};
  if (CallsAggregate(Slice(nodes, clauses->list.begin, clauses->list.end))) return {};
  const auto joined = ReadJoins(nodes, clauses->sources.begin, clauses->sources.end);
  std::vector<Source> sources;
  for (const JoinedSource& source : joined.value_or(std::vector<JoinedSource>())) {
    if (source.table.empty()) return {};
    sources.push_back({source.table, source.alias});
  }
  return sources;
}

void NameColumns(Nodes& nodes, const std::vector<std::string>& columns) {
  const auto clauses = FindSelect(nodes);
  const Range list = clauses ? clauses->list : Range{0, 0};
  if (columns.empty() || list.end != list.begin + 1 || !IsSymbol(nodes[list.begin], "*")) return;
  Nodes names;
  for (const std::string& column : columns) {
    if (!names.empty()) names.push_back(Symbol(","));
    names.push_back(QuotedName(column));
  }
  Replace(nodes, list, std::move(names));
}

void AddRowIds(Nodes& nodes, const std::vector<Source>& sources) {
  Nodes ids;
  for (std::size_t i = 0; i < sources.size(); ++i) {
    Append(ids, {Symbol(","), QuotedName(sources[i].alias), Symbol("."), Word("rowid"), Word("AS"),
                 Word("__row" + std::to_string(i + 1))});
  }
  if (!ids.empty()) Insert(nodes, FindSelect(nodes)->list.end, std::move(ids));
}

// --- Rules for statements that change rows

// "DELETE * FROM", "DELETE t.* FROM": the list has no meaning.
void DropDeleteList(Nodes& nodes) {
  if (!Is(nodes.front(), "DELETE")) return;
  const std::size_t from = Find(nodes, "FROM");
  if (from < nodes.size() && IsSymbol(nodes[from - 1], "*")) Erase(nodes, {1, from});
}

struct Assignment {
  std::string qualifier;
  Range name;  // with its qualifier
};

std::vector<Assignment> ReadAssignments(const Nodes& nodes, Range set) {
  std::vector<Assignment> assignments;
  for (const Range part : SplitAtCommas(nodes, set.begin, set.end)) {
    if (part.begin == part.end) return {};
    const std::size_t at = part.begin;
    const bool qualified = part.end > at + 3 && IsName(nodes[at]) && IsSymbol(nodes[at + 1], ".");
    assignments.push_back({qualified ? PlainName(nodes[at]) : "", {at, at + (qualified ? 3 : 1)}});
  }
  return assignments;
}

// The source named by the assignments' qualifiers; a single source needs no qualifier. Nothing when
// they name none or several, or when an outer join may leave its row empty.
std::optional<std::size_t> FindTarget(const std::vector<JoinedSource>& sources,
                                      const std::vector<Assignment>& assignments) {
  if (sources.size() == 1 && sources[0].nodes.size() == 1 && assignments[0].qualifier.empty()) {
    return std::nullopt;  // nothing to do
  }
  std::size_t target = 0;
  while (target < sources.size() && sources.size() > 1 &&
         !EqualNoCase(sources[target].alias, assignments.front().qualifier)) {
    ++target;
  }
  if (target == sources.size() || sources[target].table.empty()) return std::nullopt;
  for (const Assignment& assignment : assignments) {
    const std::string& name = assignment.qualifier;
    if (!EqualNoCase(name, sources[target].alias) && !(name.empty() && sources.size() == 1)) {
      return std::nullopt;
    }
  }
  for (const JoinedSource& source : sources) {
    const std::string& kind = source.kind;
    if (!kind.empty() && kind != "," && kind != "INNER JOIN") return std::nullopt;
  }
  return target;
}

void AddCondition(Nodes& conditions, Nodes condition) {
  if (condition.empty()) return;
  if (!conditions.empty()) conditions.push_back(Word("AND"));
  conditions.push_back(Group(std::move(condition)));
}

// "UPDATE a INNER JOIN b ON c SET b.x = a.y WHERE w": the table whose fields are set is updated
// from the others, where both conditions hold.
void UpdateFromJoin(Nodes& nodes) {
  const std::size_t set = Find(nodes, "SET");
  if (!Is(nodes.front(), "UPDATE") || set == nodes.size()) return;
  std::size_t end = nodes.size();
  if (IsSymbol(nodes.back(), ";")) --end;
  const std::size_t where = std::min(Find(nodes, "WHERE", set), end);
  const auto sources = ReadJoins(nodes, 1, set);
  const auto assignments = ReadAssignments(nodes, {set + 1, where});
  if (!sources || assignments.empty()) return;
  const auto target = FindTarget(*sources, assignments);
  if (!target) return;

  Nodes update = {nodes.front(), QuotedName((*sources)[*target].table)};
  if (!EqualNoCase((*sources)[*target].table, (*sources)[*target].alias)) {
    Append(update, {Word("AS"), QuotedName((*sources)[*target].alias)});
  }
  update.push_back(nodes[set]);
  for (std::size_t i = 0; i < assignments.size(); ++i) {
    if (i > 0) update.push_back(Symbol(","));
    const std::size_t next = i + 1 < assignments.size() ? assignments[i + 1].name.begin - 1 : where;
    Append(update, Slice(nodes, assignments[i].name.end - 1, next));
  }
  Nodes from;
  Nodes conditions;
  for (std::size_t i = 0; i < sources->size(); ++i) {
    AddCondition(conditions, (*sources)[i].condition);
    if (i == *target) continue;
    from.push_back(from.empty() ? Word("FROM") : Symbol(","));
    Append(from, (*sources)[i].nodes);
  }
  if (where < end) AddCondition(conditions, Slice(nodes, where + 1, end));
  Append(update, std::move(from));
  if (!conditions.empty()) {
    update.push_back(Word("WHERE"));
    Append(update, std::move(conditions));
  }
  nodes = std::move(update);
}

}  // namespace

Rewritten Rewrite(const std::string& sql, const Options& options) {
  Nodes nodes = ReadTree(sql);
  if (!IsRewritten(nodes)) return {sql, {}};
  if (!options.expandAliases.empty()) ExpandAliases(nodes, options.expandAliases);
  RewriteSelects(nodes);
  DropDeleteList(nodes);
  UpdateFromJoin(nodes);
  const auto sources = ReadSources(nodes);
  if (sources.size() == 1) NameColumns(nodes, options.columnsForStar);
  if (options.addRowIds) AddRowIds(nodes, sources);
  RewriteExpressions(nodes);
  if (options.rowKeyOf) RemoveSingleRowGroups(nodes, options.rowKeyOf);
  return {Render(nodes), sources};
}

std::vector<std::string> AliasesToExpand(const std::string& sql, const ColumnsOf& columnsOf) {
  std::vector<std::string> aliases;
  for (const UsedAlias& used : FindUsedAliases(ReadTree(sql))) {
    const auto columns = used.source.empty() ? std::vector<std::string>() : columnsOf(used.source);
    const bool isColumn = std::any_of(columns.begin(), columns.end(), [&](const auto& column) {
      return EqualNoCase(column, used.alias);
    });
    if (!isColumn) aliases.push_back(used.alias);
  }
  return aliases;
}

std::optional<PrimaryKeyStatement> AsPrimaryKeyStatement(const std::string& sql) {
  const Nodes nodes = ReadTree(sql);
  const bool other = nodes.size() < 8 || !Is(nodes[0], "CREATE") || !Is(nodes[1], "INDEX") ||
                     !IsName(nodes[2]) || !EqualNoCase(PlainName(nodes[2]), "PrimaryKey") ||
                     !Is(nodes[3], "ON") || !IsName(nodes[4]) || nodes[5].kind != Kind::Group ||
                     !Is(nodes[6], "WITH") || !Is(nodes[7], "PRIMARY");
  if (other) return std::nullopt;
  PrimaryKeyStatement statement{PlainName(nodes[4]), {}};
  const Nodes& fields = nodes[5].items;
  for (const Range field : SplitAtCommas(fields, 0, fields.size())) {
    if (field.end != field.begin + 1 || !IsName(fields[field.begin])) return std::nullopt;
    statement.fields.push_back(PlainName(fields[field.begin]));
  }
  return statement;
}

}  // namespace tevra::dialect
