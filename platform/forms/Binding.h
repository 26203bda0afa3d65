// What ties a box to a field of a data source.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <string>

#include "platform/forms/Adodc.h"

namespace tevra {

/// Lives as long as its box. Loads the field into the box when the current row changes, and hands
/// in what the user changed when the row is written.
class Binding : public QObject {
 public:
  /// How the box takes and gives values. `store`: nothing where the user changed nothing; may
  /// throw. `fit`, if there: called with the field when the rows change.
  struct Box {
    std::function<void(const Value& value)> load;
    std::function<std::optional<Value>()> store;
    std::function<void(const FieldDef& field)> fit = {};
  };

  Binding(QObject* owner, Box box) : QObject(owner), box_(std::move(box)) {}

  /// No source cuts the box loose; it keeps what it shows.
  void Bind(Adodc* source, const std::string& field);
  const std::string& Field() const { return field_; }

 private:
  void Load();
  void Fit();

  Box box_;
  Adodc* source_ = nullptr;
  std::string field_;
};

}  // namespace tevra
