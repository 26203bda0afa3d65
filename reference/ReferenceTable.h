// The editor of a reference table as data. ReferenceScreen builds the screen from it, so that
// another table of this kind needs a description and no code.
#pragma once

#include <string>
#include <vector>

namespace tevra {

/// A list from which a box is filled: picking an entry copies its value into the box.
struct ReferencePicker {
  const char* combo;   ///< name of the combo
  const char* source;  ///< name of its data source
  const char* statement;
  const char* listField;   ///< the column that it shows
  const char* boundField;  ///< the column of the value
  bool onDemand = false;   ///< shown only while the user is in the box
};

/// A box for a field of the new row.
struct ReferenceInput {
  enum class Kind {
    kText,
    kUpperText,  ///< letters become capitals while they are typed
    kNumber,
    kDate,  ///< a date box, at first with today's date
    kList   ///< a plain combo: of `entries`, or of the company's list for its name
  };

  const char* name;
  const char* label;
  const char* tip;
  Kind kind = Kind::kText;
  int longest = 0;  ///< characters
  std::vector<const char*> entries = {};
  std::vector<ReferencePicker> picker = {};  ///< one or none
  int stretch = 1;                           ///< share of the width
};

/// The box for a name, twice as wide as that of a code.
inline ReferenceInput NameInput(const char* name, const char* tip, ReferenceInput::Kind kind,
                                int longest) {
  ReferenceInput input{name, "&Denumire", tip, kind, longest};
  input.stretch = 2;
  return input;
}

/// A test of the inputs before a row is added.
struct ReferenceCheck {
  enum class Test {
    kEmpty,       ///< nothing but blanks
    kNotNumeric,  ///< no number in Romanian form
    kExists,      ///< ExistaInTabela finds it under `key`
    kShort        ///< the account is shorter than three characters; an empty list passes where
                  ///< `mayBeEmpty`
  };

  Test test;
  const char* input;
  std::string message;
  const char* key = nullptr;
  bool mayBeEmpty = false;
};

/// What a field of the new row gets.
struct ReferenceField {
  enum class From {
    kText,         ///< the trimmed text
    kNumber,       ///< the number
    kDate,         ///< the day
    kAccount,      ///< the text before its first "-"; an empty list leaves the field empty
    kPickedName,   ///< the entry picked for the input, behind its first "-", 30 characters
    kFirstLetter,  ///< the first character
    kNextNumber,   ///< the table's next free number; `text`: the table
    kFixed         ///< `text`
  };

  const char* field;
  From from;
  const char* input = nullptr;
  const char* text = nullptr;
};

/// A test of a text typed into a column of the grid.
struct ReferenceCell {
  enum class Test { kEmpty, kNotYesNo, kShort };

  int column;
  Test test;
  const char* message;
};

/// A row in use cannot be deleted: ExistaInTabela finds its first column under `key`.
struct ReferenceUse {
  const char* key;
  const char* message;
};

/// Rows of another table that use a code. The question before a deletion counts them.
struct ReferenceUser {
  const char* table;
  std::vector<const char*> columns;  ///< any of them may have the code
};

struct ReferenceColumn {
  const char* caption;
  const char* field;
  const char* format = "";
};

struct ReferenceTable {
  const char* menuItem;
  const char* screen;   ///< name of the screen
  const char* caption;  ///< its title
  const char* table;    ///< name of the table
  const char* statement;
  std::vector<ReferenceColumn> columns = {};
  int keyColumn = 0;  ///< the column with the code that other tables use

  const char* frame;
  const char* frameCaption;
  std::vector<ReferenceInput> inputs = {};
  int inputsInARow = 2;

  const char* addTip = "";
  std::vector<ReferenceCheck> checks = {};
  std::vector<ReferenceField> row = {};
  const char* insert = nullptr;  ///< adds the row by this statement, with the values of `row`
  bool clears = false;           ///< the boxes are emptied after the adding
  const char* addFailure = "";   ///< title of its failures
  bool addFailureLine = false;   ///< and whether they name the line

  const char* deleteTip = "";
  const char* question;  ///< "{2}" is the text of the grid's second column
  std::vector<ReferenceUse> uses = {};
  std::vector<ReferenceUser> users = {};
  const char* deleteFailure = "";

  std::vector<ReferenceCell> cells = {};
  int width = 620;  ///< of the screen, in pixels
};

}  // namespace tevra
