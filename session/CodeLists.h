// The lists from which the cards take codes.
#pragma once

namespace tevra {

/// A list of codes as a combo offers it.
struct CodeList {
  const char* boundColumn;  ///< the codes
  const char* listField;    ///< what is shown
  const char* list;         ///< the statement of the entries
  const char*
      text;  ///< returns one code's text, its parameter is the code; nullptr: the code itself
};

/// The cost centres in use.
inline constexpr CodeList kCostCentres{
    "COD", "COD_TITLU",
    "Select COD, COD & '-' & TITLU As COD_TITLU from kv_cc Where UTILIZABIL = 'D' order by COD",
    "Select COD & '-' & TITLU As COD_TITLU from kv_cc where COD = ?"};

inline constexpr CodeList kLocations{
    "COD", "COD_TITLU", "Select COD, COD & '-' & TITLU As COD_TITLU from I_LOCALIZARE order by COD",
    "Select COD & '-' & TITLU As COD_TITLU from I_LOCALIZARE where COD = ?"};

inline constexpr CodeList kSuppliers{
    "COD", "NUME", "Select COD, NUME from kv_ter where Ucase(TIP) in ('F', 'M') order by NUME",
    "Select NUME  from kv_TER where COD = CLng(?)"};

/// VAT rates by account and percentage; `list` says which ones.
constexpr CodeList VatRates(const char* list) {
  return {"COD", "CONT_PROCENT", list,
          "Select CONT & '-' & PROCENT As CONT_PROCENT from kv_COTE where COD = CLng(?)"};
}

/// Accounts with their titles; `list` says which ones.
constexpr CodeList Accounts(const char* list) {
  return {"CONT", "CONT_TITLU", list,
          "Select CONT & '-' & TITLU As CONT_TITLU from kv_PC where CONT = ?"};
}

}  // namespace tevra
