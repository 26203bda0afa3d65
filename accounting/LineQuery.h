// The query of accounting lines: its statements, its fields, the deletion of a note.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/where/Conditions.h"

namespace tevra {

/// The fields on which conditions can be put, with their captions and lists. Throws Failure.
std::vector<WhereField> LineFields(const Connection& connection);

/// The field of a new condition.
inline constexpr const char* kFirstLineField = "Kv_Linii.CONT";

/// All lines with their third parties' names, newest first: as the query opens, and as it shows
/// them after a deletion, without the kind and number of the document.
std::string LinesAtOpening();
std::string LinesAfterDeletion();

/// The lines that meet the conditions, newest first; all lines without conditions. The parameters
/// are those of the clause.
std::string LinesWhere(const WhereClause& clause);

/// The fields with totals.
inline constexpr std::array<const char*, 4> kLineTotals{"DEBIT", "CREDIT", "DEVDEBIT", "DEVCREDIT"};

/// The title of a listing: with the conditions in words, if any.
std::string LinesTitle(const WhereClause& clause);

/// True for the source of notes that only the stock keeping may delete.
bool IsFromStock(const std::string& source);

/// Deletes all lines of a note in one transaction; returns their number. Throws Failure and then
/// deletes none.
std::int64_t DeleteNote(Connection& connection, std::int32_t note);

}  // namespace tevra
