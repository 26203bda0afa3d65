// A document before it is printed.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/forms/Form.h"
#include "platform/print/FindBar.h"
#include "platform/print/PageList.h"
#include "platform/print/PageView.h"
#include "platform/print/PagedDocument.h"

class QTimer;

namespace tevra {

/// Lays out a long document, and searches it, while its first pages are on show.
class frmPreview : public Form {
  Q_OBJECT

 public:
  explicit frmPreview(std::unique_ptr<PagedDocument> document, QWidget* parent = nullptr);
  ~frmPreview() override;

  PagedDocument& Document() { return *document_; }

  QToolButton* cmdListaPagini;  ///< shows the pages as small pictures at the left
  QToolButton* cmdPrima;
  QToolButton* cmdInapoi;
  QLineEdit* txtPagina;  ///< the page on show; Enter goes to the one typed
  QLabel* lblPagini;     ///< "din 12"; "din 12..." while there are more to come
  QToolButton* cmdInainte;
  QToolButton* cmdUltima;
  QToolButton* cmdMicsorare;
  QComboBox* cboZoom;
  QToolButton* cmdMarire;
  QToolButton* cmdCauta;
  QPushButton* cmdTiparire;
  QPushButton* cmdSalvarePDF;
  QPushButton* cmdFoaieCalcul;  ///< this and the next: of a document that has rows
  QPushButton* cmdCSV;
  QPushButton* cmdPagina;
  QPushButton* cmdIesire;
  FindBar* Find;
  PageList* List;
  PageView* View;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Busy;
  using Save = std::function<bool(const ExportTable& table, const std::filesystem::path& file,
                                  const Progress& progress)>;
  void Build();
  QWidget* BuildBar();
  void BuildZoom(QWidget* bar);
  void FitCaptions();
  void Wire();
  void WirePages();
  void WireKeys();
  void LayOutWhenIdle();
  void SearchWhenIdle();
  void ShowList(bool shown);
  void PagesChanged();
  void ShowCounts();
  void GoToTyped();
  void Zoom(int step);
  void ZoomChosen(int index);
  void ShowZoom();
  void cmdTiparire_Click();
  void cmdSalvarePDF_Click();
  void SaveRows(const char* what, const char* extension, const Save& save);
  void cmdPagina_Click();

  std::unique_ptr<PagedDocument> document_;
  QWidget* bar_;
  std::vector<std::pair<QPushButton*, QString>> captions_;  // the first gives way first
  QTimer* idle_;
  QTimer* searching_;
  bool complete_ = false;  // what the counts on show say
};

/// Opens a document in a window of its own, beside those already open. Closed, it is deleted with
/// its document. From a modal screen it is modal too, else it could not be used. Throws what the
/// layout of the first page throws.
void ShowPreview(std::unique_ptr<PagedDocument> document);

}  // namespace tevra
