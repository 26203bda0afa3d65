// The frames of a card: boxes below each other, each behind its label.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <string>

class QGridLayout;
class QLayout;

namespace tevra {

/// "name(3)", the name of a control in an array of controls.
std::string Indexed(const char* name, std::size_t index);

/// A label; its shortcut goes to `box`.
QLabel* LabelOf(QWidget* box, const char* caption);

/// A frame of a card, without parent.
QGroupBox* MakeFrame(const char* name, const char* caption);

/// Keeps the texts of the box, or of the boxes in the frame, as dark while they are disabled: they
/// are still read.
void MakeReadable(QWidget* boxes);

/// A page that scrolls where the window has less room than it needs.
QScrollArea* Scrolled(QWidget* page);

/// Pairs of a label and its box, one pair in each row of `frame`.
class BoxPairs {
 public:
  explicit BoxPairs(QWidget* frame);

  void Add(const char* caption, QWidget* box, const char* unit = nullptr);
  void AddAcross(QWidget* widget);
  void AddAcross(QLayout* layout);
  /// The rows stay at the top of a frame that is higher than they need.
  void Close();

 private:
  QGridLayout* grid_;
  int row_ = 0;
};

}  // namespace tevra
