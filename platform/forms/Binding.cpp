#include "platform/forms/Binding.h"

namespace tevra {

void Binding::Bind(Adodc* source, const std::string& field) {
  if (source_) disconnect(source_, nullptr, this, nullptr);
  source_ = source;
  field_ = source ? field : std::string();
  if (!source_) return;
  connect(source_, &QObject::destroyed, this, [this] { source_ = nullptr; });
  connect(source_, &Adodc::RowsChanged, this, [this] { Fit(); });
  connect(source_, &Adodc::MoveComplete, this, [this] { Load(); });
  connect(source_, &Adodc::Collecting, this, [this](Adodc::Collected& collected) {
    collected.Try([&] {
      if (const std::optional<Value> value = box_.store()) collected.Set(field_, *value);
    });
  });
  Fit();
  Load();
}

// A box is empty when the rows lack its field, or when there is no row.
void Binding::Load() {
  Recordset& rows = source_->Recordset();
  const bool there = source_->HasRow() && rows.FindField(field_);
  box_.load(there ? rows.Get(field_) : Value());
}

void Binding::Fit() {
  Recordset& rows = source_->Recordset();
  if (!box_.fit || !rows.IsOpen()) return;
  if (const auto index = rows.FindField(field_)) {
    const FieldInfo& info = rows.Field(*index);
    if (info.typed) box_.fit(info.def);
  }
}

}  // namespace tevra
