#include "platform/dialect/SelectList.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/text/Failure.h"
#include "platform/text/Strings.h"

namespace tevra::dialect {

namespace {

constexpr int kDeepestAlias = 16;      // aliases defined by aliases
constexpr int kMostExpansions = 2000;  // in one list

bool EndsSelect(const Node& node) {
  return Is(node, "UNION") || Is(node, "EXCEPT") || Is(node, "INTERSECT") || IsSymbol(node, ";");
}

bool EndsSources(const Node& node) {
  for (const char* word : {"WHERE", "GROUP", "HAVING", "ORDER", "LIMIT"}) {
    if (Is(node, word)) return true;
  }
  return false;
}

struct NoCase {
  bool operator()(const std::string& a, const std::string& b) const {
    return CompareNoCase(a, b) < 0;
  }
};

// A name that is neither qualified, nor a qualifier, nor a function.
bool IsAlone(const Nodes& nodes, std::size_t at) {
  if (!IsName(nodes[at]) || (at > 0 && IsSymbol(nodes[at - 1], "."))) return false;
  return at + 1 == nodes.size() ||
         !(IsSymbol(nodes[at + 1], ".") || nodes[at + 1].kind == Kind::Group);
}

bool IsStatement(const Node& node) {
  return !node.items.empty() && Is(node.items.front(), "SELECT");
}

bool Uses(const Nodes& nodes, const std::string& name) {
  for (std::size_t at = 0; at < nodes.size(); ++at) {
    if (IsAlone(nodes, at) && EqualNoCase(PlainName(nodes[at]), name)) return true;
    if (!IsStatement(nodes[at]) && Uses(nodes[at].items, name)) return true;
  }
  return false;
}

// The definitions of the aliases of one list.
class Expansion {
 public:
  Expansion(const Nodes& nodes, const std::vector<ListItem>& items,
            const std::vector<std::string>& wanted) {
    for (const ListItem& item : items) {
      const bool asked = std::any_of(wanted.begin(), wanted.end(), [&](const auto& name) {
        return EqualNoCase(name, item.alias);
      });
      if (asked && !item.alias.empty()) {
        definitions_[item.alias] = Slice(nodes, item.definition.begin, item.definition.end);
      }
    }
  }

  bool IsEmpty() const { return definitions_.empty(); }

  // The nodes with all aliases replaced except those being expanded.
  Nodes Expanded(const Nodes& nodes, const std::vector<std::string>& within) {
    Nodes result;
    for (std::size_t at = 0; at < nodes.size(); ++at) {
      const Node& node = nodes[at];
      const auto definition =
          IsAlone(nodes, at) ? definitions_.find(PlainName(node)) : definitions_.end();
      if (definition != definitions_.end() && !Contains(within, definition->first)) {
        if (++count_ > kMostExpansions || within.size() > kDeepestAlias) {
          throw Failure(kStatementError, "Too many aliases within aliases");
        }
        std::vector<std::string> deeper = within;
        deeper.push_back(definition->first);
        result.push_back(Group(Expanded(definition->second, deeper)));
        result.back().spaced = node.spaced;
      } else {
        result.push_back(node);
        if (!IsStatement(node)) result.back().items = Expanded(node.items, within);
      }
    }
    return result;
  }

 private:
  static bool Contains(const std::vector<std::string>& names, const std::string& name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& other) { return EqualNoCase(other, name); });
  }

  std::map<std::string, Nodes, NoCase> definitions_;
  int count_ = 0;
};

}  // namespace

