// Three companies of one directory at the end of a month.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <map>

#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

/// Each company has an asset of 12.000 lei that loses 100 lei a month from January 2026. It is
/// November 24, 2026.
class MonthEndTest : public BatchTest {
 protected:
  MonthEndTest();
  ~MonthEndTest() override;

  std::filesystem::path FileOf(const std::string& code) const;
  Connection OpenCompany(const std::string& code) const;
  std::filesystem::path Folder(const std::string& name) const;

  /// A file of passwords that only its owner can read.
  std::string Passwords(const std::string& lines) const;

  /// Runs month-end on all companies with these further arguments.
  Result End(std::vector<std::string> arguments) const;

  /// The same with --json: what was printed.
  QJsonObject Json(const std::vector<std::string>& arguments) const;

  /// The company of that code in such a document.
  static QJsonObject CompanyOf(const QJsonObject& run, const std::string& code);

  /// NDI, account and debit of the lines under a company's document.
  std::string Lines(const std::string& code) const;

  /// A note of last year under the month's document, in company 03.
  void WriteOfAnotherYear() const;

  /// Every file below the directory with its content.
  std::map<std::string, std::string> Everything() const;

 private:
  std::string passwords_;
};

}  // namespace tevra::batch::test
