// Runs the cases of statements.txt, one test each.
#include <cctype>
#include <fstream>
#include <sstream>

#include "tests/dialect/Company.h"

namespace tevra::dialect {
namespace {

struct Step {
  std::string verb, statement;
  Parameters parameters;
  Lines expected;
};

struct StatementCase {
  std::string name;
  std::vector<Step> steps;
};

// 'with "EUR" | 1 | 2.5': texts are quoted, real numbers have a point.
Parameters ReadParameters(const std::string& text) {
  Parameters parameters;
  std::size_t begin = 0;
  while (begin <= text.size()) {
    const std::size_t end = std::min(text.find(" | ", begin), text.size());
    const std::string one = text.substr(begin, end - begin);
    if (one.front() == '"') {
      parameters.push_back(one.substr(1, one.size() - 2));
    } else if (one.find('.') != one.npos) {
      parameters.push_back(std::stod(one));
    } else {
      parameters.push_back(std::stoi(one));
    }
    begin = end + 3;
  }
  return parameters;
}

std::vector<StatementCase> ReadCases() {
  std::vector<StatementCase> cases;
  std::ifstream file(TEVRA_DIALECT_FOLDER "/statements.txt");
  if (!file) throw std::runtime_error("statements.txt cannot be read");
  for (std::string line, more; std::getline(file, line);) {
    while (!line.empty() && line.back() == '\\' && std::getline(file, more)) {
      line.pop_back();
      line += more;
    }
    if (line.empty() || line[0] == '#') continue;
    const std::size_t blank = line.find(' ');
    const std::string verb = line.substr(0, blank);
    const std::string rest = line.substr(blank + 1);
    if (verb == "case") {
      cases.push_back({rest, {}});
    } else if (verb.empty()) {
      cases.back().steps.back().expected.push_back(line.substr(2));
    } else if (verb == "with") {
      cases.back().steps.back().parameters = ReadParameters(rest);
    } else {
      cases.back().steps.push_back({verb, rest, {}, {}});
    }
  }
  return cases;
}

void Take(Company& company, const Step& step) {
  SCOPED_TRACE(step.statement);
  if (step.verb == "rows") {
    EXPECT_EQ(company.Rows(step.statement, step.parameters), step.expected);
  } else if (step.verb == "columns") {
    EXPECT_EQ(company.Columns(step.statement), step.expected.at(0));
  } else if (step.verb == "run") {
    const std::string changed = std::to_string(company.Run(step.statement, step.parameters));
    EXPECT_EQ(changed, step.expected.empty() ? changed : step.expected[0]);
  } else if (step.verb == "value") {
    const std::size_t arrow = step.statement.find(" =>");
    const std::string result = step.statement.substr(std::min(arrow + 4, step.statement.size()));
    EXPECT_EQ(company.Rows("SELECT " + step.statement.substr(0, arrow)), Lines{result});
  } else if (step.verb == "fails") {
    std::size_t digits = 0;
    const long number = std::stol(step.statement, &digits);
    EXPECT_EQ(FailureOf(company, step.statement.substr(digits)), number);
  } else if (step.verb == "engine") {
    company.Engine(step.statement);
  } else {
    ADD_FAILURE() << "unknown step: " << step.verb;
  }
}

class Statements : public ::testing::TestWithParam<StatementCase> {};

TEST_P(Statements, GiveTheRowsExpected) {
  Company company;
  for (const Step& step : GetParam().steps) Take(company, step);
}

std::string NameOf(const ::testing::TestParamInfo<StatementCase>& info) {
  std::string name = info.param.name;
  for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Dialect, Statements, ::testing::ValuesIn(ReadCases()), NameOf);

}  // namespace
}  // namespace tevra::dialect
