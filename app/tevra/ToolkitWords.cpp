#include "app/tevra/ToolkitWords.h"

#include <QHash>

namespace tevra {

namespace {

// Found by their English text, in whatever part of Qt it appears.
const QHash<QString, QString>& Words() {
  static const QHash<QString, QString> kWords{{"Name", "Nume"},
                                              {"Size", "Marime"},
                                              {"Type", "Tip"},
                                              {"Kind", "Tip"},
                                              {"Date Modified", "Data modificarii"},
                                              {"Computer", "Calculator"},
                                              {"My Computer", "Calculator"},
                                              {"Folder", "Director"},
                                              {"File Folder", "Director"},
                                              {"File", "Fisier"},
                                              {"%1 File", "Fisier %1"},
                                              {"%1 bytes", "%1 octeti"},
                                              {"Look in:", "Cauta in:"},
                                              {"Directory:", "Director:"},
                                              {"File &name:", "&Nume fisier:"},
                                              {"Files of type:", "Tip:"},
                                              {"&Open", "&Deschide"},
                                              {"&Save", "&Salveaza"},
                                              {"&Choose", "&Alege"},
                                              {"Cancel", "Renunta"},
                                              {"&Cancel", "&Renunta"},
                                              {"&Rename", "&Redenumeste"},
                                              {"&Delete", "S&terge"},
                                              {"Show &hidden files", "Arata si fisierele &ascunse"},
                                              {"&New Folder", "Director &nou"},
                                              {"New Folder", "Director nou"},
                                              {"Create New Folder", "Creeaza un director nou"},
                                              {"Back", "Inapoi"},
                                              {"Forward", "Inainte"},
                                              {"Parent Directory", "Directorul de deasupra"},
                                              {"List View", "Lista"},
                                              {"Detail View", "Detalii"},
                                              {"All Files (*)", "Toate fisierele (*)"},
                                              {"&Undo", "&Anuleaza"},
                                              {"&Redo", "&Reface"},
                                              {"Cu&t", "&Decupeaza"},
                                              {"&Copy", "&Copiaza"},
                                              {"&Paste", "&Lipeste"},
                                              {"Delete", "Sterge"},
                                              {"Select All", "Selecteaza tot"},
                                              {"&Step up", "&Mai mult"},
                                              {"Step &down", "Mai &putin"},
                                              {"Close", "Inchide"},
                                              {"&Close", "In&chide"},
                                              {"&Restore", "&Restaureaza"},
                                              {"&Move", "&Muta"},
                                              {"&Size", "Di&mensiune"},
                                              {"Mi&nimize", "Mi&nimizeaza"},
                                              {"Ma&ximize", "Ma&ximizeaza"},
                                              {"Stay on &Top", "Mereu &deasupra"},
                                              {"Minimize", "Minimizeaza"},
                                              {"Maximize", "Maximizeaza"},
                                              {"Restore Down", "Restaureaza"}};
  return kWords;
}

}  // namespace

QString ToolkitWords::translate(const char*, const char* text, const char*, int) const {
  return Words().value(QString::fromUtf8(text));
}

}  // namespace tevra
