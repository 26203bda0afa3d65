#include "platform/data/Criteria.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "platform/text/Dates.h"
#include "platform/text/Strings.h"

namespace tevra::detail {

namespace {

// Parses criteria from left to right.
class Reader {
 public:
  explicit Reader(const std::string& text) : text_(text) {}

  bool AtEnd() {
    SkipBlanks();
    return at_ == text_.size();
  }

  // A bare word or a name in brackets.
  std::string Word() {
    SkipBlanks();
    if (at_ < text_.size() && text_[at_] == '[') return Enclosed(']');
    const std::size_t length = BareLength();
    if (length == 0) Fail();
    at_ += length;
    return text_.substr(at_ - length, length);
  }

  bool TakeWord(std::string_view word) {
    SkipBlanks();
    if (!EqualNoCase(std::string_view(text_).substr(at_, BareLength()), word)) return false;
    at_ += word.size();
    return true;
  }

  bool Take(std::string_view mark) {
    SkipBlanks();
    if (text_.compare(at_, mark.size(), mark) != 0) return false;
    at_ += mark.size();
    return true;
  }

  Value Literal() {
    SkipBlanks();
    if (at_ == text_.size()) Fail();
    if (text_[at_] == '\'') return Enclosed('\'');
    if (text_[at_] == '#') return Date();
    const std::string word = Word();
    if (EqualNoCase(word, "Null")) return {};
    if (EqualNoCase(word, "True")) return Value::YesNo(true);
    if (EqualNoCase(word, "False")) return Value::YesNo(false);
    double number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(number)) Fail();
    return number;
  }

  [[noreturn]] void Fail() const {
    throw Failure(kBadCriteria, "The condition cannot be read: " + text_);
  }

 private:
  Value Date() {
    const std::string text = Enclosed('#');
    if (!IsDate(text)) Fail();
    return CDate(text);
  }

  std::size_t BareLength() const {
    return std::min(text_.find_first_of(" \t,=<>'#", at_), text_.size()) - at_;
  }

  void SkipBlanks() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
  }

  // From the opening mark to the closing one; a doubled closing mark is one character.
  std::string Enclosed(char close) {
    std::string inside;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == close) {
        ++at_;
        if (at_ == text_.size() || text_[at_] != close) return inside;
      }
      inside += text_[at_];
    }
    Fail();
  }

  const std::string& text_;
  std::size_t at_ = 0;
};

}  // namespace

Criteria::Criteria(const std::string& text, const FieldFinder& find) {
  Reader reader(text);
  if (reader.AtEnd()) return;
  // Longer marks first: "<=" begins like "<".
  static constexpr std::array<std::pair<std::string_view, Operator>, 6> kMarks{
      {{"<>", Operator::NotEqual},
       {"<=", Operator::LessEqual},
       {">=", Operator::GreaterEqual},
       {"=", Operator::Equal},
       {"<", Operator::Less},
       {">", Operator::Greater}}};
  do {
    Test test{find(reader.Word()), Operator::Like, {}};
    bool found = false;
    for (const auto& [mark, op] : kMarks) {
      if (!found && reader.Take(mark)) {
        test.op = op;
        found = true;
      }
    }
    if (!found && !reader.TakeWord("Like")) reader.Fail();
    test.value = reader.Literal();
    tests_.push_back(std::move(test));
  } while (reader.TakeWord("And"));
  if (!reader.AtEnd()) reader.Fail();
}

bool Criteria::Holds(const Test& test, const Value& value) {
  if (test.value.IsNull() || value.IsNull()) {
    const bool same = test.value.IsNull() && value.IsNull();
    return test.op == Operator::Equal      ? same
           : test.op == Operator::NotEqual ? test.value.IsNull() && !same
                                           : false;
  }
  if (test.op == Operator::Like) return LikeNoCase(value.AsText(), test.value.AsText());
  // A date or number also matches its text, as a user would write it in quotes.
  Value wanted = test.value;
  if (wanted.IsText()) {
    if (value.GetKind() == Value::Kind::DateTime) {
      wanted = wanted.AsDateTime();
    } else if (value.GetKind() == Value::Kind::YesNo) {
      wanted = Value::YesNo(wanted.AsBool());
    } else if (!value.IsText()) {
      wanted = wanted.AsDouble();
    }
  }
  const int order = value.IsText() && !wanted.IsText()
                        ? CompareValues(value, Value(wanted.AsText()))
                        : CompareValues(value, wanted);
  switch (test.op) {
    case Operator::Equal:
      return order == 0;
    case Operator::NotEqual:
      return order != 0;
    case Operator::Less:
      return order < 0;
    case Operator::LessEqual:
      return order <= 0;
    case Operator::Greater:
      return order > 0;
    default:
      return order >= 0;
  }
}

bool Criteria::Met(const ValueOf& valueOf) const {
  for (const Test& test : tests_) {
    if (!Holds(test, valueOf(test.field))) return false;
  }
  return true;
}

std::vector<std::size_t> Criteria::Fields() const {
  std::vector<std::size_t> fields;
  for (const Test& test : tests_) fields.push_back(test.field);
  return fields;
}

std::vector<SortKey> ParseSort(const std::string& text, const FieldFinder& find) {
  std::vector<SortKey> keys;
  Reader reader(text);
  if (reader.AtEnd()) return keys;
  do {
    SortKey key{find(reader.Word()), false};
    if (reader.TakeWord("Desc")) {
      key.descending = true;
    } else {
      reader.TakeWord("Asc");
    }
    keys.push_back(key);
  } while (reader.Take(","));
  if (!reader.AtEnd()) reader.Fail();
  return keys;
}

}  // namespace tevra::detail
