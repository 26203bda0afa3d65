#include "accounting/VatRate.h"

#include "platform/text/Numbers.h"

namespace tevra {

VatRate ReadVatRate(const std::string& text) {
  if (text.empty()) return {};
  const std::size_t dash = text.find('-');
  const std::string percent = dash == std::string::npos ? text : text.substr(dash + 1);
  return {text.substr(0, dash), CInt(CDbl(percent))};
}

}  // namespace tevra
