#include "platform/data/Command.h"

#include "platform/data/Database.h"

namespace tevra {

struct Command::Impl {
  Impl(const Connection& connection, const std::string& sql)
      : database(detail::DatabaseOf(connection)), statement(*database, sql, {}, rewritten) {}

  // A parameter keeps its value from one run to the next; the engine copies texts, so those that
  // are the same are not bound again.
  void Bind(const Values& params) {
    if (bound.size() != params.size()) {
      statement.Bind(params);
      bound = params;
      return;
    }
    for (std::size_t i = 0; i < params.size(); ++i) {
      const auto kind = params[i].GetKind();
      const bool text = kind == Value::Kind::Text || kind == Value::Kind::DateTime;
      if (text && params[i] == bound[i]) continue;
      statement.Bind(static_cast<int>(i) + 1, params[i]);
      bound[i] = params[i];
    }
  }

  std::shared_ptr<detail::Database> database;
  dialect::Rewritten rewritten;
  detail::Statement statement;
  Values bound;
};

Command::Command(const Connection& connection, const std::string& sql)
    : impl_(std::make_unique<Impl>(connection, sql)) {}
Command::~Command() = default;

void Command::Execute(const Values& params) {
  const detail::ResetAtEnd atEnd{impl_->statement};
  impl_->Bind(params);
  while (impl_->statement.Step()) {
  }
}

Value Command::QueryValue(const Values& params) {
  const detail::ResetAtEnd atEnd{impl_->statement};
  impl_->Bind(params);
  return impl_->statement.Step() ? impl_->statement.Column(0) : Value();
}

}  // namespace tevra
