#include "reference/ReferenceScreen.h"

#include <QKeyEvent>

#include "platform/forms/FormsApplication.h"
#include "platform/forms/Windows.h"
#include "platform/system/Clock.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "reference/CodeUse.h"
#include "reference/ReferenceTables.h"
#include "session/Combos.h"
#include "session/Lists.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr std::size_t kShortestAccount = 3;
constexpr std::size_t kLongestName = 30;

// "{2}" becomes the text of the second column.
std::string WithColumns(const std::string& question, const DataGrid& grid, std::size_t columns) {
  std::string text = question;
  for (std::size_t i = 0; i < columns; ++i) {
    const std::string mark = "{" + std::to_string(i + 1) + "}";
    const std::size_t at = text.find(mark);
    if (at == std::string::npos) continue;
    text.replace(at, mark.size(), grid.ColumnText(static_cast<int>(i)));
  }
  return text;
}

bool Refuses(ReferenceCell::Test test, const std::string& text) {
  const std::string typed = Trim(text);
  switch (test) {
    case ReferenceCell::Test::kEmpty:
      return typed.empty();
    case ReferenceCell::Test::kNotYesNo:
      return typed != "D" && typed != "N";
    case ReferenceCell::Test::kShort:
      return Len(typed) < kShortestAccount;
  }
  return false;
}

// A text as it stands between quotes.
std::string Doubled(const std::string& text) {
  std::string doubled;
  for (const char each : text) doubled += each == '\'' ? "''" : std::string(1, each);
  return doubled;
}

// The text behind the first "-" of a list's entry.
std::string NameOf(const std::string& entry) {
  const std::size_t dash = entry.find('-');
  return dash == std::string::npos ? std::string() : entry.substr(dash + 1);
}

}  // namespace

ReferenceScreen::ReferenceScreen(const ReferenceTable& table, QWidget* parent)
    : EditorScreen(table.screen, table.caption, parent), table_(table) {
  Edit(Describe());
}

// The sources keep the file open.
ReferenceScreen::~ReferenceScreen() {
  for (const auto& [name, source] : sources_) source->Close();
}

// ---- Building -----------------------------------------------------------------------------------

EditorDescription ReferenceScreen::Describe() {
  EditorDescription editor;
  editor.connection = CurrentSession().connectionString;
  editor.statement = table_.statement;
  for (const ReferenceColumn& column : table_.columns) {
    editor.columns.push_back({column.caption, column.field, column.format});
  }
  editor.toolsKey = GridKey(std::string(table_.screen) + ".grdDataGrid");
  editor.frame = MakeInputFrame(table_.frame, table_.frameCaption, this);
  for (const ReferenceInput& input : table_.inputs) {
    editor.boxes.push_back(MakeInput(input, editor.frame));
  }
  editor.boxesInARow = table_.inputsInARow;
  editor.addTip = table_.addTip;
  for (const ReferenceCheck& check : table_.checks) {
    editor.checks.push_back(
        {[this, &check] { return Fails(check); }, check.message, inputs_.at(check.input).box});
  }
  editor.addFailure = table_.addFailure;
  editor.addFailureLine = table_.addFailureLine;
  editor.added = [this] {
    if (table_.clears) ClearBoxes();
  };
  editor.deleteTip = table_.deleteTip;
  editor.question = [this] { return Question(); };
  for (const ReferenceUse& use : table_.uses) {
    editor.uses.push_back(
        {[this, &use] { return ExistaInTabela(grdDataGrid->ColumnText(0), use.key); },
         use.message});
  }
  editor.deleteFailure = table_.deleteFailure;
  for (const ReferenceCell& cell : table_.cells) {
    editor.cells.push_back(
        {cell.column, [test = cell.test](const std::string& text) { return Refuses(test, text); },
         cell.message});
  }
  editor.size = {table_.width, 460};
  return editor;
}

LabelledBox ReferenceScreen::MakeInput(const ReferenceInput& input, QGroupBox* frame) {
  Input& made = inputs_[input.name];
  made.box = MakeBox(input, frame);
  made.box->setToolTip(input.tip);
  for (const ReferencePicker& picker : input.picker) MakePicker(picker, made, frame);
  return {input.label, made.box, input.stretch, made.picker};
}

