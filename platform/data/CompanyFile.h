// A company file as a whole: recognising it, copying it, and using it alone.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "platform/system/Progress.h"

namespace tevra {

/// Marks the file as ours in its header ("TEVR").
inline constexpr int kApplicationId = 0x54455652;

/// Throws Failure -2147467259 with the file's name when it is missing, not one of ours, or shorter
/// than its header says. Only reads the header.
void CheckCompanyFile(const std::filesystem::path& file);

/// True when the content of a company file is not in order. What waits in its side file is left
/// out.
[[nodiscard]] bool IsDamaged(const std::filesystem::path& file);

/// Makes sure that nobody else has the file open and merges its side files into it. Throws Failure
/// 70 with the file's name when another program has it open or it is write-protected.
void RequireSoleUse(const std::filesystem::path& file);

/// RequireSoleUse, and no other program can open the file while this lives; for replacing or
/// removing it.
class SoleUse {
 public:
  explicit SoleUse(const std::filesystem::path& file);

 private:
  std::shared_ptr<void> handle_;
};

/// Writes the bytes of any regular file to `to`. The file is read through SQLite, because opening
/// and closing it directly would release the locks of our open connections. Throws Failure 61, 70
/// with the name of `to`, or -2147467259.
void CopyBytes(const std::filesystem::path& from, const std::filesystem::path& to);

/// Removes a file with its side files; files that are missing or cannot be removed are
/// ignored.
void RemoveCompanyFile(const std::filesystem::path& file) noexcept;

/// Copies a company file to `target`, which is replaced whole or not at all; the copy is read back
/// and checked. `prepare` may change the copy before it gets its name. An
/// existing `target` must not be in use. `progress` counts pages. Throws Failure like
/// CheckCompanyFile, RequireSoleUse and paths::ReplaceFile, what `prepare` throws, and GivenUp.
void CopyCompanyFile(const std::filesystem::path& source, const std::filesystem::path& target,
                     const std::function<void(const std::filesystem::path& copy)>& prepare = {},
                     const Progress& progress = {});

/// Rewrites a company file without waste, through the file `work` in the same folder, which is
/// removed first if it is there. The rewritten file is read back and checked before it takes the
/// file's place. `progress` counts pages. Throws Failure 70 with the file's name when anybody else
/// has it open, -2147467259 when it is damaged, like paths::ReplaceFile, and GivenUp; the file is
/// then as it was.
void CompactCompanyFile(const std::filesystem::path& file, const std::filesystem::path& work,
                        const Progress& progress = {});

}  // namespace tevra
