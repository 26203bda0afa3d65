// Binds a box to a field of a data source.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <string>

#include "platform/forms/Adodc.h"

namespace tevra {

/// Lives as long as its box. Loads the field into the box when the current row changes, and passes
/// the user's change on when the row is written.
class Binding : public QObject {
 public:
  /// The box's functions for values. `store`: returns nothing when the user changed nothing; may
  /// throw. `fit`, if set: called with the field when the rows change.
  struct Box {
    std::function<void(const Value& value)> load;
    std::function<std::optional<Value>()> store;
    std::function<void(const FieldDef& field)> fit = {};
  };

  Binding(QObject* owner, Box box) : QObject(owner), box_(std::move(box)) {}

  /// nullptr unbinds the box, which keeps its contents.
  void Bind(Adodc* source, const std::string& field);

 private:
  void Load();
  void Fit();

  Box box_;
  Adodc* source_ = nullptr;
  std::string field_;
};

}  // namespace tevra
