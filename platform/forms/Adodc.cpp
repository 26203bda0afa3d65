#include "platform/forms/Adodc.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

#include "platform/forms/FormsApplication.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"

namespace tevra {

// The navigation strip: four buttons around the current row's place. Edits are written before the
// row is left; when that fails, the row stays visible.
class Adodc::Strip {
 public:
  explicit Strip(Adodc* owner) : owner_(*owner) {
    auto* layout = new QHBoxLayout(owner);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    first_ = AddButton(layout, QStyle::SP_MediaSkipBackward, "Prima inregistrare",
                       [this] { owner_.MoveFirst(); });
    previous_ = AddButton(layout, QStyle::SP_MediaSeekBackward, "Inregistrarea anterioara",
                          [this] { owner_.MovePrevious(); });
    place_ = new QLabel(owner);
    place_->setObjectName(owner->objectName() + "_Place");
    place_->setAlignment(Qt::AlignCenter);
    place_->setMinimumWidth(110);
    layout->addWidget(place_, 1);
    next_ = AddButton(layout, QStyle::SP_MediaSeekForward, "Inregistrarea urmatoare",
                      [this] { owner_.MoveNext(); });
    last_ = AddButton(layout, QStyle::SP_MediaSkipForward, "Ultima inregistrare",
                      [this] { owner_.MoveLast(); });
  }

  void Show() {
    const bool open = owner_.recordset_.IsOpen();
    const std::size_t count = open ? owner_.recordset_.RecordCount() : 0;
    const std::size_t at =
        owner_.HasRow() && !owner_.recordset_.IsAdding() ? owner_.recordset_.Position() + 1 : 0;
    place_->setText(count == 0 ? QString("nici o inregistrare")
                               : QString("%1 din %2").arg(at).arg(count));
    first_->setEnabled(at > 1);
    previous_->setEnabled(at > 1);
    next_->setEnabled(at < count);
    last_->setEnabled(at < count);
  }

 private:
  template <class Pressed>
  QToolButton* AddButton(QHBoxLayout* layout, QStyle::StandardPixmap icon, const char* tip,
                         Pressed pressed) {
    auto* button = new QToolButton(&owner_);
    button->setAutoRaise(true);
    button->setIcon(owner_.style()->standardIcon(icon));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    QObject::connect(button, &QToolButton::clicked, &owner_,
                     [this, pressed] { AfterEvent(&owner_, [this, pressed] { Press(pressed); }); });
    layout->addWidget(button);
    return button;
  }

  template <class Pressed>
  void Press(const Pressed& pressed) {
    try {
      owner_.UpdateRow();
      pressed();
      emit owner_.MovedByUser();
    } catch (const std::exception&) {
      ShowMessage({ShortErrorText(CaughtFailure()), kCritical, {}, {}});
    }
  }

  Adodc& owner_;
  QLabel* place_;
  QToolButton* first_;
  QToolButton* previous_;
  QToolButton* next_;
  QToolButton* last_;
};

Adodc::Adodc(const char* name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  hide();
}

Adodc::~Adodc() = default;

// Most sources are invisible, and their buttons would slow down the opening of the screen.
void Adodc::showEvent(QShowEvent* event) {
  if (!strip_) {
    strip_ = std::make_unique<Strip>(this);
    strip_->Show();
  }
  QWidget::showEvent(event);
}

void Adodc::SetConnectionString(const std::string& connectionString) {
  connectionString_ = connectionString;
}

void Adodc::SetConnection(const Connection& connection) {
  shared_ = connection;
}

void Adodc::SetRecordSource(const std::string& sql, const Values& params) {
  sql_ = sql;
  params_ = params;
}

void Adodc::Refresh(const std::function<void(tevra::Recordset& rows)>& arrange) {
  Connection connection = shared_.IsOpen() ? shared_ : Connection(connectionString_);
  tevra::Recordset rows = connection.OpenKeyset(sql_, params_, totalled_);
  if (arrange) arrange(rows);
  connection_ = connection;
  SetRecordset(rows);
}

void Adodc::SetRecordset(const tevra::Recordset& recordset) {
  recordset_ = recordset;
  Notify();
}

void Adodc::Notify() {
  emit RowsChanged();
  NotifyRow();
}

void Adodc::NotifyRow() {
  if (strip_) strip_->Show();
  emit MoveComplete();
}

bool Adodc::HasRow() const {
  return recordset_.IsOpen() && !recordset_.Eof() && !recordset_.Bof();
}

void Adodc::MoveFirst() {
  if (recordset_.IsOpen() && recordset_.RecordCount() > 0) MoveTo(0);
}

void Adodc::MovePrevious() {
  if (HasRow() && recordset_.Position() > 0) MoveTo(recordset_.Position() - 1);
}

void Adodc::MoveNext() {
  if (HasRow() && recordset_.Position() + 1 < recordset_.RecordCount()) {
    MoveTo(recordset_.Position() + 1);
  }
}

void Adodc::MoveLast() {
  if (recordset_.IsOpen() && recordset_.RecordCount() > 0) MoveTo(recordset_.RecordCount() - 1);
}

void Adodc::MoveTo(std::size_t position) {
  recordset_.SetPosition(position);
  NotifyRow();
}

void Adodc::Collected::Set(const std::string& field, const Value& value) {
  tevra::Recordset& rows = source_.recordset_;
  if (!source_.HasRow()) rows.AddNew();
  rows.Set(field, value);
  any = true;
}

void Adodc::UpdateRow() {
  if (!recordset_.IsOpen()) throw Failure(kObjectRequired, "Object required: no rows");
  const std::size_t before = recordset_.RecordCount();
  Collected collected(*this);
  emit Collecting(collected);
  try {
    if (collected.failure_) throw *collected.failure_;
    if (recordset_.IsEditing()) recordset_.Update();
  } catch (const Failure&) {
    recordset_.CancelUpdate();
    throw;
  }
  // The first row, or a new row among the others.
  const bool more = recordset_.RecordCount() != before;
  more ? Notify() : NotifyRow();
}

void Adodc::CancelRow() {
  if (recordset_.IsOpen()) recordset_.CancelUpdate();
  emit MoveComplete();
}

void Adodc::Close() {
  recordset_.Close();
  connection_.Close();
  shared_.Close();
  Notify();
}

}  // namespace tevra
