#include "platform/data/Command.h"

#include "platform/data/Database.h"

namespace tevra {

struct Command::Impl {
  Impl(const Connection& connection, const std::string& sql)
      : database(detail::DatabaseOf(connection)), statement(*database, sql, {}, rewritten) {}

  std::shared_ptr<detail::Database> database;
  dialect::Rewritten rewritten;
  detail::Statement statement;
};

Command::Command(const Connection& connection, const std::string& sql)
    : impl_(std::make_unique<Impl>(connection, sql)) {}
Command::~Command() = default;
Command::Command(Command&&) noexcept = default;
Command& Command::operator=(Command&&) noexcept = default;

void Command::Execute(const Values& params) {
  const detail::ResetAtEnd atEnd{impl_->statement};
  impl_->statement.Bind(params);
  while (impl_->statement.Step()) {
  }
}

Value Command::QueryValue(const Values& params) {
  const detail::ResetAtEnd atEnd{impl_->statement};
  impl_->statement.Bind(params);
  return impl_->statement.Step() ? impl_->statement.Column(0) : Value();
}

}  // namespace tevra
