// A document of many pages that keeps count of its painting, and hands out its rows.
#pragma once

#include <map>

#include "platform/print/PageSettings.h"
#include "platform/print/PagedDocument.h"

namespace tevra::test {

/// A page a step, ten lines on each: "Mijlocul fix 12 de pe pagina 2". A line's amount is its
/// number and 50 bani.
class RegisterDocument : public PagedDocument {
 public:
  static constexpr int kLines = 10;

  explicit RegisterDocument(int pages, const QPageLayout& layout = DefaultPageLayout())
      : PagedDocument("Registru: luna 3", layout), pages_(pages) {}

  int PageCount() const override { return laidOut_; }
  bool IsComplete() const override { return laidOut_ == pages_; }
  void LayOutMore() override;
  void PaintPage(QPainter& painter, int page) override;
  bool HasRows() const override { return true; }
  std::unique_ptr<DocumentRows> Rows() override;

  /// How often each page was painted.
  std::map<int, int> painted;
  int PaintedPages() const { return static_cast<int>(painted.size()); }

  /// The page that cannot be painted; none below 0.
  int brokenPage = -1;
  /// The pages that its slow source of data has given so far.
  int ready = 1000000;
  /// What stands at the foot of every page.
  QString foot;

 protected:
  void Restart() override { laidOut_ = 0; }

 private:
  int pages_;
  int laidOut_ = 0;
};

}  // namespace tevra::test
