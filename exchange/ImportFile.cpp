#include "exchange/ImportFile.h"

#include <utility>

#include "exchange/Merge.h"
#include "platform/data/FileCheck.h"
#include "platform/system/Progress.h"

namespace tevra {

namespace {

std::function<void()>& BeforeImport() {
  static std::function<void()> prepare;
  return prepare;
}

// Each step runs whatever the one before returned, so that the user sees all that is wrong.
bool MergeAll(Connection& company, const LoadRequest& request, ImportChanges& changes) {
  const std::string& code = request.header.code;
  bool done = true;
  const auto step = [&](const char* procedure, const std::function<void()>& body) {
    done = request.run(procedure, {}, body) && done;
  };
  step("PrelCentreCost", [&] { PrelCentreCost(company, changes); });
  step("PrelPlanCont", [&] { PrelPlanCont(company, changes); });
  step("PrelTerti", [&] { PrelTerti(company, code, changes); });
  step("PrelJurnale", [&] { PrelJurnale(company, changes); });
  if (!request.header.isCentre) {
    step("PrelLinii", [&] { PrelLinii(company, request.header, changes); });
  }
  return done;
}

Imported Work(Connection& company, const ImportRequest& request) {
  Imported imported;
  Transaction transaction(company);
  const bool loaded = LoadWorkTables(company, request.load, imported.changes.lines);
  const bool merged = MergeAll(company, request.load, imported.changes);
  if (!loaded || !merged) return imported;
  imported.result = Imported::Result::kDone;
  if (request.agreed && !(*request.agreed == imported.changes)) {
    imported.result = Imported::Result::kChanged;
  } else if (!request.dryRun) {
    RequireIntact(company);
    transaction.Commit();
  }
  return imported;
}

}  // namespace

void SetBeforeImport(std::function<void()> prepare) {
  BeforeImport() = std::move(prepare);
}

Imported ImportFile(Connection& company, const ImportRequest& request) {
  Imported stopped;
  stopped.result = Imported::Result::kStopped;
  try {
    if (!request.dryRun && BeforeImport()) BeforeImport()();
    return Work(company, request);
  } catch (const LoadStopped&) {
    return stopped;
  } catch (const GivenUp&) {
    return stopped;
  }
}

}  // namespace tevra
