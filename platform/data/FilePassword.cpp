#include "platform/data/FilePassword.h"

#include <array>
#include <set>

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include "platform/data/Database.h"

namespace tevra {

namespace {

constexpr int kIterations = 20000;
constexpr int kMostIterations = 1000000;  // a larger number in a file would only waste time

std::string Hex(const unsigned char* bytes, std::size_t size) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < size; ++i) {
    text += kDigits[bytes[i] >> 4];
    text += kDigits[bytes[i] & 15];
  }
  return text;
}

std::string Hash(const std::string& password, const std::string& salt, int iterations) {
  std::array<unsigned char, 32> digest{};
  const int done = PKCS5_PBKDF2_HMAC(password.data(), static_cast<int>(password.size()),
                                     reinterpret_cast<const unsigned char*>(salt.data()),
                                     static_cast<int>(salt.size()), iterations, EVP_sha256(),
                                     static_cast<int>(digest.size()), digest.data());
  if (done != 1) throw Failure(kDatabaseNotOpened, "The password cannot be computed");
  return Hex(digest.data(), digest.size());
}

bool Equal(const std::string& a, const std::string& b) {
  return a.size() == b.size() && CRYPTO_memcmp(a.data(), b.data(), a.size()) == 0;
}

}  // namespace

void SetFilePassword(Connection& connection, const std::string& password) {
  detail::Database& database = *detail::DatabaseOf(connection);
  Transaction transaction(connection);
  const std::string table = detail::Quoted(kPasswordTable);
  database.Run("CREATE TABLE IF NOT EXISTS " + table +
               " (SARE TEXT(64) NOT NULL, PASI INTEGER NOT NULL, AMPRENTA TEXT(64) NOT NULL)");
  database.Run("DELETE FROM " + table);
  if (!password.empty()) {
    std::array<unsigned char, 16> salt{};
    if (RAND_bytes(salt.data(), static_cast<int>(salt.size())) != 1) {
      throw Failure(kDatabaseNotOpened, "The password cannot be computed");
    }
    const std::string text = Hex(salt.data(), salt.size());
    detail::Statement insert(database, "INSERT INTO " + table + " VALUES (?, ?, ?)");
    insert.Bind({text, kIterations, Hash(password, text, kIterations)});
    insert.Step();
  }
  transaction.Commit();
}

namespace detail {

bool FilePasswordFits(Database& database, const std::string& password) {
  Statement exists(database, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?");
  exists.Bind({kPasswordTable});
  if (!exists.Step()) return true;
  Statement select(database, "SELECT SARE, PASI, AMPRENTA FROM " + Quoted(kPasswordTable));
  if (!select.Step()) return true;
  const std::string salt = select.Column(0).TextOrEmpty();
  const std::string expected = select.Column(2).TextOrEmpty();
  const double iterations = select.Column(1).AsDouble();
  if (!(iterations >= 1 && iterations <= kMostIterations)) return false;
  // Every routine opens its own connection, so the result of a correct password is remembered.
  static std::set<std::string> fitted;
  const std::string key = salt + '\n' + expected + '\n' + password;
  if (fitted.count(key) != 0) return true;
  if (!Equal(Hash(password, salt, static_cast<int>(iterations)), expected)) return false;
  fitted.insert(key);
  return true;
}

}  // namespace detail

}  // namespace tevra
