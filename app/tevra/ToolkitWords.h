// Qt's own texts in Romanian: file dialogs, menus of text boxes.
#pragma once

#include <QTranslator>

namespace tevra {

class ToolkitWords : public QTranslator {
 public:
  using QTranslator::QTranslator;

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* text, const char* disambiguation,
                    int n) const override;
};

}  // namespace tevra
