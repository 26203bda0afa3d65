#include "platform/dialect/Expressions.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "platform/text/Failure.h"
#include "platform/text/Strings.h"

namespace tevra::dialect {

namespace {

// Longer than the chains of any statement; SQLite's limit of arguments is reached first.
constexpr std::size_t kLongestChain = 500;

struct NoCase {
  bool operator()(std::string_view a, std::string_view b) const { return CompareNoCase(a, b) < 0; }
};
using Words = std::set<std::string_view, NoCase>;

// Functions whose result is or may be a text; they compare without case, like the columns.
const Words kTextFunctions = {"left",  "right", "mid",   "ucase", "lcase", "upper",
                              "lower", "trim",  "ltrim", "rtrim", "cstr",  "iif"};

const Words kTexts = {"left",  "right", "mid",   "ucase", "lcase", "upper",
                      "lower", "trim",  "ltrim", "rtrim", "cstr",  "join_text"};

const Words kNumbers = {"clng",  "cint", "cdbl", "len",   "round", "int",
                        "fix",   "abs",  "val",  "year",  "month", "day",
                        "count", "sum",  "avg",  "minus", "ratio", "number_of"};

// --- Chains of operands and arithmetic operators in a list of tokens

bool IsAny(const Node& node, std::initializer_list<std::string_view> symbols) {
  return node.kind == Kind::Symbol &&
         std::find(symbols.begin(), symbols.end(), node.text) != symbols.end();
}

bool IsArithmetic(const Node& node) {
  return IsAny(node, {"&", "+", "-", "*", "/", "%"});
}

bool IsComparison(const Node& node) {
  return IsAny(node, {"=", "<>", "<", ">", "<=", ">=", "!=", "=="});
}

// The end of the value that begins at `at`: signs, a literal, a call, a group or a name with its
// qualifiers. `at` itself when no value begins there.
std::size_t ValueEnd(const Nodes& nodes, std::size_t at) {
  const std::size_t begin = at;
  while (at < nodes.size() && IsAny(nodes[at], {"+", "-", "~"})) ++at;
  if (at == nodes.size() || nodes[at].kind == Kind::Symbol || IsKeyword(nodes[at])) return begin;
  const bool name = IsName(nodes[at]);
  ++at;
  while (name && at + 1 < nodes.size() && IsSymbol(nodes[at], ".") &&
         (IsName(nodes[at + 1]) || IsSymbol(nodes[at + 1], "*"))) {
    at += 2;
  }
  if (name && at < nodes.size() && nodes[at].kind == Kind::Group) ++at;
  if (at + 1 < nodes.size() && Is(nodes[at], "COLLATE")) at += 2;
  return at;
}

// "||" binds closer than arithmetic, so its texts form one operand.
std::size_t OperandEnd(const Nodes& nodes, std::size_t at) {
  std::size_t end = ValueEnd(nodes, at);
  while (end > at && end < nodes.size() && IsSymbol(nodes[end], "||")) {
    const std::size_t next = ValueEnd(nodes, end + 1);
    if (next == end + 1) break;
    end = next;
  }
  return end;
}

struct Chain {
  std::vector<Nodes> operands;
  std::vector<Node> operators;  // one fewer than operands
  std::size_t end = 0;
};

Chain ReadChain(const Nodes& nodes, std::size_t begin) {
  Chain chain;
  chain.end = begin;
  for (std::size_t at = begin;;) {
    const std::size_t end = OperandEnd(nodes, at);
    if (end == at) {
      if (!chain.operators.empty()) chain.operators.pop_back();
      return chain;
    }
    chain.operands.push_back(Slice(nodes, at, end));
    if (chain.operands.size() > kLongestChain)
      throw Failure(kStatementError, "Expression too long");
    chain.end = end;
    if (end == nodes.size() || !IsArithmetic(nodes[end])) return chain;
    chain.operators.push_back(nodes[end]);
    at = end + 1;
  }
}

// --- Arithmetic: each level of precedence is folded from the left

Nodes Call(const std::string& function, Nodes arguments) {
  Node group = Group(std::move(arguments));
  group.spaced = false;
  return {Word(function), std::move(group)};
}

bool IsCallOf(const Nodes& nodes, std::string_view function) {
  return nodes.size() == 2 && Is(nodes[0], function) && nodes[1].kind == Kind::Group;
}

// f(a, b), and with a third operand f(a, b, c): the helpers accept any number of arguments.
Nodes Combine(const std::string& function, Nodes left, Nodes right) {
  Nodes arguments = IsCallOf(left, function) ? std::move(left[1].items) : std::move(left);
  Node comma = Symbol(",");
  comma.spaced = false;
  arguments.push_back(std::move(comma));
  right.front().spaced = true;
  Append(arguments, std::move(right));
  return Call(function, std::move(arguments));
}

using Step = std::function<Nodes(Nodes left, const Node& op, Nodes right)>;

Chain Fold(Chain chain, std::initializer_list<std::string_view> level, const Step& step) {
  Chain folded;
  folded.operands.push_back(std::move(chain.operands.front()));
  for (std::size_t i = 0; i < chain.operators.size(); ++i) {
    Nodes& right = chain.operands[i + 1];
    if (IsAny(chain.operators[i], level)) {
      Nodes left = std::move(folded.operands.back());
      folded.operands.back() = step(std::move(left), chain.operators[i], std::move(right));
    } else {
      folded.operators.push_back(std::move(chain.operators[i]));
      folded.operands.push_back(std::move(right));
    }
  }
  return folded;
}

Nodes Product(Nodes left, const Node& op, Nodes right) {
  if (op.text == "/") return Combine("ratio", std::move(left), std::move(right));
  left.push_back(op);
  Append(left, std::move(right));
  return left;
}

Nodes Sum(Nodes left, const Node& op, Nodes right) {
  return Combine(op.text == "+" ? "plus" : "minus", std::move(left), std::move(right));
}

Nodes Joined(Nodes left, const Node&, Nodes right) {
  return Combine("join_text", std::move(left), std::move(right));
}

void CompareWithoutCase(Nodes& nodes) {
  nodes.push_back(Word("COLLATE"));
  nodes.push_back(Word("NOCASE"));
}

Nodes Arithmetic(Chain chain) {
  const bool spaced = chain.operands.front().front().spaced;
  chain = Fold(std::move(chain), {"*", "/", "%"}, Product);
  chain = Fold(std::move(chain), {"+", "-"}, Sum);
  chain = Fold(std::move(chain), {"&"}, Joined);
  Nodes result = std::move(chain.operands.front());
  result.front().spaced = spaced;
  if (IsCallOf(result, "plus") || IsCallOf(result, "join_text")) CompareWithoutCase(result);
  return result;
}

Nodes WithArithmetic(const Nodes& nodes) {
  Nodes result;
  for (std::size_t at = 0; at < nodes.size();) {
    Chain chain = ReadChain(nodes, at);
    if (chain.operands.empty()) {
      result.push_back(nodes[at++]);
      continue;
    }
    at = chain.end;
    Append(result, Arithmetic(std::move(chain)));
  }
  return result;
}

// --- Comparisons of a text with a number are made as numbers

enum class Nature { Number, NumberFunction, Text, Parameter, Unknown };

std::size_t ChainEnd(const Nodes& nodes, std::size_t at) {
  return ReadChain(nodes, at).end;
}

Nature NatureOf(const Nodes& nodes, Range side) {
  while (side.begin < side.end && IsAny(nodes[side.begin], {"+", "-"})) ++side.begin;
  if (side.begin == side.end) return Nature::Unknown;
  const Node& first = nodes[side.begin];
  for (std::size_t at = side.begin; at < side.end; ++at) {
    if (IsAny(nodes[at], {"||"})) return Nature::Text;
    if (IsSymbol(nodes[at], "*")) return Nature::NumberFunction;
  }
  switch (first.kind) {
    case Kind::Number:
      return Nature::Number;
    case Kind::Text:
      return Nature::Text;
    case Kind::Parameter:
      return Nature::Parameter;
    case Kind::Group: {
      const bool one = ChainEnd(first.items, 0) == first.items.size();
      return one ? NatureOf(first.items, {0, first.items.size()}) : Nature::Unknown;
    }
    default:
      break;
  }
  if (side.end - side.begin < 2 || nodes[side.begin + 1].kind != Kind::Group)
    return Nature::Unknown;
  const std::string function = PlainName(first);
  if (kTexts.contains(function)) return Nature::Text;
  return kNumbers.contains(function) ? Nature::NumberFunction : Nature::Unknown;
}

bool IsNumber(Nature nature) {
  return nature == Nature::Number || nature == Nature::NumberFunction;
}

// A parameter may be bound as text, which SQLite never treats as equal to a number.
bool NeedsNumber(Nature side, Nature other) {
  return (side == Nature::Text && IsNumber(other)) ||
         (side == Nature::Parameter && other == Nature::NumberFunction);
}

// The ranges of one list that must be converted to numbers.
class Comparisons {
 public:
  explicit Comparisons(Nodes& nodes) : nodes_(nodes) {}

