// What a PDF file says, read back by another program.
#pragma once

#include <QRectF>
#include <QString>
#include <filesystem>
#include <vector>

#include "platform/print/TableDocument.h"

namespace tevra::test {

/// The text of each page, its columns beside each other as on paper.
std::vector<QString> PagesOf(const std::filesystem::path& pdf);

struct Word {
  QString text;
  QRectF place;  ///< points
};
/// The words of all pages with their places.
std::vector<Word> WordsOf(const std::filesystem::path& pdf);

/// A list of assets as the screens print it: the row's number, an inventory number, a name that
/// needs a second line in every fifth row, and an amount.
TableContent AssetList(int rows);
/// The inventory number of a row of it.
QString InventoryNumber(int row);
inline constexpr char kTotal[] = "123.456.789.012,34";

}  // namespace tevra::test
