// The screen of every reference table.
#pragma once

#include <map>
#include <string>

#include "platform/forms/DataCombo.h"
#include "platform/screens/EditorScreen.h"
#include "reference/ReferenceTable.h"
#include "session/CodeEditors.h"

namespace tevra {

/// Built from a description, which must outlive it.
class ReferenceScreen : public EditorScreen {
 public:
  explicit ReferenceScreen(const ReferenceTable& table, QWidget* parent = nullptr);
  ~ReferenceScreen() override;

  /// Sets what is called with the fields of each row added from now on.
  void WhenAdded(CodeAdded added) { added_ = std::move(added); }

 protected:
  void pAdauga() override;
  void Form_Activate() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Input {
    QWidget* box = nullptr;
    DataCombo* picker = nullptr;
    bool onDemand = false;  // the picker is shown only while the user is in the box
    std::string picked;     // the entry picked last
  };

  EditorDescription Describe();
  LabelledBox MakeInput(const ReferenceInput& input, QGroupBox* frame);
  QWidget* MakeBox(const ReferenceInput& input, QGroupBox* frame);
  void MakePicker(const ReferencePicker& picker, Input& input, QGroupBox* frame);
  void Picked(Input& input);
  void FindTyped(Input& input);
  static void ShowPicker(const Input& input);
  bool Fails(const ReferenceCheck& check);
  std::string TextOf(const std::string& input) const;
  CodeRow Row();
  Value ValueOf(const ReferenceField& field);
  std::string Question() const;
  void InsertByStatement(const CodeRow& row);
  void ClearBoxes();

  const ReferenceTable& table_;
  std::map<std::string, Input> inputs_;
  std::map<std::string, Adodc*> sources_;
  CodeAdded added_;
};

/// Opens the editor of a screen of ReferenceTables, or brings it to the front.
ReferenceScreen& OpenReference(const std::string& screen);

}  // namespace tevra
