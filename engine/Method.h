// The depreciation methods and in what they differ.
#pragma once

#include <array>
#include <string_view>

namespace tevra {

/// A method by its letter in TIP_AM.
enum Method : char {
  kLinear = 'L',
  kAccelerated = 'A',
  kWithoutWear = 'N',  ///< degressive, without moral wear
  kWithWear = 'M',     ///< degressive, with moral wear
  kNoDepreciation = 'F',
  kNoMethod = '\0',  ///< any other text: an asset whose values the rules leave alone
};

/// What the rules, the plan, the card and the reports ask about a method.
struct MethodTraits {
  Method method;
  const char* option;   ///< the card's option button
  const char* caption;  ///< its caption
  bool depreciates;     ///< false: the value stays as it is, and no date or duration is read
  bool degressive;    ///< a degressive and a linear phase (AD1, AD2), by a coefficient of I_COEFAD
  bool usesCoef;      ///< COEF is the share of the first year or phase
  bool takesExpense;  ///< a part of the value may go directly to expenses
  double leastYears;  ///< durations for which the method exists; 0 for no limit
  double mostYears;
  const char* wear;  ///< of a degressive method in messages: "cu" or "fara" moral wear
};

/// All methods, in the order of the card's options.
inline constexpr std::array<MethodTraits, 5> kMethods{{
    {kLinear, "Liniara", "Liniara", true, false, false, true, 0, 0, ""},
    {kAccelerated, "Accelerata", "Accelerata", true, false, true, false, 0, 0, ""},
    {kWithWear, "CuUzura", "Degresiva cu uzura morala", true, true, true, false, 5, 0, "cu"},
    {kWithoutWear, "FaraUzura", "Degresiva fara uzura morala", true, true, true, false, 0, 5,
     "fara"},
    {kNoDepreciation, "Faraam", "Fara amortizare", false, false, false, false, 0, 0, ""},
}};

/// kNoMethod has traits too: it does nothing.
inline constexpr MethodTraits kNoMethodTraits{kNoMethod, "",    "", false, false,
                                              false,     false, 0,  0,     ""};

constexpr const MethodTraits& TraitsOf(Method method) {
  for (const MethodTraits& traits : kMethods) {
    if (traits.method == method) return traits;
  }
  return kNoMethodTraits;
}

/// The letter of a stored TIP_AM as it stands; '\0' when it is not exactly one letter.
constexpr char MethodCode(std::string_view tipAm) {
  return tipAm.size() == 1 ? tipAm[0] : '\0';
}

/// The method of a letter, or of a stored TIP_AM; kNoMethod for every other text.
constexpr Method MethodOf(char letter) {
  return TraitsOf(static_cast<Method>(letter)).method;
}
constexpr Method MethodOf(std::string_view tipAm) {
  return MethodOf(MethodCode(tipAm));
}

/// True when the method exists for an asset of so many years.
constexpr bool AllowsYears(const MethodTraits& traits, double years) {
  return years >= traits.leastYears && (traits.mostYears == 0 || years <= traits.mostYears);
}

}  // namespace tevra
