// Looks for damage in an open company file.
#pragma once

#include <string>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/text/Failure.h"

namespace tevra {

/// A company file that is damaged. Nothing was done with it.
class DamagedFile : public Failure {
 public:
  explicit DamagedFile(const std::string& description) : Failure(kDatabaseNotOpened, description) {}
};

/// How much is read: the structure of every page, or also whether each index agrees with its table,
/// which takes several times as long.
enum class CheckDepth { kQuick, kFull };

/// What is wrong, in the engine's words, at most 20 lines; empty for a file in order. Sees what the
/// caller's transaction has changed. Throws Failure when the file cannot be read, except for
/// damage.
std::vector<std::string> FindDamage(Connection& company, CheckDepth depth);

/// True for a failure because of damage, wherever it was noticed.
bool TellsDamage(const Failure& failure);

/// "Baza de date este deteriorata: <file> (<fault>)".
std::string DamageText(const std::string& file, const std::string& fault);

/// Throws DamagedFile when a quick check finds something.
void RequireIntact(Connection& company);

}  // namespace tevra
