// Splits a statement into a list of tokens, with parentheses as trees, which the rewriting works
// on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tevra::dialect {

enum class Kind {
  Word,  ///< a keyword or a plain name
  Name,  ///< a name in brackets, kept with them
  Text,  ///< a text literal, kept with its quotes
  Number,
  Parameter,  ///< "?1", "?2", ... in the order of the statement as given
  Symbol,     ///< an operator, comma, point or semicolon
  Group,      ///< the content of a pair of parentheses
};

struct Node {
  Kind kind = Kind::Word;
  std::string text;
  bool spaced = true;  ///< preceded by a blank
  std::vector<Node> items;
};

using Nodes = std::vector<Node>;

/// Reads a statement. Comments become blanks, texts in double quotes become texts in single quotes,
/// and parameters are numbered, so that a rule may move or repeat them. Throws Failure -2147217900
/// for an unclosed text, bracket, comment or parenthesis, for parentheses nested too deep and for a
/// NUL.
Nodes ReadTree(std::string_view sql);

/// The statement's text again.
std::string Render(const Nodes& nodes);

Node Word(std::string text);
Node Symbol(std::string text);
Node Group(Nodes items);

/// True when it is this keyword or plain name, or this symbol; without case.
bool Is(const Node& node, std::string_view word);
bool IsSymbol(const Node& node, std::string_view symbol);

/// True when it is a name, plain or in brackets; a keyword is a plain name too.
bool IsName(const Node& node);

/// A name without its brackets.
std::string PlainName(const Node& node);

/// A name in brackets, for SQLite.
Node QuotedName(const std::string& name);

/// A copy of the nodes [begin, end).
Nodes Slice(const Nodes& nodes, std::size_t begin, std::size_t end);

/// Appends `more` to `nodes`.
void Append(Nodes& nodes, Nodes more);

/// The parts between the commas of [begin, end), as ranges.
struct Range {
  std::size_t begin;
  std::size_t end;
};
std::vector<Range> SplitAtCommas(const Nodes& nodes, std::size_t begin, std::size_t end);

}  // namespace tevra::dialect