  void Rewrite() {
    for (std::size_t at = 0; at < nodes_.size();) {
      const std::size_t end = ChainEnd(nodes_, at);
      if (end > at) Compare({at, end});
      at = std::max(end, at + 1);
    }
    if (!wraps_.empty()) Wrap();
  }

 private:
  // `left` is a whole chain; the operand that it is compared with follows.
  void Compare(Range left) {
    std::size_t at = left.end;
    if (at < nodes_.size() && Is(nodes_[at], "NOT")) ++at;
    if (at + 1 >= nodes_.size()) return;
    if (IsComparison(nodes_[at])) {
      Pair(left, ChainAt(at + 1));
    } else if (Is(nodes_[at], "IN") && nodes_[at + 1].kind == Kind::Group) {
      CompareList(left, nodes_[at + 1].items);
    } else if (Is(nodes_[at], "BETWEEN")) {
      const Range low = ChainAt(at + 1);
      Pair(left, low);
      if (low.end < nodes_.size() && Is(nodes_[low.end], "AND")) Pair(left, ChainAt(low.end + 1));
    }
  }

  Range ChainAt(std::size_t at) const { return {at, ChainEnd(nodes_, at)}; }

  void Pair(Range left, Range right) {
    const Nature leftNature = NatureOf(nodes_, left);
    const Nature rightNature = NatureOf(nodes_, right);
    if (NeedsNumber(leftNature, rightNature)) wraps_[left.begin] = left.end;
    if (NeedsNumber(rightNature, leftNature)) wraps_[right.begin] = right.end;
  }

