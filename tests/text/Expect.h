// Checks shared by the tests of the conversions.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/text/Failure.h"

namespace tevra {

struct Refusal {
  long number = 0;  ///< 0 when nothing was refused
  std::string text = "(no failure)";
  std::string source;
};

/// The failure that `call` throws.
template <typename Call>
Refusal RefusalOf(Call call) {
  try {
    call();
    return {};
  } catch (const Failure& failure) {
    return {failure.Number(), failure.Description(), failure.Source()};
  }
}

template <typename Call>
long FailureOf(Call call) {
  return RefusalOf(call).number;
}

template <typename Call>
std::string DescriptionOf(Call call) {
  return RefusalOf(call).text;
}

/// The texts between the bars of `list`.
inline std::vector<std::string> Parts(const std::string& list) {
  std::vector<std::string> parts;
  std::istringstream in(list + "|");
  for (std::string part; std::getline(in, part, '|');) parts.push_back(part);
  return parts;
}

}  // namespace tevra
