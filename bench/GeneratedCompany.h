// Companies of any size for measuring: assets of all methods and states in many centres and places,
// with long names, the same ones at every run.
#pragma once

#include <filesystem>

#include "platform/data/Connection.h"

namespace tevra::bench {

/// A company file with `assets` generated assets, made from the template; the folder goes with it.
class GeneratedCompany {
 public:
  explicit GeneratedCompany(int assets);
  ~GeneratedCompany();
  GeneratedCompany(const GeneratedCompany&) = delete;
  GeneratedCompany& operator=(const GeneratedCompany&) = delete;

  const std::filesystem::path& File() const { return file_; }
  std::string ConnectionString() const;

 private:
  std::filesystem::path folder_;
  std::filesystem::path file_;
};

}  // namespace tevra::bench
