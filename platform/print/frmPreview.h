// A document before it is printed.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <memory>

#include "platform/forms/Form.h"
#include "platform/print/PageView.h"
#include "platform/print/PagedDocument.h"

class QTimer;

namespace tevra {

/// Lays out a long document while its first pages are on show.
class frmPreview : public Form {
  Q_OBJECT

 public:
  explicit frmPreview(std::unique_ptr<PagedDocument> document, QWidget* parent = nullptr);
  ~frmPreview() override;

  PagedDocument& Document() { return *document_; }

  QToolButton* cmdPrima;
  QToolButton* cmdInapoi;
  QLineEdit* txtPagina;  ///< the page on show; Enter goes to the one typed
  QLabel* lblPagini;     ///< "din 12"; "din 12..." while there are more to come
  QToolButton* cmdInainte;
  QToolButton* cmdUltima;
  QToolButton* cmdMicsorare;
  QComboBox* cboZoom;
  QToolButton* cmdMarire;
  QPushButton* cmdTiparire;
  QPushButton* cmdSalvarePDF;
  QPushButton* cmdPagina;
  QPushButton* cmdIesire;
  PageView* View;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Busy;
  void Build();
  QWidget* BuildBar();
  void BuildZoom(QWidget* bar);
  void Wire();
  void LayOutWhenIdle();
  void ShowCounts();
  void GoToTyped();
  void Zoom(int step);
  void ZoomChosen(int index);
  void ShowZoom();
  void cmdTiparire_Click();
  void cmdSalvarePDF_Click();
  void cmdPagina_Click();

  std::unique_ptr<PagedDocument> document_;
  QTimer* idle_;
  bool complete_ = false;  // what the counts on show say
};

/// Opens a document in a window of its own, beside those already open. Closed, it is deleted with
/// its document. From a modal screen it is modal too, else it could not be used. Throws what the
/// layout of the first page throws.
void ShowPreview(std::unique_ptr<PagedDocument> document);

}  // namespace tevra
