#include "exchange/ExchangeHeader.h"

#include <algorithm>
#include <type_traits>

#include "platform/data/Value.h"
#include "platform/rowset/XmlReader.h"
#include "platform/system/Paths.h"
#include "platform/text/Dates.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"

namespace tevra {

namespace {

constexpr std::size_t kLongestCode = 2;

bool IsLetterOrDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsCompanyCode(const std::string& code) {
  return !code.empty() && code.size() <= kLongestCode &&
         std::all_of(code.begin(), code.end(), IsLetterOrDigit);
}

// A tool that indents its document breaks lines around texts too.
std::string WithoutSpace(const std::string& text) {
  constexpr const char* kXmlSpace = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kXmlSpace);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kXmlSpace) - first + 1);
}

class Header {
 public:
  Header(const HeaderTexts& texts, const std::string& file)
      : texts_(texts), file_(std::filesystem::path(file).filename().string()) {}

  std::string Code() const {
    const std::string code = Text("CodCC");
    if (!IsCompanyCode(code)) {
      throw Failure(kValueNotAccepted, "Valoare neacceptata: " + Left(code, 60) +
                                           ", in loc de una sau doua litere "
                                           "sau cifre" +
                                           Place("CodCC"));
    }
    return code;
  }

  DateTime Date(const char* element) const {
    const std::string text = Text(element);
    return Read(element, [&] { return CDate(text).Midnight(); });
  }

  // Other tools write the words of their own language.
  bool YesNo(const char* element) const {
    const std::string text = Text(element);
    for (const char* no : {"Fals", "No"}) {
      if (EqualNoCase(text, no)) return false;
    }
    for (const char* yes : {"Adevarat", "Yes"}) {
      if (EqualNoCase(text, yes)) return true;
    }
    return Read(element, [&] { return Value(text).AsBool(); });
  }

  int Number(const char* element) const {
    return Read(element, [&] { return Value(Text(element)).AsLong(); });
  }

 private:
  std::string Place(const char* element) const {
    return " (" + file_ + ", IE/HEADER/" + element + ")";
  }

  std::string Text(const char* element) const {
    const auto found = texts_.find(element);
    if (found != texts_.end()) return WithoutSpace(found->second);
    throw Failure(kDatabaseNotOpened, "Lipseste un element" + Place(element));
  }

  template <typename Reading>
  std::invoke_result_t<Reading> Read(const char* element, const Reading& reading) const {
    const std::string text = Text(element);
    try {
      return reading();
    } catch (const Failure& failure) {
      throw Failure(failure.Number(),
                    ValueFailure(failure.Number(), text).Description() + Place(element));
    }
  }

  const HeaderTexts& texts_;
  std::string file_;
};

}  // namespace

std::ifstream OpenExchange(const std::string& file) {
  const std::filesystem::path path = paths::Resolve(file);
  if (!paths::FileExists(file)) throw FileFailure(kFileNotFound, file);
  std::ifstream in(path, std::ios::binary);
  if (!in) throw FileFailure(kPermissionDenied, file);
  return in;
}

HeaderTexts LoadExchange(const std::string& file) {
  std::ifstream in = OpenExchange(file);
  XmlReader xml(in, file);
  HeaderTexts texts;
  bool read = !xml.Is("", kExchangeRoot);  // the first header counts
  while (xml.NextChild(0)) {
    if (read || !xml.Is("", kExchangeHeader)) continue;
    read = true;
    while (xml.NextChild(1)) {
      const std::string name(xml.Name());
      texts.emplace(name, xml.Text());
    }
  }
  xml.Finish();
  return texts;
}

ExchangeHeader GetXMLHeader(const HeaderTexts& texts, const std::string& file) {
  const Header read(texts, file);
  ExchangeHeader header;
  header.code = read.Code();
  header.from = read.Date("DataInceput");
  header.to = read.Date("DataSfarsit");
  header.isCentre = read.YesNo("EsteCentru");
  header.planType = read.Number("TipPlanCont");
  return header;
}

std::string OwnFileText(const ExchangeHeader& header) {
  if (UCase(header.code) != UCase(GetCodSocietate())) return {};
  return "Sucursala cu codul " + header.code +
         " este sociatatea pe care lucrati acum, nu puteti face import";
}

}  // namespace tevra
