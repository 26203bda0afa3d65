#include "accounting/VatRate.h"

#include "platform/text/Numbers.h"

namespace tevra {

VatRate ReadVatRate(const std::string& text) {
  if (text.empty()) return {};
  return {text.substr(0, text.find('-')), CInt(VatPercent(text))};
}

double VatPercent(const std::string& text) {
  if (text.empty()) return 0;
  const std::size_t dash = text.find('-');
  return CDbl(dash == std::string::npos ? text : text.substr(dash + 1));
}

}  // namespace tevra
