#pragma once

#include <string>

#include "session/CompanyRegistry.h"

namespace tevra {

/// The company of a code, or one that is not there.
inline Company RowOf(const CompanyRegistry& registry, const std::string& code) {
  return registry.Find(code).value_or(Company{code, {}, {}});
}

}  // namespace tevra
