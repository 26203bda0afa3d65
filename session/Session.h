// The session's values, set by the login and used by all screens and commands.
#pragma once

#include <string>

#include "platform/text/DateTime.h"

namespace tevra {

struct Session {
  std::string connectionString;     ///< of the company, see CompanyConnectionString
  std::string databasesPath;        ///< directory of the company files, with its last separator
  std::string selectedDatabase;     ///< file name of the company
  std::string selectedCompany;      ///< name of the company on the login's current row
  std::string companyName;          ///< of the company that is open
  std::string userName;             ///< as typed
  int userType = 0;                 ///< 0 all, 1 entries and reports, 2 reports
  std::string contFurnizori;        ///< supplier account
  std::string contClienti;          ///< customer account
  std::string codDeviza;            ///< the company's currency
  std::string contObiecteInventar;  ///< account of inventory objects
  DateTime dataIn;                  ///< start and end of the financial year
  DateTime dataSn;
  std::string versionText;     ///< major and minor number of the program, two digits each
  unsigned toolTipColour = 0;  ///< the desktop's, as 0xRRGGBB
  bool esteCentru = false;     ///< for the header of an exchange; not set yet
  int tipPlanCont = 0;         ///< likewise
};

/// The program's session.
Session& CurrentSession();

}  // namespace tevra
