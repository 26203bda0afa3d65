#include "app/batch/Streams.h"

#include <filesystem>

#include "app/batch/Refusal.h"
#include "platform/system/Paths.h"

namespace tevra::batch {

std::ifstream OpenInput(const std::string& file) {
  const std::filesystem::path path = paths::Resolve(file);
  std::error_code error;
  if (!std::filesystem::exists(path, error)) throw Refusal("Fisierul \"" + file + "\" nu exista !");
  std::ifstream in(path, std::ios::binary);
  if (!in || std::filesystem::is_directory(path, error)) {
    throw Refusal("Fisierul \"" + file + "\" nu poate fi citit !");
  }
  return in;
}

}  // namespace tevra::batch
