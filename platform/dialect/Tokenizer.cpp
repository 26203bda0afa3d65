#include "platform/dialect/Tokenizer.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/text/Failure.h"
#include "platform/text/Strings.h"

namespace tevra::dialect {

namespace {

// SQLite's parser fails at about this depth.
constexpr std::size_t kDeepestNesting = 100;

constexpr std::array<std::string_view, 10> kLongSymbols = {
    "->>", "<=", ">=", "<>", "!=", "==", "||", "<<", ">>", "->"};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsWordStart(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsWordPart(char c) {
  return IsWordStart(c) || IsDigit(c) || c == '$';
}

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view sql) : sql_(sql) {}

  Nodes Read() {
    while (SkipBlanks()) {
      if (sql_[at_] == '(') {
        Open();
      } else if (sql_[at_] == ')') {
        Close();
      } else {
        open_.back().push_back(ReadToken());
      }
      spaced_ = false;
    }
    if (open_.size() > 1) Fail("Missing )");
    return std::move(open_.front());
  }

 private:
  [[noreturn]] void Fail(const std::string& reason) const {
    throw Failure(kStatementError, reason, std::string(sql_));
  }

  char Peek(std::size_t ahead = 0) const {
    return at_ + ahead < sql_.size() ? sql_[at_ + ahead] : '\0';
  }

  // False at the statement's end.
  bool SkipBlanks() {
    while (at_ < sql_.size()) {
      if (IsBlank(sql_[at_])) {
        ++at_;
      } else if (Peek() == '-' && Peek(1) == '-') {
        at_ = std::min(sql_.find('\n', at_), sql_.size());
      } else if (Peek() == '/' && Peek(1) == '*') {
        const auto end = sql_.find("*/", at_ + 2);
        if (end == std::string_view::npos) Fail("Missing */");
        at_ = end + 2;
      } else {
        return true;
      }
      spaced_ = true;
    }
    return false;
  }

  void Open() {
    if (open_.size() > kDeepestNesting) Fail("Parentheses are nested too deep");
    spacedGroups_.push_back(spaced_);
    open_.emplace_back();
    ++at_;
  }

  void Close() {
    if (open_.size() == 1) Fail("Missing (");
    Node group = Group(std::move(open_.back()));
    group.spaced = spacedGroups_.back();
    open_.pop_back();
    spacedGroups_.pop_back();
    open_.back().push_back(std::move(group));
    ++at_;
  }

  Node ReadToken() {
    const char c = Peek();
    if (c == '\'' || c == '"') return {Kind::Text, ReadText(c), spaced_, {}};
    if (c == '[') return {Kind::Name, ReadBracket(), spaced_, {}};
    if (c == '?') return {Kind::Parameter, ReadParameter(), spaced_, {}};
    if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)) && !BehindName())) {
      return {Kind::Number, ReadNumber(), spaced_, {}};
    }
    if (IsWordStart(c)) return {Kind::Word, ReadWhile(IsWordPart), spaced_, {}};
    if (c == '\0') Fail("NUL character");
    return {Kind::Symbol, ReadSymbol(), spaced_, {}};
  }

  bool BehindName() const {
    return !spaced_ && !open_.back().empty() && IsName(open_.back().back());
  }

  template <typename Test>
  std::string ReadWhile(Test test) {
    const std::size_t begin = at_;
    while (at_ < sql_.size() && test(sql_[at_])) ++at_;
    return std::string(sql_.substr(begin, at_ - begin));
  }

  // SQLite gets single quotes, whichever the text had.
  std::string ReadText(char quote) {
    std::string text = "'";
    for (++at_; at_ < sql_.size(); ++at_) {
      const char c = sql_[at_];
      if (c == '\0') Fail("NUL character");
      if (c == quote) {
        ++at_;
        if (Peek() != quote) return text + '\'';
      }
      text += c;
      if (c == '\'') text += c;
    }
    Fail("Missing quote in a text");
  }

  std::string ReadBracket() {
    const auto end = sql_.find(']', at_);
    if (end == std::string_view::npos) Fail("Missing ]");
    std::string name(sql_.substr(at_, end + 1 - at_));
    if (name.find('\0') != std::string::npos) Fail("NUL character");
    at_ = end + 1;
    return name;
  }

  std::string ReadParameter() {
    ++at_;
    const std::string number = ReadWhile(IsDigit);
    return "?" + (number.empty() ? std::to_string(++parameters_) : number);
  }

  std::string ReadNumber() {
    std::string number = ReadWhile(IsDigit);
    if (number == "0" && (Peek() == 'x' || Peek() == 'X')) return number + ReadWhile(IsWordPart);
    if (Peek() == '.') {
      number += sql_[at_++];
      number += ReadWhile(IsDigit);
    }
    const bool sign = Peek(1) == '+' || Peek(1) == '-';
    if ((Peek() == 'e' || Peek() == 'E') && IsDigit(Peek(sign ? 2 : 1))) {
      number += sql_[at_++];
      if (sign) number += sql_[at_++];
      number += ReadWhile(IsDigit);
    }
    return number;
  }

  std::string ReadSymbol() {
    for (const auto symbol : kLongSymbols) {
      if (sql_.substr(at_, symbol.size()) == symbol) {
        at_ += symbol.size();
        return std::string(symbol);
      }
    }
    return std::string(1, sql_[at_++]);
  }

  std::string_view sql_;
  std::size_t at_ = 0;
  bool spaced_ = false;
  int parameters_ = 0;
  std::vector<Nodes> open_ = std::vector<Nodes>(1);
  std::vector<bool> spacedGroups_;
};

