// A filled card of an asset.
#pragma once

#include <string>

#include "register/AssetSave.h"

namespace tevra {

/// A linear asset "INV1" of 8 years for 12,000.40 lei at the rate 5, in service in January 2026.
inline AssetCard SampleCard(char method = 'L', double normal = 8, double real = 8,
                            double rate = 0.125, const Value& coef = {}) {
  AssetCard card;
  card.text = {
      "INV1", "2.1.16", "Strung", "ADM", "", "F123", "7", "1", "2131", std::string(1, method), ""};
  card.number = {12000.4, 5.0,     2400.0808, normal,  real,    rate, 100.0, Value(),
                 Value(), Value(), coef,      Value(), Value(), 0.0,  0.0};
  card.date = {DateTime(2026, 1, 10), DateTime(2026, 1, 15), DateTime(2026, 2, 1),
               DateTime(2034, 2, 1), DateTime(2026, 2, 1)};
  card.tva = "4426-19";
  return card;
}

}  // namespace tevra
