#include "platform/shape/ShapeText.h"

#include <algorithm>
#include <set>
#include <utility>

#include "platform/dialect/SelectList.h"
#include "platform/dialect/Tokenizer.h"
#include "platform/text/Failure.h"
#include "platform/text/Strings.h"

namespace tevra {

using dialect::Kind;
using dialect::Node;
using dialect::Nodes;

namespace {

constexpr std::size_t kNone = std::string::npos;

// The end of the text, name or comment that begins at `at`; `at` itself when none begins there; the
// end of the command when it is not closed.
std::size_t BehindQuoted(const std::string& text, std::size_t at) {
  const auto behind = [&](const std::string& end, std::size_t from) {
    const std::size_t found = text.find(end, from);
    return found == kNone ? text.size() : found + end.size();
  };
  switch (text[at]) {
    case '\'':
    case '"':
      return behind(std::string(1, text[at]), at + 1);  // a doubled quote opens the next text
    case '[':
      return behind("]", at);
    case '-':
      return text.compare(at, 2, "--") == 0 ? behind("\n", at) : at;
    case '/':
      return text.compare(at, 2, "/*") == 0 ? behind("*/", at + 2) : at;
    default:
      return at;
  }
}

// The brace that closes the one at `open`; braces within texts and names do not count.
std::size_t ClosingBrace(const std::string& text, std::size_t open) {
  std::size_t depth = 0;
  for (std::size_t at = open; at < text.size();) {
    if (const std::size_t behind = BehindQuoted(text, at); behind != at) {
      at = behind;
      continue;
    }
    if (text[at] == '{') ++depth;
    if (text[at] == '}' && --depth == 0) return at;
    ++at;
  }
  return kNone;
}

[[noreturn]] void Refuse(const std::string& wanted, const std::string& words,
                         const std::string& command) {
  constexpr std::size_t kShown = 60;
  throw Failure(kStatementError,
                wanted + " expected at: " + (words.empty() ? "the end" : Left(words, kShown)),
                command);
}

std::string NameIn(const Node& node) {
  if (node.kind != Kind::Text) return dialect::PlainName(node);
  std::string name;
  for (std::size_t i = 1; i + 1 < node.text.size(); ++i) {
    name += node.text[i];
    if (node.text[i] == '\'') ++i;
  }
  return name;
}

// The part after the statement.
class ComputeReader {
 public:
  ComputeReader(Nodes nodes, const std::string& command)
      : nodes_(std::move(nodes)), command_(command) {
    if (!nodes_.empty() && dialect::IsSymbol(nodes_.back(), ";")) nodes_.pop_back();
  }

  void ReadInto(ShapeText& shape) {
    Keyword("AS");
    shape.child = Name();
    Keyword("COMPUTE");
    ChildName(shape.child);
    while (at_ < nodes_.size() && dialect::IsSymbol(nodes_[at_], ",")) {
      ++at_;
      shape.totals.push_back(Total(shape.child));
    }
    Keyword("BY");
    shape.by = FieldName();
    if (at_ < nodes_.size()) Refuse("The end");
  }

 private:
  [[noreturn]] void Refuse(const std::string& wanted) const {
    tevra::Refuse(wanted, dialect::Render(dialect::Slice(nodes_, at_, nodes_.size())), command_);
  }

  const Node* Next() const { return at_ < nodes_.size() ? &nodes_[at_] : nullptr; }

  void Keyword(const char* word) {
    if (!Next() || !dialect::Is(*Next(), word)) Refuse(word);
    ++at_;
  }

  std::string Name() {
    if (!Next() || !dialect::IsName(*Next())) Refuse("A name");
    return dialect::PlainName(nodes_[at_++]);
  }

  void ChildName(const std::string& child) {
    if (!Next() || !dialect::IsName(*Next()) || !EqualNoCase(dialect::PlainName(*Next()), child)) {
      Refuse(child);
    }
    ++at_;
  }

  std::string FieldName() {
    if (!Next() || (!dialect::IsName(*Next()) && Next()->kind != Kind::Text)) {
      Refuse("A field's name");
    }
    return NameIn(nodes_[at_++]);
  }

  // SUM(x.'F') AS T
  ShapeTotal Total(const std::string& child) {
    Keyword("SUM");
    if (!Next() || Next()->kind != Kind::Group) Refuse("(");
    const Nodes& items = Next()->items;
    const bool field = items.size() == 3 && dialect::IsName(items[0]) &&
                       EqualNoCase(dialect::PlainName(items[0]), child) &&
                       dialect::IsSymbol(items[1], ".") &&
                       (items[2].kind == Kind::Text || dialect::IsName(items[2]));
    if (!field) Refuse("A field of " + child);
    ShapeTotal total{NameIn(items[2]), {}};
    ++at_;
    Keyword("AS");
    total.name = Name();
    return total;
  }

