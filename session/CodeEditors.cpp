#include "session/CodeEditors.h"

#include <QPointer>
#include <map>

#include "platform/text/Strings.h"

namespace tevra {

namespace {

std::map<std::string, CodeEditor>& Editors() {
  static std::map<std::string, CodeEditor> editors;
  return editors;
}

// The table behind the first FROM of a list's statement, in capitals.
std::string TableOf(const std::string& statement) {
  const std::string capitals = UCase(statement);
  const std::size_t from = capitals.find(" FROM ");
  if (from == std::string::npos) return {};
  const std::size_t begin = capitals.find_first_not_of(' ', from + 6);
  if (begin == std::string::npos) return {};
  return capitals.substr(begin, capitals.find(' ', begin) - begin);
}

}  // namespace

void SetCodeEditor(const std::string& table, CodeEditor editor) {
  Editors()[UCase(table)] = std::move(editor);
}

void OfferCodeEditor(DataCombo& combo, Adodc& source) {
  const auto editor = Editors().find(TableOf(source.RecordSource()));
  if (editor == Editors().end()) return;
  combo.SetEditor(
      [list = QPointer<DataCombo>(&combo), rows = QPointer<Adodc>(&source), open = editor->second] {
        open([list, rows](const CodeRow& row) {
          if (!list || !rows) return;
          rows->Refresh();
          for (const auto& [field, value] : row) {
            if (EqualNoCase(field, list->BoundColumn())) list->Pick(value.TextOrEmpty());
          }
        });
      });
}

}  // namespace tevra
