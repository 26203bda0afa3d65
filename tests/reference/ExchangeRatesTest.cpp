// The National Bank's files, whole and hostile, into the table of rates.
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/text/Failure.h"
#include "reference/ExchangeRates.h"
#include "session/DayRate.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

std::string Document(const std::string& body, const std::string& space = "http://www.bnr.ro/xsd") {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<DataSet xmlns=\"" + space +
         "\"><Header><Publisher>National Bank of Romania</Publisher></Header><Body>"
         "<Subject>Reference rates</Subject><OrigCurrency>RON</OrigCurrency>" +
         body + "</Body></DataSet>";
}

std::string Day(const std::string& date, const std::string& rates) {
  return "<Cube date=\"" + date + "\">" + rates + "</Cube>";
}

// All the days of a year, each with all the currencies of the company and one that it lacks.
std::string Year(const std::vector<std::string>& codes) {
  std::string body;
  for (DateTime day(2025, 1, 1); day.Year() == 2025; day = day.AddDays(1)) {
    std::string rates = "<Rate currency=\"CLP\">1.0000</Rate>";
    int units = day.Day();
    for (const std::string& code : codes) {
      rates += "<Rate currency=\"" + code + "\">" + std::to_string(++units) + ".0" +
               std::to_string(100 + day.Month()) + "</Rate>";
    }
    body += Day(day.Iso().substr(0, 10), rates);
  }
  return Document(body);
}

class ExchangeRates : public ::testing::Test {
 protected:
  ExchangeRates() : connection_(company_.Open()) { connection_.Execute("DELETE FROM kv_val2"); }

  RatesStored Store(const std::string& content) {
    std::istringstream in(content);
    return StoreRates(connection_, ReadRatesFile(in, "bnr.xml"));
  }
  std::string RefusalOf(const std::string& content) {
    try {
      Store(content);
    } catch (const Failure& failure) {
      return failure.Description();
    }
    return "";
  }
  static std::string CountsOf(const RatesStored& stored) {
    return std::to_string(stored.added) + " " + std::to_string(stored.changed) + " " +
           std::to_string(stored.unchanged) + " " + std::to_string(stored.skipped);
  }
  std::string Rates() const {
    return company_.Rows("SELECT COD, DATA, CURS FROM kv_val2 ORDER BY DATA, COD, CURS");
  }

  TestCompany company_;
  Connection connection_;
};

TEST_F(ExchangeRates, EitherNamespaceGivesTheRateOfOneUnit) {
  connection_.Execute("UPDATE kv_val SET COD = 'Usd' WHERE COD = 'USD'");  // as somebody typed it
  const std::string day =
      Day("2017-08-01",
          "<Rate currency=\"EUR\">4.5577</Rate><Rate currency=\"HUF\" multiplier=\"100\">1.5023"
          "</Rate><Rate currency=\"usd\"> 3.8569 </Rate><Rate currency=\"HRK\"/>"
          "<Rate currency=\"QQQ\">7</Rate>");
  const RatesStored first = Store(Document(day));
  EXPECT_EQ(RatesStoredText(first),
            "3 cursuri noi, 0 modificate, 0 neschimbate, 2 sarite (valute care nu sunt in lista: "
            "QQQ)");
  EXPECT_EQ(Rates(), "EUR 01.08.2017 4,5577 \nHUF 01.08.2017 0,015023 \nUsd 01.08.2017 3,8569 \n");
  EXPECT_EQ(connection_.QueryValue("SELECT CURS FROM kv_val2 WHERE COD = 'HUF'").AsDouble(),
            0.015023);
  EXPECT_EQ(CountsOf(Store(Document(day, "https://www.bnr.ro/xsd"))), "0 0 3 2");
}

TEST_F(ExchangeRates, WhatStandsOnThatDayGivesWay) {
  for (const char* stored :
       {"('EUR', '2026-01-05 18:30:00', 5.1)", "('EUR', '2026-01-06 00:00:00', 5.2)",
        "('EUR', '2026-01-06 00:00:00', 5.3)", "('EUR', '2026-01-07 00:00:00', NULL)",
        "('USD', '2026-01-05 00:00:00', 4.4)"}) {
    connection_.Execute(std::string("INSERT INTO kv_val2 (COD, DATA, CURS) VALUES ") + stored);
  }
  const std::string days =
      Day("2026-01-05", "<Rate currency=\"EUR\">5.1</Rate><Rate currency=\"EUR\">5.15</Rate>") +
      Day("2026-01-06", "<Rate currency=\"EUR\">5.3</Rate>") +
      Day("2026-01-07", "<Rate currency=\"EUR\">5.4</Rate>");
  EXPECT_EQ(CountsOf(Store(Document(days))), "0 3 0 0");
  const std::string after = Rates();
  EXPECT_EQ(after,
            "EUR 05.01.2026 5,15 \nUSD 05.01.2026 4,4 \nEUR 06.01.2026 5,3 \nEUR 07.01.2026 5,4 "
            "\n");
  EXPECT_EQ(CountsOf(Store(Document(days))), "0 0 3 0");
  EXPECT_EQ(Rates(), after);
}

TEST_F(ExchangeRates, AYearReadTwiceChangesNothingTheSecondTime) {
  std::vector<std::string> codes;
  std::istringstream listed(company_.Rows("SELECT COD FROM kv_val"));
  for (std::string code; listed >> code;) codes.push_back(code);
  const std::string file = (company_.Directory() / "an.xml").string();
  std::ofstream(file) << Year(codes);
  const int all = 365 * static_cast<int>(codes.size());
  EXPECT_EQ(CountsOf(StoreRates(connection_, ReadRatesFile(file))),
            std::to_string(all) + " 0 0 365");
  const std::string after = Rates();
  EXPECT_EQ(CountsOf(StoreRates(connection_, ReadRatesFile(file))),
            "0 0 " + std::to_string(all) + " 365");
  EXPECT_EQ(Rates(), after);
}