QWidget* ReferenceScreen::MakeBox(const ReferenceInput& input, QGroupBox* frame) {
  switch (input.kind) {
    case ReferenceInput::Kind::kText:
      return new TextBox(input.name, frame, input.longest);
    case ReferenceInput::Kind::kUpperText: {
      auto* box = new TextBox(input.name, frame, input.longest);
      box->SetUpperCase();
      return box;
    }
    case ReferenceInput::Kind::kNumber:
      return new NumberBox(input.name, "", frame);
    case ReferenceInput::Kind::kDate: {
      auto* box = new DateBox(input.name, frame);
      box->SetRequired();
      box->SetDate(clock::Today());
      return box;
    }
    case ReferenceInput::Kind::kList:
      break;
  }
  auto* combo = new DataCombo(input.name, frame);
  for (const char* entry : input.entries) combo->addItem(entry, QString(entry));
  if (input.entries.empty()) LoadComboBox(*combo);
  combo->setCurrentIndex(0);
  return combo;
}

void ReferenceScreen::MakePicker(const ReferencePicker& picker, Input& input, QGroupBox* frame) {
  input.picker = new DataCombo(picker.combo, frame);
  input.picker->setToolTip(input.box->toolTip());
  input.onDemand = picker.onDemand;
  Adodc*& source = sources_[picker.source];
  if (!source) {
    source = new Adodc(picker.source, this);
    source->hide();
  }
  LoadDataCombo(*source, *input.picker, picker.statement, picker.listField, picker.boundField);
  connect(input.picker, &DataCombo::Picked, this, [this, &input] { Picked(input); });
  if (!input.onDemand) {
    OnLeave(input.box, "txtCont_LostFocus", [this, &input](Procedure&) {
      FindTyped(input);
      return true;
    });
    return;
  }
  QSizePolicy keeps = input.picker->sizePolicy();
  keeps.setRetainSizeWhenHidden(true);
  input.picker->setSizePolicy(keeps);
  input.picker->hide();
  input.picker->installEventFilter(this);
  input.box->installEventFilter(this);
}

// ---- Lists that fill a box ----------------------------------------------------------------------

void ReferenceScreen::Picked(Input& input) {
  input.picked = input.picker->Text();
  static_cast<TextBox*>(input.box)->SetText(input.picker->BoundText());
  if (!input.onDemand) return;
  GiveFocus(input.box);
  input.picker->hide();
}

// A code that was typed into the box shows its entry, as if it had been picked.
void ReferenceScreen::FindTyped(Input& input) {
  const std::string typed = Trim(static_cast<TextBox*>(input.box)->Text());
  if (EqualNoCase(input.picker->BoundText(), typed)) return;
  input.picker->SetBoundText(typed);
  input.picked = input.picker->Text();
}

void ReferenceScreen::ShowPicker(const Input& input) {
  input.picker->SetBoundText(static_cast<TextBox*>(input.box)->Text());
  input.picker->show();
  input.picker->setFocus();
}

bool ReferenceScreen::eventFilter(QObject* watched, QEvent* event) {
  for (const auto& [name, input] : inputs_) {
    if (!input.onDemand) continue;
    if (watched == input.box) {
      const bool key =
          event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F4;
      if (key || event->type() == QEvent::MouseButtonRelease) {
        AfterEvent(this, [&shown = input] { ShowPicker(shown); });
        if (key) return true;
      }
    }
    if (watched == input.picker && event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
      AfterEvent(this, [&left = input] {
        if (!left.picker->hasFocus()) left.picker->hide();
      });
    }
  }
  return EditorScreen::eventFilter(watched, event);
}

// A table edited on another screen shows in the lists.
void ReferenceScreen::Form_Activate() {
  EditorScreen::Form_Activate();
  for (const auto& [name, source] : sources_) {
    RunShort("Form_Activate", [&list = *source](Procedure&) { list.Refresh(); });
  }
}

// ---- Adding -------------------------------------------------------------------------------------

