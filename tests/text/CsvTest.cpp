// Comma separated values: what stands in the cells, and where a row began.
#include <sstream>
#include <streambuf>

#include "platform/text/Csv.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

// As a pipe gives it: a character at a time, nothing to go back to. Breaks at the end when told so.
class Pipe : public std::streambuf {
 public:
  explicit Pipe(std::string text, bool breaks = false) : text_(std::move(text)), breaks_(breaks) {}

 private:
  int_type underflow() override {
    if (at_ == text_.size()) {
      if (breaks_) throw std::runtime_error("broken");
      return traits_type::eof();
    }
    last_ = text_[at_++];
    setg(&last_, &last_, &last_ + 1);
    return traits_type::to_int_type(last_);
  }

  std::string text_;
  bool breaks_;
  std::size_t at_ = 0;
  char last_ = 0;
};

// "line:cell|cell;" of each row, quoted cells between <>; a row that fails as "line!number;".
std::string Read(std::istream& in) {
  std::string all;
  CsvReader reader(in);
  for (;;) {
    try {
      const auto row = reader.Next();
      if (!row) return all;
      all += std::to_string(reader.Line()) + ":";
      for (std::size_t i = 0; i < row->size(); ++i) {
        const CsvCell& cell = (*row)[i];
        all += (i > 0 ? "|" : "") + (cell.quoted ? "<" + cell.text + ">" : cell.text);
      }
    } catch (const Failure& failure) {
      all += std::to_string(reader.Line()) + "!" + std::to_string(failure.Number());
    }
    all += ";";
  }
}

TEST(Csv, RowsAndCells) {
  const std::string mark = "\xEF\xBB\xBF";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", ""},
      {"\n\r\n\n", ""},
      {mark, ""},
      {mark + "\n", ""},
      {"a,b\nc,d\n", "1:a|b;2:c|d;"},
      {"a,b\r\nc,d", "1:a|b;2:c|d;"},
      {mark + "a,b", "1:a|b;"},
      {mark + "\"a\",b", "1:<a>|b;"},
      {"\xEF\xBB,b", "1:\xEF\xBB|b;"},
      {"\xEF", "1:\xEF;"},
      {"a" + mark, "1:a" + mark + ";"},
      {mark + mark + "a", "1:" + mark + "a;"},
      {"a,,\n,\n", "1:a||;2:|;"},
      {"\n\na\n\nb\n", "3:a;5:b;"},
      {"\"\"\n\n\"\"\n", "1:<>;3:<>;"},
      {"\"a,b\",\"\"\"x\"\"\"\n", "1:<a,b>|<\"x\">;"},
      {"\"\"\"\"", "1:<\">;"},
      {" a , b \n", "1: a | b ;"},
      {"a \"b\" c,d\n", "1:a \"b\" c|d;"},
      {"\"1\n2\",x\ny\n", "1:<1\n2>|x;3:y;"},
      {"\"1\r\n2\r3\"\r\ny\r\n", "1:<1\r\n2\r3>;3:y;"},
      {"a\rb\nc\n", "1:a\rb;2:c;"},
      {"a\r", "1:a\r;"},
      {"\"a\"b,c\nd\n", "1!13;2:d;"},
      {"\"a\" ,c\nd\n", "1!13;2:d;"},
      {"a\n\"b\nc\nd", "1:a;2!13;"},
      {"\"", "1!13;"},
      {"\xC8\x99i\xC8\x9B\xC4\x83,\xFF\n", "1:\xC8\x99i\xC8\x9B\xC4\x83|\xFF;"},
      {std::string("a\0b,c\n", 6), std::string("1:a\0b|c;", 8)}};
  for (const auto& [text, rows] : cases) {
    std::istringstream file(text);
    EXPECT_EQ(Read(file), rows) << text;
    Pipe pipe(text);
    std::istream in(&pipe);
    EXPECT_EQ(Read(in), rows) << "from a pipe: " << text;
  }
}

TEST(Csv, AFileThatBreaksOffIsNoShorterFile) {
  for (const char* text : {"", "a,b\n", "a,b", "\"a", "\"a\""}) {
    Pipe pipe(text, true);
    std::istream in(&pipe);
    CsvReader reader(in);
    EXPECT_EQ(FailureOf([&] {
                while (reader.Next()) {
                }
              }),
              57)
        << text;
  }
}

TEST(Csv, WrittenCellsReadBack) {
  for (const std::string text :
       {"a", "a,b", "\"", "a\"b\"", "a\nb", "a\r\nb", "a\rb", "\r", " a ", "1,5"}) {
    std::istringstream in(CsvText(text) + "," + CsvText(text) + "\r\n");
    CsvReader reader(in);
    const auto row = reader.Next();
    ASSERT_TRUE(row && row->size() == 2) << text;
    EXPECT_EQ((*row)[0].text, text);
    EXPECT_EQ((*row)[1].text, text);
  }
  EXPECT_EQ(CsvText("simplu"), "simplu");
}

}  // namespace
}  // namespace tevra
