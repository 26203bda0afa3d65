// Checks shared by the tests of the conversions.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "platform/text/Failure.h"

namespace tevra {

/// The number of the failure that `call` throws, 0 when it throws none.
template <typename Call>
long FailureOf(Call call) {
  try {
    call();
    return 0;
  } catch (const Failure& failure) {
    return failure.Number();
  }
}

/// The description of the failure that `call` throws.
template <typename Call>
std::string DescriptionOf(Call call) {
  try {
    call();
    return "(no failure)";
  } catch (const Failure& failure) {
    return failure.Description();
  }
}

}  // namespace tevra
