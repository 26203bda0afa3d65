// The preview of a document.
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

/// Lays out and searches a long document while its first pages are visible.
class frmPreview : public Form {
  Q_OBJECT

 public:
  explicit frmPreview(std::unique_ptr<PagedDocument> document, QWidget* parent = nullptr);
  ~frmPreview() override;

  PagedDocument& Document() { return *document_; }

  QToolButton* cmdListaPagini;  ///< shows small pictures of the pages at the left
  QToolButton* cmdPrima;
  QToolButton* cmdInapoi;
  QLineEdit* txtPagina;  ///< the current page; Enter goes to the typed one
  QLabel* lblPagini;     ///< "din 12"; "din 12..." while layout goes on
  QToolButton* cmdInainte;
  QToolButton* cmdUltima;
  QToolButton* cmdMicsorare;
  QComboBox* cboZoom;
  QToolButton* cmdMarire;
  QToolButton* cmdCauta;
  QPushButton* cmdTiparire;
  QPushButton* cmdSalvarePDF;
  QPushButton* cmdFoaieCalcul;  ///< this and the next one: only for a document that has rows
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
  std::vector<std::pair<QPushButton*, QString>> captions_;  // in the order in which they are hidden
  QTimer* idle_;
  QTimer* searching_;
  bool complete_ = false;  // the state shown by the counts
};

/// Opens a document in its own window, beside other previews. Closing the window deletes it and its
/// document. Opened from a modal screen it is modal too, because otherwise it could not be used.
/// Throws what the layout of the first page throws.
void ShowPreview(std::unique_ptr<PagedDocument> document);

}  // namespace tevra
