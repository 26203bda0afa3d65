#include "session/Combos.h"

#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"
#include "session/CodeEditors.h"
#include "session/ComboLists.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

void LoadDataCombo(Adodc& source, DataCombo& combo, const std::string& sql,
                   const std::string& listField, const std::string& boundColumn,
                   const Values& params) {
  Procedure procedure{"LoadDataCombo", "Module", "Module1"};
  try {
    procedure.line = 1;
    source.SetConnectionString(CurrentSession().connectionString);
    source.SetRecordSource(sql, params);
    procedure.line = 3;
    combo.SetListField(listField);
    combo.SetBoundColumn(boundColumn);
    combo.SetRowSource(&source);
    procedure.line = 6;
    source.Refresh();
    OfferCodeEditor(combo, source);
  } catch (const std::exception&) {
    ShowStandardError(CaughtFailure(procedure), procedure);
  }
}

void ShowCode(DataCombo& combo, const std::string& statement, const std::string& code) {
  const std::string text = GetTextDataCombo(statement, {code});
  if (text.empty()) {
    combo.SetText("");
  } else {
    combo.SetBoundText(code, text);
  }
}

void LoadComboBox(QComboBox& combo) {
  Procedure procedure{"LoadComboBox", "Module", "Module1", 1};
  const std::string name = combo.objectName().section('(', 0, 0).toStdString();
  if (!ComboStatement(name)) {
    MsgBoxEx("EROARE ! EROARE ! EROARE !   .....   " + name, kCritical);
    return;
  }
  try {
    for (const std::string& entry : ComboEntries(name)) {
      const QString text = QString::fromStdString(entry);
      combo.addItem(text, text);
    }
    // At first no entry is selected.
    combo.setCurrentIndex(-1);
  } catch (const std::exception&) {
    ShowStandardError(CaughtFailure(procedure), procedure);
  }
}

std::string CodeOf(const std::string& entry, char separator) {
  return entry.substr(0, entry.find(separator));
}

}  // namespace tevra
