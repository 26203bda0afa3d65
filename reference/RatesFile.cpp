#include "reference/RatesFile.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string_view>

#include "platform/rowset/XmlReader.h"
#include "platform/system/Paths.h"
#include "platform/text/Failure.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr std::size_t kLongestNumber = 15;  // digits that a double holds exactly
constexpr std::size_t kLongestCode = 10;

// Digits only.
std::optional<std::int64_t> WholeOf(std::string_view text) {
  if (text.empty() || text.size() > kLongestNumber) return std::nullopt;
  std::int64_t number = 0;
  for (const char each : text) {
    if (each < '0' || each > '9') return std::nullopt;
    number = number * 10 + (each - '0');
  }
  return number;
}

// The rate of one unit, greater than 0. One division of two whole numbers gives the double that is
// nearest to the decimal number.
std::optional<double> RateOf(const std::string& text, std::int64_t multiplier) {
  const std::size_t point = text.find('.');
  std::string digits = text;
  std::size_t decimals = 0;
  if (point != text.npos) {
    digits.erase(point, 1);
    decimals = text.size() - point - 1;
    if (point == 0 || decimals == 0) return std::nullopt;
  }
  const std::optional<std::int64_t> number = WholeOf(digits);
  if (!number || *number == 0) return std::nullopt;
  double divisor = static_cast<double>(multiplier);
  for (std::size_t i = 0; i < decimals; ++i) divisor *= 10;
  return static_cast<double>(*number) / divisor;
}

// The namespace has changed over the years, so elements are known by their names alone.
class Reader {
 public:
  Reader(std::istream& in, const std::string& name) : xml_(in, name), name_(name) {}

  RatesFile Read() {
    if (xml_.Name() != "DataSet") Refuse("nu este un fisier de cursuri al Bancii Nationale");
    while (xml_.NextChild(0)) {
      if (xml_.Name() == "Body") ReadBody();
    }
    xml_.Finish();
    if (!anyDay_) Refuse("nu contine nicio zi cu cursuri");
    return std::move(file_);
  }

 private:
  [[noreturn]] void Refuse(const std::string& reason) const {
    throw Failure(kNotReadable,
                  "Fisierul " + name_ + ", linia " + std::to_string(xml_.Line()) + ": " + reason +
                      " ! Niciun curs nu a fost preluat.",
                  name_);
  }

  void ReadBody() {
    while (xml_.NextChild(1)) {
      if (xml_.Name() == "Cube") {
        ReadDay();
      } else if (xml_.Name() == "OrigCurrency" && Trim(xml_.Text()) != "RON") {
        Refuse("cursurile nu sunt in lei");
      }
    }
  }

  std::string Attribute(std::string_view name) {
    XmlAttribute attribute;
    std::string value;
    while (xml_.NextAttribute(attribute)) {
      if (attribute.name == name) value = attribute.value;
    }
    return value;
  }

  void ReadDay() {
    const std::string written = Attribute("date");
    const std::optional<DateTime> day = DateTime::FromIso(written);
    if (!day || *day != day->Midnight()) Refuse("\"" + Left(written, 20) + "\" nu este o data");
    anyDay_ = true;
    while (xml_.NextChild(2)) {
      if (xml_.Name() == "Rate") ReadRate(*day);
    }
  }

  void ReadRate(const DateTime& day) {
    const std::string code = UCase(Trim(Attribute("currency")));
    const std::string multiplier = Attribute("multiplier");
    if (code.empty() || code.size() > kLongestCode) Refuse("un curs nu are codul valutei");
    const std::optional<std::int64_t> units =
        multiplier.empty() ? std::int64_t{1} : WholeOf(Trim(multiplier));
    if (!units || *units == 0) {
      Refuse("multiplicatorul \"" + Left(multiplier, 20) + "\" al valutei " + code +
             " nu este un numar intreg pozitiv");
    }
    const std::string text = Trim(xml_.Text());
    if (text.empty()) {
      ++file_.empty;
      return;
    }
    const std::optional<double> rate = RateOf(text, *units);
    if (!rate) Refuse("cursul \"" + Left(text, 20) + "\" al valutei " + code + " nu este corect");
    file_.rates[{day, code}] = *rate;
  }

  XmlReader xml_;
  std::string name_;
  RatesFile file_;
  bool anyDay_ = false;
};

std::string Content(std::istream& in, const std::string& name) {
  std::string content(kLargestRatesFile + 1, '\0');
  in.read(content.data(), static_cast<std::streamsize>(content.size()));
  content.resize(static_cast<std::size_t>(in.gcount()));
  if (content.size() > kLargestRatesFile) {
    throw Failure(kNotReadable,
                  "Fisierul " + name +
                      " este prea mare pentru un fisier de cursuri ! Niciun curs "
                      "nu a fost preluat.",
                  name);
  }
  return content;
}

}  // namespace

RatesFile ReadRatesFile(std::istream& in, const std::string& name) {
  std::istringstream content(Content(in, name));
  try {
    return Reader(content, name).Read();
  } catch (const Failure& failure) {
    if (failure.Description().rfind("Fisierul ", 0) == 0) throw;
    throw Failure(failure.Number(),
                  "Fisierul " + name +
                      " nu este un document XML intreg ! Niciun curs nu a fost "
                      "preluat.\n(" +
                      failure.Description() + ")",
                  name);
  }
}

RatesFile ReadRatesFile(const std::string& path) {
  const std::filesystem::path file = paths::Resolve(path);
  std::ifstream in(file, std::ios::binary);
  if (!std::filesystem::exists(file)) throw FileFailure(kFileNotFound, path);
  if (!in || std::filesystem::is_directory(file)) throw FileFailure(kPermissionDenied, path);
  return ReadRatesFile(in, file.filename().string());
}

}  // namespace tevra
