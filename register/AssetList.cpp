#include "register/AssetList.h"

#include "platform/text/Numbers.h"
#include "session/Module1.h"

namespace tevra {

std::string AssetListStatement() {
  return "select A.*,B.titlu as loc,C.nume as furniz,"
         "D.titlu as CC "
         "from kv_CC D RIGHT JOIN (kv_ter C RIGHT JOIN "
         "(I_localizare B RIGHT JOIN i_imo A "
         "ON B.cod = A.cod_loc) ON C.cod = A.cod_furnizor) "
         "ON D.cod = A.cod_cc ";
}

std::string AssetSearchStatement() {
  return AssetListStatement() + " where denumire like ? order by nrcrt desc, denumire";
}

void AddListedAsset(std::vector<double>& totals, const Values& values) {
  constexpr std::size_t kPurchaseInCurrency = 1;
  for (std::size_t i = 0; i < totals.size(); ++i) {
    totals[i] += Nz(values[i]).AsDouble();
    if (i != kPurchaseInCurrency) totals[i] = Round0(totals[i]);
  }
}

}  // namespace tevra