std::string ReferenceScreen::TextOf(const std::string& input) const {
  const QWidget* box = inputs_.at(input).box;
  if (const auto* number = dynamic_cast<const NumberBox*>(box)) return number->Text();
  if (const auto* text = dynamic_cast<const TextBox*>(box)) return text->Text();
  if (const auto* date = dynamic_cast<const DateBox*>(box)) {
    return date->Date() ? Format(*date->Date(), "dd.MM.yyyy") : std::string();
  }
  return static_cast<const DataCombo*>(box)->Text();
}

bool ReferenceScreen::Fails(const ReferenceCheck& check) {
  const std::string text = Trim(TextOf(check.input));
  switch (check.test) {
    case ReferenceCheck::Test::kEmpty:
      return text.empty();
    case ReferenceCheck::Test::kNotNumeric:
      return !IsNumeric(text);
    case ReferenceCheck::Test::kExists:
      return ExistaInTabela(text, check.key);
    case ReferenceCheck::Test::kShort:
      if (check.mayBeEmpty && text.empty()) return false;
      return Len(CodeOf(text)) < kShortestAccount;
  }
  return false;
}

CodeRow ReferenceScreen::Row() {
  CodeRow fields;
  for (const ReferenceField& field : table_.row) fields.emplace_back(field.field, ValueOf(field));
  return fields;
}

Value ReferenceScreen::ValueOf(const ReferenceField& field) {
  using From = ReferenceField::From;
  const std::string text = field.input ? Trim(TextOf(field.input)) : std::string();
  const auto orNull = [](const std::string& value) {
    return value.empty() ? Value() : Value(value);
  };
  switch (field.from) {
    case From::kText:
      return orNull(text);
    case From::kNumber:
      return CDbl(text);
    case From::kDate: {
      const auto date = static_cast<const DateBox*>(inputs_.at(field.input).box)->Date();
      return date ? Value(*date) : Value();
    }
    case From::kAccount:
      return orNull(Trim(CodeOf(text)));
    case From::kPickedName:
      return orNull(Left(NameOf(inputs_.at(field.input).picked), kLongestName));
    case From::kFirstLetter:
      return orNull(Left(text, 1));
    case From::kNextNumber:
      return static_cast<std::int32_t>(GetNextNumber(field.text));
    case From::kFixed:
      return field.text;
  }
  return {};
}

void ReferenceScreen::pAdauga() {
  const CodeRow row = Row();
  table_.insert ? InsertByStatement(row) : AddRow(row);
  if (added_) added_(row);
}

// Such a statement writes texts, so an empty box is the empty text. The list is read again to show
// the new row, and goes to it.
void ReferenceScreen::InsertByStatement(const CodeRow& fields) {
  Values values;
  for (const auto& [field, value] : fields) values.push_back(value.IsNull() ? Value("") : value);
  ExecuteSQL(table_.insert, values);
  datPrimaryRS->Refresh();
  datPrimaryRS->Recordset().Find(fields.front().first + " = '" +
                                 Doubled(fields.front().second.TextOrEmpty()) + "'");
  datPrimaryRS->Notify();
  ShowCount();
}

void ReferenceScreen::ClearBoxes() {
  for (auto& [name, input] : inputs_) {
    if (auto* box = qobject_cast<QLineEdit*>(input.box)) box->clear();
    if (input.picker) input.picker->SetText("");
    input.picked.clear();
  }
}

// ---- Deleting -----------------------------------------------------------------------------------

std::string ReferenceScreen::Question() const {
  const std::string question = WithColumns(table_.question, *grdDataGrid, table_.columns.size());
  const std::string& field =
      grdDataGrid->Columns()[static_cast<std::size_t>(table_.keyColumn)].field;
  return question + UseSentence(datPrimaryRS->Recordset().Get(field), table_.users);
}

ReferenceScreen& OpenReference(const std::string& screen) {
  const ReferenceTable& table = ReferenceTableOf(screen);
  return windows::OpenFor<ReferenceScreen>(screen, [&] { return new ReferenceScreen(table); });
}

}  // namespace tevra