TEST_F(ExchangeRates, ARefusedFileSaysWhyAndChangesNothing) {
  struct Case {
    std::string content;
    const char* reason;
  };
  const auto rated = [](const std::string& rate) {
    return Document(Day("2026-01-05", "<Rate currency=\"EUR\">5.09</Rate>" + rate));
  };
  std::string bomb = "<!DOCTYPE DataSet [<!ENTITY a \"aaaaaaaaaa\">";
  for (const char* level : {"b", "c", "d", "e", "f", "g", "h"}) {
    const std::string inner(1, static_cast<char>(level[0] - 1));
    bomb += "<!ENTITY " + std::string(level) + " \"";
    for (int i = 0; i < 20; ++i) bomb += "&" + inner + ";";
    bomb += "\">";
  }
  bomb +=
      "]><DataSet><Body><Cube date=\"2026-01-05\"><Rate currency=\"&h;\">5</Rate></Cube></Body>"
      "</DataSet>";
  const std::string whole = rated("<Rate currency=\"USD\">4.35</Rate>");
  const std::vector<Case> cases{
      {"<!DOCTYPE html><html><body>BNR</body></html>", "nu este un document XML intreg"},
      {"<html><body><Cube date=\"2026-01-05\"/></body></html>", "nu este un fisier de cursuri"},
      {"", "nu este un document XML intreg"},
      {"<p>pagina<br>", "linia 1: nu este un fisier de cursuri"},
      {bomb, "nu este un document XML intreg"},
      {"<!DOCTYPE DataSet [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><DataSet><Body>&a;</Body>"
       "</DataSet>",
       "tipul de document (DOCTYPE) nu se accepta"},
      {whole.substr(0, whole.size() - 20), "nu este un document XML intreg"},
      {rated("<Rate currency=\"HUF\" multiplier=\"0\">1.5</Rate>"), "multiplicatorul \"0\""},
      {rated("<Rate currency=\"HUF\" multiplier=\"-100\">1.5</Rate>"), "multiplicatorul \"-100\""},
      {rated("<Rate currency=\"HUF\" multiplier=\"1e2\">1.5</Rate>"), "multiplicatorul \"1e2\""},
      {rated("<Rate currency=\"USD\">4,3558</Rate>"), "cursul \"4,3558\" al valutei USD"},
      {rated("<Rate currency=\"USD\">4.35.58</Rate>"), "cursul \"4.35.58\""},
      {rated("<Rate currency=\"USD\">0.0000</Rate>"), "cursul \"0.0000\""},
      {rated("<Rate currency=\"USD\">-4.3</Rate>"), "cursul \"-4.3\""},
      {rated("<Rate currency=\"USD\">1234567890123.4567</Rate>"), "cursul \"1234567890123.4567\""},
      {rated("<Rate>4.3</Rate>"), "nu are codul valutei"},
      {Document(Day("2026-02-30", "<Rate currency=\"EUR\">5</Rate>")), "\"2026-02-30\" nu este"},
      {Document(Day("", "")), "nu este o data"},
      {Document(""), "nicio zi cu cursuri"},
      {"<DataSet><Body><OrigCurrency>EUR</OrigCurrency></Body></DataSet>", "nu sunt in lei"},
      {Document(std::string(kLargestRatesFile, ' ')), "prea mare"}};
  for (const Case& c : cases) {
    const std::string refusal = RefusalOf(c.content);
    EXPECT_NE(refusal.find(c.reason), std::string::npos) << c.reason << "\n" << refusal;
    EXPECT_NE(refusal.find("Niciun curs nu a fost preluat."), std::string::npos) << refusal;
  }
  EXPECT_EQ(Rates(), "");
  EXPECT_THROW(ReadRatesFile((company_.Directory() / "nu.xml").string()), Failure);
  EXPECT_THROW(ReadRatesFile(company_.Directory().string()), Failure);
}

TEST_F(ExchangeRates, ADayWithoutARateTakesTheLastDayBefore) {
  Store(Document(Day("2026-01-09", "<Rate currency=\"EUR\">5.08</Rate>") +
                 Day("2026-01-12", "<Rate currency=\"EUR\">5.09</Rate>")));
  connection_.Execute(
      "INSERT INTO kv_val2 (COD, DATA, CURS) VALUES ('EUR', '2026-01-13 18:00:00', 5.1)");
  const auto at = [&](const DateTime& day) {
    const auto rate = RateAt(connection_, "EUR", day);
    return rate ? rate->day.Iso().substr(0, 10) + " " + Value(rate->rate).AsText() : "";
  };
  EXPECT_EQ(at(DateTime(2026, 1, 8)), "");
  EXPECT_EQ(at(DateTime(2026, 1, 9)), "2026-01-09 5,08");
  EXPECT_EQ(at(DateTime(2026, 1, 11, 23)), "2026-01-09 5,08");
  EXPECT_EQ(at(DateTime(2026, 1, 12)), "2026-01-12 5,09");
  EXPECT_EQ(at(DateTime(2026, 1, 13)), "2026-01-13 5,1");
  EXPECT_FALSE(RateAt(connection_, "USD", DateTime(2026, 1, 13)));
  EXPECT_FALSE(IsOldRate({DateTime(2026, 1, 1), 5}, DateTime(2026, 1, 11)));
  EXPECT_TRUE(IsOldRate({DateTime(2026, 1, 1), 5}, DateTime(2026, 1, 12)));
}

}  // namespace
}  // namespace tevra::test