bool IsWordLike(char c) {
  return IsWordPart(c) || c == '\'' || c == '[' || c == ']';
}

// Tokens that have become neighbours must not merge or open a comment.
bool MustPart(char last, char first) {
  return (IsWordLike(last) && IsWordLike(first)) || (last == '-' && first == '-') ||
         (last == '/' && first == '*');
}

void Render(const Nodes& nodes, std::string& out) {
  for (const Node& node : nodes) {
    const char first = node.kind == Kind::Group ? '(' : node.text.front();
    const bool fresh = out.empty() || out.back() == '(';
    if (!fresh && (node.spaced || MustPart(out.back(), first))) out += ' ';
    if (node.kind == Kind::Group) {
      out += '(';
      Render(node.items, out);
      out += ')';
    } else {
      out += node.text;
    }
  }
}

}  // namespace

Nodes ReadTree(std::string_view sql) {
  return Tokenizer(sql).Read();
}

std::string Render(const Nodes& nodes) {
  std::string sql;
  Render(nodes, sql);
  return sql;
}

Node Word(std::string text) {
  return {Kind::Word, std::move(text), true, {}};
}

Node Symbol(std::string text) {
  return {Kind::Symbol, std::move(text), true, {}};
}

Node Group(Nodes items) {
  return {Kind::Group, {}, true, std::move(items)};
}

bool Is(const Node& node, std::string_view word) {
  return node.kind == Kind::Word && EqualNoCase(node.text, word);
}

bool IsSymbol(const Node& node, std::string_view symbol) {
  return node.kind == Kind::Symbol && node.text == symbol;
}

bool IsName(const Node& node) {
  return node.kind == Kind::Word || node.kind == Kind::Name;
}

std::string PlainName(const Node& node) {
  return node.kind == Kind::Name ? node.text.substr(1, node.text.size() - 2) : node.text;
}

Node QuotedName(const std::string& name) {
  return {Kind::Name, '[' + name + ']', true, {}};
}

Nodes Slice(const Nodes& nodes, std::size_t begin, std::size_t end) {
  return {nodes.begin() + static_cast<std::ptrdiff_t>(begin),
          nodes.begin() + static_cast<std::ptrdiff_t>(end)};
}

void Append(Nodes& nodes, Nodes more) {
  nodes.insert(nodes.end(), std::make_move_iterator(more.begin()),
               std::make_move_iterator(more.end()));
}

std::vector<Range> SplitAtCommas(const Nodes& nodes, std::size_t begin, std::size_t end) {
  std::vector<Range> parts;
  for (std::size_t at = begin; at <= end; ++at) {
    if (at < end && !IsSymbol(nodes[at], ",")) continue;
    parts.push_back({begin, at});
    begin = at + 1;
  }
  return parts;
}

}  // namespace tevra::dialect
