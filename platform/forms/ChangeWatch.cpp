#include "platform/forms/ChangeWatch.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <algorithm>

#include "platform/forms/Boxes.h"
#include "platform/forms/DataCombo.h"
#include "platform/text/Dates.h"

namespace tevra {

namespace {

// A combo and a date box have a line of text inside, which is no box of its own.
bool IsPartOfBox(const QLineEdit& line) {
  const QObject* around = line.parent();
  return qobject_cast<const QComboBox*>(around) || qobject_cast<const QAbstractSpinBox*>(around);
}

// A list that was read anew may name the same entry in other words: what counts is its value.
QString TextOf(const QComboBox& combo) {
  if (const auto* bound = dynamic_cast<const DataCombo*>(&combo)) {
    const std::string value = bound->BoundText();
    if (!value.empty()) return "=" + QString::fromStdString(value);
  }
  return combo.currentText();
}

}  // namespace

ChangeWatch::~ChangeWatch() = default;

bool ChangeWatch::Content::operator==(const Content& other) const {
  return text == other.text || (number && other.number && *number == *other.number);
}

bool ChangeWatch::IsBox(const QWidget* widget) {
  if (const auto* line = qobject_cast<const QLineEdit*>(widget)) return !IsPartOfBox(*line);
  if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
    return qobject_cast<const QCheckBox*>(button) || qobject_cast<const QRadioButton*>(button);
  }
  return qobject_cast<const QComboBox*>(widget) || qobject_cast<const QDateEdit*>(widget);
}

ChangeWatch::Content ChangeWatch::ContentOf(const QWidget* box) {
  if (const auto* number = dynamic_cast<const NumberBox*>(box)) {
    return {number->text(), number->IsNumeric() ? number->Number() : std::nullopt};
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(box)) return {line->text(), {}};
  if (const auto* combo = qobject_cast<const QComboBox*>(box)) return {TextOf(*combo), {}};
  if (const auto* typed = dynamic_cast<const DateBox*>(box)) {
    const std::optional<DateTime> meant = typed->Date();
    return {meant ? QString::fromStdString(ShortDate(*meant)) : QString(), {}};
  }
  if (const auto* date = qobject_cast<const QDateEdit*>(box)) {
    return {date->date().toString(Qt::ISODate), {}};
  }
  return {qobject_cast<const QAbstractButton*>(box)->isChecked() ? "1" : "0", {}};
}

void ChangeWatch::Remember(QWidget* part) {
  if (IsBox(part)) RememberBox(part);
  for (QWidget* child : part->findChildren<QWidget*>()) {
    if (IsBox(child)) RememberBox(child);
  }
}

void ChangeWatch::RememberBox(QWidget* box) {
  const bool known = remembered_.count(box) > 0;
  remembered_[box] = ContentOf(box);
  if (!known) Follow(box);
}

void ChangeWatch::Follow(QWidget* box) {
  connect(box, &QObject::destroyed, this, [this, box] { remembered_.erase(box); });
  if (auto* line = qobject_cast<QLineEdit*>(box)) {
    connect(line, &QLineEdit::textChanged, this, &ChangeWatch::Changed);
  } else if (auto* combo = qobject_cast<QComboBox*>(box)) {
    connect(combo, &QComboBox::currentTextChanged, this, &ChangeWatch::Changed);
  } else if (auto* date = qobject_cast<QDateEdit*>(box)) {
    connect(date, &QDateEdit::dateChanged, this, &ChangeWatch::Changed);
  } else if (auto* button = qobject_cast<QAbstractButton*>(box)) {
    connect(button, &QAbstractButton::toggled, this, &ChangeWatch::Changed);
  }
}

void ChangeWatch::RememberAll() {
  for (auto& [box, content] : remembered_) content = ContentOf(box);
}

bool ChangeWatch::Differs() const {
  return std::any_of(remembered_.begin(), remembered_.end(),
                     [](const auto& each) { return !(ContentOf(each.first) == each.second); });
}

bool ChangeWatch::Differs(const QWidget* part) const {
  return std::any_of(remembered_.begin(), remembered_.end(), [part](const auto& each) {
    const bool inPart = each.first == part || part->isAncestorOf(each.first);
    return inPart && !(ContentOf(each.first) == each.second);
  });
}

}  // namespace tevra
