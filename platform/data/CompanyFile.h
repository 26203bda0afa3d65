// A company file as a whole: what tells it from other files, copying it, and having it alone.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>

namespace tevra {

/// Stands in the file's header and marks it as ours ("TEVR").
inline constexpr int kApplicationId = 0x54455652;

/// Throws Failure -2147467259, naming the file, when it is missing, not one of ours, or shorter
/// than its own header says. Reads the header only and writes nothing.
void CheckCompanyFile(const std::filesystem::path& file);

/// Makes sure that nobody else has the file open, and leaves it whole without side files. Throws
/// Failure 70 with the file's name when somebody has, or when it is write-protected.
void RequireSoleUse(const std::filesystem::path& file);

/// RequireSoleUse, and nobody else can open the file while this lives: for replacing or removing
/// it.
class SoleUse {
 public:
  explicit SoleUse(const std::filesystem::path& file);

 private:
  std::shared_ptr<void> handle_;
};

/// Removes a file with whatever side files the engine left beside it; nothing happens to what is
/// not there or cannot be removed.
void RemoveCompanyFile(const std::filesystem::path& file) noexcept;

/// Copies a company file to `target`, which is replaced whole or not at all; the copy has been read
/// back and checked. `prepare` may change the copy, and close it, before it gets its name. An
/// existing `target` must not be in use. Throws Failure as CheckCompanyFile, RequireSoleUse and
/// paths::ReplaceFile, and what `prepare` throws.
void CopyCompanyFile(const std::filesystem::path& source, const std::filesystem::path& target,
                     const std::function<void(const std::filesystem::path& copy)>& prepare = {});

}  // namespace tevra
