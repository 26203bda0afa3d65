# Apart from the session's other routines: who lists companies needs no open company.
tevra_library(session_registry
  SOURCES CompanyRegistry.cpp
  LINK platform_rowset platform_system)
