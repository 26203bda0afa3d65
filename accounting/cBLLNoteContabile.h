// Writes the lines of accounting notes; all of them are written through this class.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "accounting/Note.h"
#include "accounting/NoteChecker.h"
#include "platform/data/Connection.h"
#include "platform/text/Failure.h"

namespace tevra {

/// A line that writes itself. Properties keep their values after AddNota, so that between the lines
/// of a note only the differences need setting.
class cBLLNoteContabile : public NoteLine {
 public:
  cBLLNoteContabile();
  ~cBLLNoteContabile();
  cBLLNoteContabile(const cBLLNoteContabile&) = delete;
  cBLLNoteContabile& operator=(const cBLLNoteContabile&) = delete;

  /// True when nothing required is missing; otherwise `errorText` names what is missing.
  bool EsteNotaValida(std::string& errorText) const;

  /// Writes a line on the caller's connection, within the caller's transaction. `sameNote`: the
  /// line continues the previous line's note; otherwise a new note begins. The due date is a month
  /// after DataInr. Throws Failure kRefusedNote when something required is missing, 438 when the
  /// table has a column without a property, and the database's failures; the line is then not
  /// written.
  void AddNota(const Connection& connection, bool sameNote);

  /// Writes a composed note within the caller's transaction; `checker` follows its lines. Returns
  /// the note's number, 0 for a note without lines. Throws like AddNota.
  std::int32_t AddNote(const Connection& connection, const Note& note, NoteChecker& checker);

 private:
  class Writer;
  void GetNDI(Writer& writer);
  void GetNrLinie(Writer& writer);

  std::unique_ptr<Writer> writer_;
};

}  // namespace tevra