std::optional<SelectClauses> FindSelect(const Nodes& nodes, std::size_t at) {
  while (at < nodes.size() && !Is(nodes[at], "SELECT")) ++at;
  if (at >= nodes.size()) return std::nullopt;
  SelectClauses clauses;
  clauses.select = at++;
  while (at < nodes.size() && (Is(nodes[at], "DISTINCT") || Is(nodes[at], "ALL"))) {
    clauses.distinct = clauses.distinct || Is(nodes[at], "DISTINCT");
    ++at;
  }
  const auto seek = [&](auto&& found) {
    while (at < nodes.size() && !EndsSelect(nodes[at]) && !found(nodes[at])) ++at;
    return at;
  };
  clauses.list.begin = at;
  clauses.from = clauses.list.end =
      seek([](const Node& node) { return Is(node, "FROM") || EndsSources(node); });
  const bool from = at < nodes.size() && Is(nodes[at], "FROM");
  clauses.sources.begin = from ? ++at : at;
  clauses.sources.end = seek(EndsSources);
  clauses.order = seek([&](const Node& node) {
    clauses.grouped = clauses.grouped || Is(node, "GROUP") || Is(node, "HAVING");
    return Is(node, "ORDER");
  });
  clauses.end = seek([](const Node&) { return false; });
  if (!from) clauses.from = clauses.end;
  return clauses;
}

bool IsCompound(const Nodes& nodes) {
  return std::any_of(nodes.begin(), nodes.end(),
                     [](const Node& node) { return EndsSelect(node) && !IsSymbol(node, ";"); });
}

std::vector<ListItem> ReadList(const Nodes& nodes, const SelectClauses& clauses) {
  std::vector<ListItem> items;
  for (const Range part : SplitAtCommas(nodes, clauses.list.begin, clauses.list.end)) {
    ListItem item{part, {}};
    const bool aliased =
        part.end >= part.begin + 3 && Is(nodes[part.end - 2], "AS") && IsName(nodes[part.end - 1]);
    if (aliased) {
      item.definition.end = part.end - 2;
      item.alias = PlainName(nodes[part.end - 1]);
    }
    items.push_back(std::move(item));
  }
  return items;
}

std::vector<UsedAlias> FindUsedAliases(const Nodes& nodes) {
  std::vector<UsedAlias> found;
  for (auto clauses = FindSelect(nodes); clauses; clauses = FindSelect(nodes, clauses->end)) {
    const auto items = ReadList(nodes, *clauses);
    for (const ListItem& named : items) {
      const bool used =
          !named.alias.empty() &&
          std::any_of(items.begin(), items.end(), [&](const ListItem& item) {
            return &item != &named &&
                   Uses(Slice(nodes, item.definition.begin, item.definition.end), named.alias);
          });
      if (!used) continue;
      const Nodes sources = Slice(nodes, clauses->sources.begin, clauses->sources.end);
      found.push_back({named.alias, sources.empty() ? "" : "SELECT * FROM " + Render(sources)});
    }
  }
  for (const Node& node : nodes) {
    for (UsedAlias& used : FindUsedAliases(node.items)) found.push_back(std::move(used));
  }
  return found;
}

void ExpandAliases(Nodes& nodes, const std::vector<std::string>& aliases) {
  for (Node& node : nodes) {
    if (node.kind == Kind::Group) ExpandAliases(node.items, aliases);
  }
  for (auto clauses = FindSelect(nodes); clauses; clauses = FindSelect(nodes, clauses->end)) {
    const auto items = ReadList(nodes, *clauses);
    Expansion expansion(nodes, items, aliases);
    if (expansion.IsEmpty()) continue;
    Nodes result = Slice(nodes, 0, clauses->list.begin);
    for (const ListItem& item : items) {
      if (item.definition.begin > clauses->list.begin) result.push_back(Symbol(","));
      std::vector<std::string> within;
      if (!item.alias.empty()) within.push_back(item.alias);
      Append(result,
             expansion.Expanded(Slice(nodes, item.definition.begin, item.definition.end), within));
      if (!item.alias.empty()) Append(result, {Word("AS"), QuotedName(item.alias)});
    }
    const std::size_t end = result.size();
    Append(result, Slice(nodes, clauses->list.end, nodes.size()));
    clauses->end = clauses->end - clauses->list.end + end;
    nodes = std::move(result);
  }
}

}  // namespace tevra::dialect
