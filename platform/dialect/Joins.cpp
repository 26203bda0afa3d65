#include "platform/dialect/Joins.h"

#include <iterator>
#include <utility>

#include "platform/dialect/Expressions.h"

namespace tevra::dialect {

namespace {

using Sources = std::vector<JoinedSource>;

// The kind of the join that begins at `at`, such as "LEFT JOIN", and the begin of its source.
struct JoinWords {
  std::string kind;
  std::size_t end;
};

std::optional<JoinWords> ReadJoinWords(const Nodes& nodes, std::size_t at, std::size_t end) {
  std::string kind;
  for (; at < end; ++at) {
    if (Is(nodes[at], "JOIN"))
      return JoinWords{kind.empty() ? "INNER JOIN" : kind + " JOIN", at + 1};
    if (Is(nodes[at], "OUTER")) continue;
    if (!kind.empty()) return std::nullopt;
    for (const char* word : {"INNER", "LEFT", "RIGHT", "FULL", "CROSS"}) {
      if (Is(nodes[at], word)) kind = word;
    }
    if (kind.empty()) return std::nullopt;
  }
  return std::nullopt;
}

class Reader {
 public:
  Reader(const Nodes& nodes, std::size_t begin, std::size_t end)
      : nodes_(nodes), at_(begin), end_(end) {}

  std::optional<Sources> Read() {
    auto sources = ReadSource();
    while (sources && at_ < end_) {
      const auto join = ReadJoinWords(nodes_, at_, end_);
      if (!join) return std::nullopt;
      at_ = join->end;
      auto right = ReadSource();
      if (!right) return std::nullopt;
      sources = Joined(std::move(*sources), join->kind, std::move(*right), ReadCondition());
    }
    return sources;
  }

 private:
  bool AtEnd() const { return at_ == end_; }

  Nodes ReadCondition() {
    if (AtEnd() || !Is(nodes_[at_], "ON")) return {};
    const std::size_t begin = ++at_;
    while (!AtEnd() && !ReadJoinWords(nodes_, at_, end_)) ++at_;
    return Slice(nodes_, begin, at_);
  }

  // A table or statement with its alias, or joins in parentheses.
  std::optional<Sources> ReadSource() {
    if (AtEnd()) return std::nullopt;
    const std::size_t begin = at_;
    const Node& first = nodes_[at_++];
    JoinedSource source;
    if (first.kind == Kind::Group) {
      const Nodes& items = first.items;
      const bool statement = !items.empty() && (Is(items[0], "SELECT") || Is(items[0], "VALUES"));
      if (!statement) return Reader(items, 0, items.size()).Read();
    } else if (IsName(first) && !IsKeyword(first)) {
      source.table = PlainName(first);
      source.alias = source.table;
    } else {
      return std::nullopt;
    }
    const bool as = !AtEnd() && Is(nodes_[at_], "AS");
    if (as) ++at_;
    if (!AtEnd() && IsName(nodes_[at_]) && !IsKeyword(nodes_[at_])) {
      source.alias = PlainName(nodes_[at_++]);
    } else if (as) {
      return std::nullopt;
    }
    source.nodes = Slice(nodes_, begin, at_);
    return Sources{std::move(source)};
  }

  static Sources Joined(Sources left, std::string kind, Sources right, Nodes condition) {
    if (kind == "RIGHT JOIN") {
      std::swap(left, right);
      kind = "LEFT JOIN";
    }
    JoinedSource joined;
    if (right.size() == 1) {
      joined = std::move(right.front());
    } else {
      joined.nodes = {Group(WriteJoins(right))};
    }
    joined.kind = std::move(kind);
    joined.condition = std::move(condition);
    left.push_back(std::move(joined));
    return left;
  }

  const Nodes& nodes_;
  std::size_t at_;
  std::size_t end_;
};

}  // namespace

std::optional<Sources> ReadJoins(const Nodes& nodes, std::size_t begin, std::size_t end) {
  Sources all;
  for (const Range part : SplitAtCommas(nodes, begin, end)) {
    auto sources = Reader(nodes, part.begin, part.end).Read();
    if (!sources) return std::nullopt;
    if (!all.empty()) sources->front().kind = ",";
    all.insert(all.end(), std::make_move_iterator(sources->begin()),
               std::make_move_iterator(sources->end()));
  }
  return all;
}

Nodes WriteJoins(const Sources& sources) {
  Nodes nodes;
  for (const JoinedSource& source : sources) {
    if (source.kind == ",") {
      nodes.push_back(Symbol(","));
      nodes.back().spaced = false;
    } else if (!source.kind.empty()) {
      const auto last = source.kind.rfind(' ');
      Append(nodes, {Word(source.kind.substr(0, last)), Word(source.kind.substr(last + 1))});
    }
    Append(nodes, source.nodes);
    if (source.condition.empty()) continue;
    nodes.push_back(Word("ON"));
    Append(nodes, source.condition);
  }
  return nodes;
}

}  // namespace tevra::dialect
