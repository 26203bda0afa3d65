// The list of inventory objects: its statements, columns and totals.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// All objects with the names of their cost centre, location and supplier and with their VAT rate,
/// also when those do not exist; without an order.
std::string ObjectListStatement();

/// The order at opening: the newest object first.
inline constexpr const char* kNewestObjectFirst = "order by A.nrcrt desc,A.denumire ";

/// The list after a search for nothing.
std::string AllObjectsStatement();
/// The objects whose name, or the name of whose person, begins with the parameter, newest first.
std::string ObjectsByNameStatement();
std::string ObjectsByPersonStatement();

struct ObjectColumn {
  enum class Kind { kNumber, kText, kDate, kMoney, kRate, kYesNo };
  const char* caption;
  const char* field;
  Kind kind;
  int width;  ///< in characters; 0: by the field
};

/// The columns in their order.
inline constexpr std::array<ObjectColumn, 17> kObjectColumns{{
    {"Nr.crt.", "nrcrt", ObjectColumn::Kind::kNumber, 7},
    {"Nr.Inv.", "cod", ObjectColumn::Kind::kText, 12},
    {"Denumire", "denumire", ObjectColumn::Kind::kText, 34},
    {"Centru Cost", "CC", ObjectColumn::Kind::kText, 20},
    {"Cont", "Cont", ObjectColumn::Kind::kText, 8},
    {"Localizare", "LOC", ObjectColumn::Kind::kText, 20},
    {"Furnizor", "FURNIZ", ObjectColumn::Kind::kText, 26},
    {"Document", "document", ObjectColumn::Kind::kText, 13},
    {"Data achizitiei", "data_ach", ObjectColumn::Kind::kDate, 0},
    {"Data punere in functiune", "data_pf", ObjectColumn::Kind::kDate, 0},
    {"Valoare", "Val_cump", ObjectColumn::Kind::kMoney, 13},
    {"Curs valutar", "curs", ObjectColumn::Kind::kRate, 0},
    {"Valoare in valuta", "val_cump_val", ObjectColumn::Kind::kMoney, 13},
    {"Iesire", "iesire", ObjectColumn::Kind::kYesNo, 0},
    {"Data iesirii", "data_iesire", ObjectColumn::Kind::kDate, 0},
    {"Persoana evidenta", "pers", ObjectColumn::Kind::kText, 22},
    {"Observatii", "Obs1", ObjectColumn::Kind::kText, 30},
}};

/// The columns with totals: lei, currency.
inline constexpr std::array<const char*, 2> kTotalledObjectFields{"VAL_CUMP", "VAL_CUMP_VAL"};

struct ObjectTotals {
  int objects = 0;
  Values sums;  ///< a value a column: the exact sum of a money column, else Null
};

/// Calls `use` with the columns of each object in the list's order at opening. One row is in memory
/// at a time. Throws Failure, and what `use` throws.
ObjectTotals ForEachObject(const Connection& connection,
                           const std::function<void(const Values&)>& use);

}  // namespace tevra
