// Which boxes of a screen hold something else than what was loaded or saved.
#pragma once

#include <QObject>
#include <QWidget>
#include <map>
#include <optional>

namespace tevra {

/// Remembers what boxes hold at one moment and compares it with what they hold later, whoever
/// changed them. Knows the boxes of Boxes.h and DataCombo.h and the toolkit's own of these kinds.
class ChangeWatch : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;
  ~ChangeWatch() override;

  /// Remembers what `part`, if it is a box, and all boxes in it hold now, the hidden ones too.
  void Remember(QWidget* part);
  /// The same for the boxes that were remembered before.
  void RememberAll();

  /// True when a remembered box holds something else by now. A number written in another way is
  /// the same number, and a number that shows the same text is the same too.
  bool Differs() const;
  /// The same for `part`, if it is a box, and the boxes in it.
  bool Differs(const QWidget* part) const;

 signals:
  /// A remembered box changed, perhaps back to what it held.
  void Changed();

 private:
  struct Content {
    QString text;
    std::optional<double> number;
    bool operator==(const Content& other) const;
  };
  static bool IsBox(const QWidget* widget);
  static Content ContentOf(const QWidget* box);
  void RememberBox(QWidget* box);
  void Follow(QWidget* box);

  std::map<const QWidget*, Content> remembered_;
};

}  // namespace tevra
