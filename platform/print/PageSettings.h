// The pages that the user chose: paper, orientation, margins, for each kind of document.
#pragma once

#include <QPageLayout>
#include <optional>
#include <string>
#include <vector>

namespace tevra {

inline constexpr char kPageSetting[] = "Pagina";  ///< the name of the general setting
inline constexpr char kPageOfKind[] = "Pagini/";  ///< before the name of a kind of document

inline constexpr double kLeastMargin = 2;  ///< mm
inline constexpr double kMostMargin = 60;  ///< mm
inline constexpr double kLeastArea = 40;   ///< mm of width and of height left to print on

struct Paper {
  const char* name;
  QPageSize::PageSizeId size;
};
/// The papers to choose from; the first is the usual one.
const std::vector<Paper>& Papers();

/// The paper of a name, without case; nothing for a name that is none.
const Paper* FindPaper(const std::string& name);

/// A page of one of these papers; `margins` in mm.
QPageLayout MakePageLayout(QPageSize::PageSizeId paper, QPageLayout::Orientation orientation,
                           const QMarginsF& margins);
/// A4, portrait, 15 mm around.
QPageLayout DefaultPageLayout();

/// True when the margins leave enough to print on.
bool HasRoomToPrint(const QPageLayout& layout);

/// A page as a text that no locale changes, "A4 portrait 15 15 15 15": the margins in mm at the
/// left, top, right and bottom.
std::string PageLayoutText(const QPageLayout& layout);
/// The page of such a text; nothing when it is damaged or names a page that nobody could choose.
std::optional<QPageLayout> ParsePageLayout(const std::string& text);

/// The page that the user chose for a kind of document, such as "frmImo.TDBGrid1" or
/// "DataReportCHE"; without one the general page, and without that the default one. A damaged
/// setting counts as none.
QPageLayout RememberedPageLayout(const std::string& kind = {});
/// Keeps the page of a kind, or without a kind the general page. Throws Failure 70 when the
/// settings cannot be kept.
void RememberPageLayout(const QPageLayout& layout, const std::string& kind = {});

}  // namespace tevra
