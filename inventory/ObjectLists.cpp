#include "inventory/ObjectLists.h"

#include <algorithm>

#include "platform/text/Invariant.h"

namespace tevra {

const std::array<ObjectCodeList, 5>& ObjectCodeLists() {
  static const std::array<ObjectCodeList, 5> kLists{{
      {kCostCentres, object::kCentre, "cboCentruCost"},
      {kLocations, object::kLocation, "cboLocalizare"},
      {kSuppliers, object::kSupplier, "cboFurnizori"},
      {VatRates("Select COD, CONT & '-' & PROCENT As CONT_PROCENT from kv_COTE Where Left(CONT, 4) "
                "= '4426' Order by COD"),
       object::kVat, "cboTVA"},
      {Accounts("Select CONT, CONT & '-' & TITLU As CONT_TITLU from kv_PC WHERE LEFT(CONT,1) >=3 "
                "order by CONT"),
       object::kAccount, "cboCont"},
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
