#include "platform/dialect/SingleRowGroups.h"

#include <algorithm>
#include <optional>

#include "platform/dialect/Joins.h"
#include "platform/dialect/SelectList.h"
#include "platform/text/Strings.h"

namespace tevra::dialect {

namespace {

bool IsCall(const Nodes& nodes, std::size_t at) {
  return at + 1 < nodes.size() && nodes[at].kind == Kind::Word && nodes[at + 1].kind == Kind::Group;
}

bool IsStatement(const Node& group) {
  return !group.items.empty() && Is(group.items.front(), "SELECT");
}

bool IsOtherAggregate(const Node& name) {
  for (const char* aggregate : {"COUNT", "AVG", "MIN", "MAX", "TOTAL", "GROUP_CONCAT"}) {
    if (Is(name, aggregate)) return true;
  }
  return false;
}

// A plain SUM of one expression, without DISTINCT, FILTER or OVER.
bool IsPlainSum(const Nodes& nodes, std::size_t at) {
  const Nodes& argument = nodes[at + 1].items;
  const bool plain = !argument.empty() && !Is(argument.front(), "DISTINCT") &&
                     SplitAtCommas(argument, 0, argument.size()).size() == 1;
  const bool alone =
      at + 2 == nodes.size() || !(Is(nodes[at + 2], "FILTER") || Is(nodes[at + 2], "OVER"));
  return plain && alone;
}

enum class Aggregates { None, Sums, Others };

Aggregates AggregatesIn(const Nodes& nodes) {
  Aggregates found = Aggregates::None;
  for (std::size_t at = 0; at < nodes.size(); ++at) {
    if (IsCall(nodes, at)) {
      if (IsOtherAggregate(nodes[at])) return Aggregates::Others;
      if (Is(nodes[at], "SUM")) {
        if (!IsPlainSum(nodes, at)) return Aggregates::Others;
        found = Aggregates::Sums;
      }
    }
    if (nodes[at].kind != Kind::Group || IsStatement(nodes[at])) continue;
    found = std::max(found, AggregatesIn(nodes[at].items));
    if (found == Aggregates::Others) return found;
  }
  return found;
}

// "SUM(x)" becomes "(x + 0)", which is a number as the sum is.
void ReplaceSums(Nodes& nodes) {
  Nodes replaced;
  for (std::size_t at = 0; at < nodes.size(); ++at) {
    const bool sum = IsCall(nodes, at) && Is(nodes[at], "SUM");
    Node node = sum ? nodes[++at] : nodes[at];
    if (node.kind == Kind::Group && !IsStatement(node)) ReplaceSums(node.items);
    if (sum) {
      Node zero = Word("0");
      zero.kind = Kind::Number;
      node = Group({std::move(node), Symbol("+"), std::move(zero)});
    }
    replaced.push_back(std::move(node));
  }
  nodes = std::move(replaced);
}

// GROUP up to ORDER or the end; nothing where more than a GROUP BY stands there.
std::optional<Range> GroupClause(const Nodes& nodes, const SelectClauses& clauses) {
  std::size_t group = clauses.sources.end;
  while (group < clauses.order && !Is(nodes[group], "GROUP")) ++group;
  if (group + 2 >= clauses.order || !Is(nodes[group + 1], "BY")) return std::nullopt;
  for (std::size_t at = group; at < clauses.end; ++at) {
    for (const char* word : {"HAVING", "LIMIT", "WINDOW"}) {
      if (Is(nodes[at], word)) return std::nullopt;
    }
  }
  return Range{group, clauses.order};
}

bool IsColumnOf(const Nodes& nodes, Range item, const std::string& alias,
                const std::string& column) {
  const std::size_t length = item.end - item.begin;
  const std::size_t last = item.end - 1;
  if ((length != 1 && length != 3) || !IsName(nodes[last])) return false;
  if (!EqualNoCase(PlainName(nodes[last]), column)) return false;
  return length == 1 || (IsSymbol(nodes[last - 1], ".") && IsName(nodes[item.begin]) &&
                         EqualNoCase(PlainName(nodes[item.begin]), alias));
}

bool GroupsByRow(const Nodes& nodes, const SelectClauses& clauses, Range group,
                 const RowKeyOf& rowKeyOf) {
  const auto sources = ReadJoins(nodes, clauses.sources.begin, clauses.sources.end);
  if (!sources || sources->size() != 1 || sources->front().table.empty()) return false;
  const std::string key = rowKeyOf(sources->front().table);
  if (key.empty()) return false;
  const auto keys = SplitAtCommas(nodes, group.begin + 2, group.end);
  return std::any_of(keys.begin(), keys.end(), [&](Range item) {
    return item.begin < item.end && IsColumnOf(nodes, item, sources->front().alias, key);
  });
}

bool SumsCanGo(const Nodes& nodes, const SelectClauses& clauses) {
  if (AggregatesIn(Slice(nodes, clauses.order, clauses.end)) != Aggregates::None) return false;
  const auto items = ReadList(nodes, clauses);
  return std::all_of(items.begin(), items.end(), [&](const ListItem& item) {
    const Aggregates found = AggregatesIn(Slice(nodes, item.definition.begin, item.definition.end));
    return found == Aggregates::None || (found == Aggregates::Sums && !item.alias.empty());
  });
}

}  // namespace

void RemoveSingleRowGroups(Nodes& nodes, const RowKeyOf& rowKeyOf) {
  for (Node& node : nodes) {
    if (node.kind == Kind::Group) RemoveSingleRowGroups(node.items, rowKeyOf);
  }
  for (auto clauses = FindSelect(nodes); clauses; clauses = FindSelect(nodes, clauses->end)) {
    if (!clauses->grouped || clauses->distinct) continue;
    const auto group = GroupClause(nodes, *clauses);
    if (!group || !GroupsByRow(nodes, *clauses, *group, rowKeyOf)) continue;
    if (!SumsCanGo(nodes, *clauses)) continue;
    Nodes list = Slice(nodes, clauses->list.begin, clauses->list.end);
    ReplaceSums(list);
    Nodes result = Slice(nodes, 0, clauses->list.begin);
    Append(result, std::move(list));
    Append(result, Slice(nodes, clauses->list.end, group->begin));
    const std::size_t behind = nodes.size() - clauses->end;
    Append(result, Slice(nodes, group->end, nodes.size()));
    nodes = std::move(result);
    clauses->end = nodes.size() - behind;
  }
}

}  // namespace tevra::dialect
