#include "session/MenuTable.h"

namespace tevra {

namespace {

constexpr MenuItem Separator(const char* name) {
  return {name, "", MenuAction::kSeparator};
}

}  // namespace

const std::vector<MenuTop>& MenuTable() {
  using enum MenuAction;
  static const std::vector<MenuTop> kMenu{
      {"Soc",
       "&Societati",
       {{"Soc_Lista", "&Lista", kScreen, false, true},
        {"Soc_Conf", "Con&figurare", kScreen},
        Separator("Adm_B2"),
        {"Utilizatori", "&Utilizatori", kScreen},
        Separator("Adm_B3"),
        {"mnuFileExit", "&Iesire", kFrame}}},
      {"Tabele",
       "&Tabele",
       {{"Tab_Clasificare", "&Coduri de Clasificare", kScreen},
        {"Tab_Grade", "&Grad de utilizare", kScreen},
        {"Restrictii", "&Valori minime de imobilizari", kScreen},
        Separator("Tab_B1"),
        {"Tab_Localizari", "&Localizari", kScreen},
        {"Tab_CC", "Centre de Co&st", kScreen},
        Separator("Tab_B2"),
        {"Tab_Aso_Imo", "&Asociere Conturi", kScreen},
        {"mnu_inreg", "&Inregistrari ", kNone},
        Separator("Tab_B3"),
        {"Terti", "&Terti", kScreen},
        Separator("Tab_B4"),
        {"Tab_Plan", "&Plan de Conturi", kScreen},
        {"Tab_Jurnale", "&Jurnale", kScreen},
        {"Tab_TVA", "&TVA", kScreen},
        {"Tab_Valute", "Val&ute", kScreen},
        Separator("mnuLine1"),
        {"mnuLinii", "Inregistrari contabile", kScreen}}},
      {"Materiale",
       "I&mobilizari",
       {{"Materiale_imo", "&Imobilizari", kScreen, true, true},
        {"Materiale_inv", "&Obiecte de inventar", kScreen, true, true}}},
      {"Rapoarte",
       "&Rapoarte",
       {{"Rapoarte_RegINV", "&Registru inventar", kNone},
        {"Rapoarte_Cheltuieli", "&Cheltuieli", kScreen},
        {"Rapoarte_Statistici", "&Statistici", kScreen},
        Separator("Rapoarte_M"),
        {"Rapoarte_inv", "C&heltuieli inventar", kScreen, true, true}}},
      {"Prelucrari",
       "&Prelucrari",
       {{"Recalcul", "&Asociere coduri de clasificare noi (HG 2139/2004)", kScreen},
        {"Preluare", "&Preluare Lim Inf in Durata normala Noua (HG 2139/2004)", kScreen},
        Separator("Prelucrari_M"),
        {"Recalcul_2005", "&Recalcul durata ramasa (HG 2139/2004) ", kScreen},
        Separator("Prelucrari_M1"),
        {"mnuDenominare", "&Denominare", kScreen}}},
      {"mnuExport",
       "&Export",
       {{"mnuImport", "&Import", kScreen}, {"mnuEExport", "&Export", kScreen}}},
      {"mnuIntretinere",
       "&Intretinere",
       {{"mnuCompactare", "&Compactare", kScreen},
        Separator("mnuIntretinere0"),
        {"mnuSalvare", "&Salvare", kScreen, false, true},
        {"mnuRestaurare", "&Restaurare", kScreen, false, true}}},
      {"mnuWindow",
       "&Ferestre",
       {{"mnuWindowCascade", "&Cascada", kFrame},
        {"mnuWindowTileHorizontal", "&Orizontal", kFrame},
        {"mnuWindowTileVertical", "&Vertical", kFrame}}},
      {"mnuHelp",
       "&Help",
       {{"mnuHelpContents", "&Continut", kFrame},
        Separator("mnuHelpBar0"),
        {"mnuHelpAbout", "&Informatii", kFrame}}},
  };
  return kMenu;
}

std::vector<std::string> ForbiddenItems(int userType) {
  if (userType == 0) return {};
  if (userType == 1) return {"Utilizatori"};
  return {"Soc_Conf", "Soc_Lista", "Utilizatori", "mnuIntretinere"};
}

}  // namespace tevra