  Nodes nodes_;
  std::size_t at_ = 0;
  const std::string& command_;
};

bool StartsWithWord(const std::string& text, std::size_t at, const std::string& word) {
  return EqualNoCase(text.substr(at, word.size()), word);
}

}  // namespace

ShapeText ReadShape(const std::string& command) {
  static const std::string kBlanks = " \t\r\n\v\f";
  const std::size_t begin = std::min(command.find_first_not_of(kBlanks), command.size());
  if (!StartsWithWord(command, begin, "SHAPE")) Refuse("SHAPE", command.substr(begin), command);
  const std::size_t open = std::min(command.find_first_not_of(kBlanks, begin + 5), command.size());
  if (open == command.size() || command[open] != '{') Refuse("{", command.substr(open), command);
  const std::size_t close = ClosingBrace(command, open);
  if (close == kNone) Refuse("}", {}, command);
  ShapeText shape;
  shape.statement = command.substr(open + 1, close - open - 1);
  if (Trim(shape.statement).empty()) Refuse("A statement", command.substr(close), command);
  try {
    ComputeReader(dialect::ReadTree(command.substr(close + 1)), command).ReadInto(shape);
  } catch (const Failure& failure) {
    throw Failure(failure.Number(), failure.Description(), command);  // of an unclosed text or name
  }
  return shape;
}

namespace {

// The tokens of the GROUP BY's columns; empty when there is no GROUP BY.
dialect::Range GroupColumns(const Nodes& nodes, const dialect::SelectClauses& clauses) {
  std::size_t at = clauses.sources.end;
  while (at < clauses.order && !dialect::Is(nodes[at], "GROUP")) ++at;
  if (at + 2 >= clauses.order) return {0, 0};
  std::size_t end = at + 2;
  while (end < clauses.order && !dialect::Is(nodes[end], "HAVING")) ++end;
  return {at + 2, end};
}

dialect::SelectClauses OneWholeSelect(const Nodes& nodes, const std::string& statement) {
  const auto clauses = dialect::FindSelect(nodes);
  if (!clauses || clauses->select != 0 || clauses->end != nodes.size()) {
    throw Failure(kStatementError, "A grouped command has one SELECT", statement);
  }
  const auto limits = [](const Node& node) {
    return dialect::Is(node, "TOP") || dialect::Is(node, "LIMIT");
  };
  if (std::any_of(nodes.begin(), nodes.end(), limits)) {
    throw Failure(kStatementError, "A grouped command has all its rows", statement);
  }
  return *clauses;
}

// Builds an ORDER BY.
class Ordering {
 public:
  // By number, because a name may be both a column of the table and the alias of another
  // column.
  explicit Ordering(std::size_t keyColumn)
      : nodes_{dialect::Word("ORDER"),
               dialect::Word("BY"),
               {Kind::Number, std::to_string(keyColumn + 1), true, {}},
               dialect::Word("COLLATE"),
               dialect::Word("NOCASE")} {}

  // Appends columns separated by commas, without repeats, because longer sort rows cost time.
  void Add(const Nodes& columns) {
    for (const dialect::Range column : dialect::SplitAtCommas(columns, 0, columns.size())) {
      if (column.begin == column.end) continue;
      const Node& first = columns[column.begin];
      if (column.end == column.begin + 1 && dialect::IsName(first)) {
        if (!known_.insert(UCase(dialect::PlainName(first))).second) continue;
      }
      nodes_.push_back(dialect::Symbol(","));
      dialect::Append(nodes_, dialect::Slice(columns, column.begin, column.end));
    }
  }

  Nodes Take() { return std::move(nodes_); }

 private:
  Nodes nodes_;
  std::set<std::string> known_;  // names, in capitals
};

}  // namespace

std::string InGroupOrder(const std::string& statement, std::size_t keyColumn) {
  Nodes nodes = dialect::ReadTree(statement);
  if (!nodes.empty() && dialect::IsSymbol(nodes.back(), ";")) nodes.pop_back();
  const dialect::SelectClauses clauses = OneWholeSelect(nodes, statement);
  Ordering ordering(keyColumn);
  if (clauses.order < clauses.end) {
    ordering.Add(dialect::Slice(nodes, clauses.order + 2, clauses.end));
  }
  const dialect::Range columns = GroupColumns(nodes, clauses);
  ordering.Add(dialect::Slice(nodes, columns.begin, columns.end));
  Nodes ordered = dialect::Slice(nodes, 0, clauses.order);
  dialect::Append(ordered, ordering.Take());
  return dialect::Render(ordered);
}

}  // namespace tevra
