// The lists of SELECTs: their aliases, and the aliases that other items of the same list use.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/dialect/Tokenizer.h"

namespace tevra::dialect {

/// The places of the clauses of one SELECT in a list of nodes, without its subqueries.
struct SelectClauses {
  std::size_t select = 0;  ///< the word SELECT
  Range list{0, 0};        ///< after DISTINCT and the like
  std::size_t from = 0;    ///< the word FROM; `end` when there is none
  Range sources{0, 0};     ///< after FROM
  std::size_t order = 0;   ///< the word ORDER; `end` when there is none
  std::size_t end = 0;     ///< UNION, ";" or the end of the nodes
  bool distinct = false;
  bool grouped = false;
};

/// The first SELECT at or after `at`; nothing when there is none on this level.
std::optional<SelectClauses> FindSelect(const Nodes& nodes, std::size_t at = 0);

/// True when several SELECTs are joined by UNION and the like.
bool IsCompound(const Nodes& nodes);

/// One item of a list.
struct ListItem {
  Range definition;   ///< without AS and the alias
  std::string alias;  ///< empty when it has none
};

std::vector<ListItem> ReadList(const Nodes& nodes, const SelectClauses& clauses);

/// An alias that another item of the same list uses by its bare name.
struct UsedAlias {
  std::string alias;
  std::string source;  ///< a SELECT of all columns that the list can read; empty without a FROM
};

/// Those of all lists, of subqueries too.
std::vector<UsedAlias> FindUsedAliases(const Nodes& nodes);

/// Replaces these aliases by their definitions in other items of the same list. Throws Failure
/// -2147217900 when definitions are circular or the list grows too much.
void ExpandAliases(Nodes& nodes, const std::vector<std::string>& aliases);

}  // namespace tevra::dialect
