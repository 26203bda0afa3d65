// The PDF file: whole or as it was before.
#include <QProcess>
#include <csignal>

#include <sys/resource.h>

#include "platform/print/Pdf.h"
#include "platform/text/Failure.h"
#include "tests/print/PdfText.h"
#include "tests/system/Folder.h"

namespace tevra::test {
namespace {

using SavedPdf = FolderTest;

long NumberOfFailure(PagedDocument& document, const std::filesystem::path& path) {
  try {
    SavePdf(document, path);
  } catch (const Failure& failure) {
    return failure.Number();
  }
  return 0;
}

TEST_F(SavedPdf, CarriesItsTitleAndPaper) {
  TableDocument document(AssetList(3), MakePageLayout(QPageSize::A5, QPageLayout::Landscape,
                                                      QMarginsF(10, 10, 10, 10)));
  ASSERT_TRUE(SavePdf(document, folder_ / "lista.pdf"));
  QProcess info;
  info.start("pdfinfo", {QString::fromStdString((folder_ / "lista.pdf").string())});
  ASSERT_TRUE(info.waitForFinished());
  const QString told = QString::fromUtf8(info.readAllStandardOutput());
  EXPECT_TRUE(told.contains("Lista imobilizarilor")) << told.toStdString();
  EXPECT_TRUE(told.contains("595 x 420 pts") || told.contains("595 x 419 pts"))
      << told.toStdString();
}

TEST_F(SavedPdf, WhatCannotBeWrittenLeavesTheFileOfBefore) {
  TableDocument document(AssetList(120));
  EXPECT_EQ(NumberOfFailure(document, folder_ / "lipsa" / "lista.pdf"), kPathNotFound);
  EXPECT_EQ(NumberOfFailure(document, folder_), kPermissionDenied);
  const std::filesystem::path kept = Make("lista.pdf", "vechi");
  std::filesystem::permissions(kept, std::filesystem::perms::owner_read);
  EXPECT_EQ(NumberOfFailure(document, kept), kPermissionDenied);
  EXPECT_EQ(Content(kept), "vechi");
  EXPECT_EQ(NamesIn(folder_), std::vector<std::string>{"lista.pdf"});
}

TEST_F(SavedPdf, AFullDiskLeavesTheFileOfBefore) {
  TableDocument document(AssetList(120));
  const std::filesystem::path kept = Make("lista.pdf", "vechi");
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit small{4096, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const long number = NumberOfFailure(document, kept);
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(number, kDiskFull);
  EXPECT_EQ(Content(kept), "vechi");
  EXPECT_EQ(NamesIn(folder_), std::vector<std::string>{"lista.pdf"});
}

TEST_F(SavedPdf, GivenUpOnAnyPageItLeavesTheFileOfBefore) {
  const std::filesystem::path kept = Make("lista.pdf", "vechi");
  for (const int steps : {1, 2, 5}) {
    TableDocument document(AssetList(120));
    int step = 0;
    EXPECT_FALSE(SavePdf(document, kept, [&](int, int) { return ++step < steps; }));
    EXPECT_EQ(step, steps);
  }
  EXPECT_EQ(Content(kept), "vechi");
  EXPECT_EQ(NamesIn(folder_), std::vector<std::string>{"lista.pdf"});
}

}  // namespace
}  // namespace tevra::test