  void CompareList(Range left, Nodes& list) {
    const Nature nature = NatureOf(nodes_, left);
    bool numbers = true;
    Comparisons items(list);
    for (const Range item : SplitAtCommas(list, 0, list.size())) {
      const Nature other = NatureOf(list, item);
      numbers = numbers && IsNumber(other);
      if (NeedsNumber(other, nature)) items.wraps_[item.begin] = item.end;
    }
    if (nature == Nature::Text && numbers) wraps_[left.begin] = left.end;
    items.Wrap();
  }

  void Wrap() {
    Nodes result;
    for (std::size_t at = 0; at < nodes_.size();) {
      const auto wrap = wraps_.find(at);
      if (wrap == wraps_.end()) {
        result.push_back(std::move(nodes_[at++]));
        continue;
      }
      Append(result, Call("number_of", Slice(nodes_, at, wrap->second)));
      at = wrap->second;
    }
    nodes_ = std::move(result);
  }

  Nodes& nodes_;
  std::map<std::size_t, std::size_t> wraps_;  // begin to end
};

// --- Words

// Yes is -1; Left and Right before an argument list are functions, never joins; texts returned by
// functions compare without case.
Nodes WithWords(Nodes nodes) {
  Nodes result;
  for (std::size_t at = 0; at < nodes.size(); ++at) {
    result.push_back(std::move(nodes[at]));
    Node& node = result.back();
    const bool qualified = result.size() > 1 && IsSymbol(result[result.size() - 2], ".");
    if (node.kind != Kind::Word || qualified) continue;
    if (Is(node, "TRUE") || Is(node, "FALSE")) {
      node = {Kind::Number, Is(node, "TRUE") ? "-1" : "0", node.spaced, {}};
      continue;
    }
    const bool call = at + 1 < nodes.size() && nodes[at + 1].kind == Kind::Group;
    if (!call || !kTextFunctions.contains(node.text)) continue;
    if (Is(node, "LEFT") || Is(node, "RIGHT")) {
      node = {Kind::Name, '"' + node.text + '"', node.spaced, {}};
    }
    result.push_back(std::move(nodes[++at]));
    CompareWithoutCase(result);
  }
  return result;
}

}  // namespace

bool IsKeyword(const Node& node) {
  static const Words kKeywords = {
      "all",     "and",       "as",     "asc",      "between", "by",     "case",   "collate",
      "cross",   "delete",    "desc",   "distinct", "else",    "end",    "escape", "except",
      "explain", "from",      "full",   "glob",     "group",   "having", "in",     "inner",
      "insert",  "intersect", "into",   "is",       "join",    "left",   "like",   "limit",
      "natural", "not",       "offset", "on",       "or",      "order",  "outer",  "returning",
      "right",   "select",    "set",    "then",     "union",   "update", "using",  "values",
      "when",    "where",     "with"};
  return node.kind == Kind::Word && kKeywords.contains(node.text);
}

void RewriteExpressions(Nodes& nodes) {
  for (Node& node : nodes) {
    if (node.kind == Kind::Group) RewriteExpressions(node.items);
  }
  nodes = WithArithmetic(WithWords(std::move(nodes)));
  Comparisons(nodes).Rewrite();
}

}  // namespace tevra::dialect
