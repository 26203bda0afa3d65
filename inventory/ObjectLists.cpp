#include "inventory/ObjectLists.h"

#include <algorithm>

#include "platform/text/Invariant.h"

namespace tevra {

const std::array<ObjectCodeList, 5>& ObjectCodeLists() {
  static const std::array<ObjectCodeList, 5> kLists{{
      {object::kCentre, "cboCentruCost", "COD", "COD_TITLU",
       "Select COD, COD & '-' & TITLU As COD_TITLU from kv_cc Where UTILIZABIL = 'D' order by COD",
       "Select COD & '-' & TITLU As COD_TITLU from kv_cc where COD = ?"},
      {object::kLocation, "cboLocalizare", "COD", "COD_TITLU",
       "Select COD, COD & '-' & TITLU As COD_TITLU from I_LOCALIZARE order by COD",
       "Select COD & '-' & TITLU As COD_TITLU from I_LOCALIZARE where COD = ?"},
      {object::kSupplier, "cboFurnizori", "COD", "NUME",
       "Select COD, NUME from kv_ter where Ucase(TIP) in ('F', 'M') order by NUME",
       "Select NUME  from kv_TER where COD = CLng(?)"},
      {object::kVat, "cboTVA", "COD", "CONT_PROCENT",
       "Select COD, CONT & '-' & PROCENT As CONT_PROCENT from kv_COTE Where Left(CONT, 4) = '4426' "
       "Order by COD",
       "Select CONT & '-' & PROCENT As CONT_PROCENT from kv_COTE where COD = CLng(?)"},
      {object::kAccount, "cboCont", "CONT", "CONT_TITLU",
       "Select CONT, CONT & '-' & TITLU As CONT_TITLU from kv_PC WHERE LEFT(CONT,1) >=3 order by "
       "CONT",
       "Select CONT & '-' & TITLU As CONT_TITLU from kv_PC where CONT = ?"},
  }};
  return kLists;
}

const ObjectCodeList& ListOf(object::Text box) {
  const auto& lists = ObjectCodeLists();
  const auto found = std::find_if(lists.begin(), lists.end(),
                                  [box](const ObjectCodeList& list) { return list.box == box; });
  Invariant(found != lists.end(), "caseta nu are lista");
  return *found;
}

}  // namespace tevra
