// Copies the pages of a company file into another file, and checks what was copied.
// For the data layer's own sources only.
#pragma once

#include <filesystem>

#include "platform/data/EngineHandle.h"
#include "platform/system/Progress.h"

namespace tevra::detail {

/// Makes sure that nobody else has the open file in use: merges its side file and takes the write
/// lock in a transaction, which is left open. False when somebody has it open.
[[nodiscard]] bool TakeAlone(const EngineHandle& db, const std::filesystem::path& file);

/// True for an error of the file that is written, where another one is only read.
[[nodiscard]] bool IsOfWriting(int code);

/// Copies the whole content of `source`, with what waits in its side file, into `copy`, a new or
/// empty file, and checks the copy. `target`, the copy's later name, is named when it cannot
/// be written; other failures name the source, which the user knows. `progress` counts pages.
void CopyPages(const std::filesystem::path& source, const std::filesystem::path& copy,
               const std::filesystem::path& target, const Progress& progress);

/// Throws Failure -2147467259 with `named` unless the open file is a whole company file.
void CheckContent(const EngineHandle& db, const std::filesystem::path& named,
                  const Progress& progress, int pages);

}  // namespace tevra::detail
