// A statement as a list of tokens, parenthesised groups as trees of them: what the rewriting works
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
  Group,      ///< what stands within a pair of parentheses
};

struct Node {
  Kind kind = Kind::Word;
  std::string text;
  bool spaced = true;  ///< a blank stands before it
  std::vector<Node> items;
};

using Nodes = std::vector<Node>;

/// Reads a statement. Comments become blanks, texts in double quotes become texts in single ones,
/// and parameters are numbered, so that a rule may move or repeat them. Throws Failure -2147217900
/// for an unclosed text, bracket, comment or parenthesis, for parentheses nested too deep and for a
/// NUL.
Nodes ReadTree(std::string_view sql);

/// The statement's text again.
std::string Render(const Nodes& nodes);

Node Word(std::string text);
Node Symbol(std::string text);
Node Group(Nodes items);

/// Is it this keyword or plain name, this symbol? Without case.
bool Is(const Node& node, std::string_view word);
bool IsSymbol(const Node& node, std::string_view symbol);

/// Is it a plain name or one in brackets? A keyword is a plain name too.
bool IsName(const Node& node);

/// A name without its brackets.
std::string PlainName(const Node& node);

/// A name in brackets, for the engine.
Node QuotedName(const std::string& name);

/// A copy of the nodes [begin, end).
Nodes Slice(const Nodes& nodes, std::size_t begin, std::size_t end);

/// Puts `more` behind `nodes`.
void Append(Nodes& nodes, Nodes more);

/// The parts between the commas of [begin, end), as ranges.
struct Range {
  std::size_t begin;
  std::size_t end;
};
std::vector<Range> SplitAtCommas(const Nodes& nodes, std::size_t begin, std::size_t end);

}  // namespace tevra::dialect
