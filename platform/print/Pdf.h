// A document as a PDF file.
#pragma once

#include <filesystem>

#include "platform/print/PagedDocument.h"

namespace tevra {

/// Writes the whole document with its title and with selectable text. The file is replaced whole or
/// not at all. `progress` follows the layout and then each page written; returns false when it
/// cancelled. Throws Failure 76 or 70 for a path that cannot be written, 61 for a full disk, and
/// what the document's layout and painting throw.
bool SavePdf(PagedDocument& document, const std::filesystem::path& path,
             const Progress& progress = {});

}  // namespace tevra
