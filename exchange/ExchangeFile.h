// The document in which companies exchange their data, as its writer and its reader know it.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "platform/text/DateTime.h"

namespace tevra {

inline constexpr const char* kExchangeRoot = "IE";
inline constexpr const char* kExchangeHeader = "HEADER";
inline constexpr const char* kExchangeTables = "Tables";

/// The first element of the document: who sends which period.
struct ExchangeHeader {
  std::string code;       ///< `CodCC`, the code of the company that sends
  DateTime from;          ///< `DataInceput`, the first day of the lines
  DateTime to;            ///< `DataSfarsit`, the last day
  int planType = 0;       ///< `TipPlanCont`
  bool isCentre = false;  ///< `EsteCentru`; a centre sends no lines
};

/// A table of the document: one element with one rowset.
struct ExchangeTable {
  const char* element;
  const char* table;  ///< in the company
  const char* work;   ///< the table that holds the last import of it
};

inline constexpr ExchangeTable kParties{"Terti", "Kv_Ter", "tmp_Ter"};
inline constexpr ExchangeTable kAccounts{"PlanConturi", "Kv_PC", "tmp_PC"};
inline constexpr ExchangeTable kLines{"Linii", "Kv_Linii", "tmp_Linii"};
inline constexpr ExchangeTable kCentres{"CC", "Kv_CC", "tmp_CC"};
inline constexpr ExchangeTable kJournals{"Jurnale", "Kv_Jur", "tmp_Jurnale"};

/// In the order of the document.
inline constexpr std::array kExchangeOrder{&kParties, &kAccounts, &kLines, &kCentres, &kJournals};

/// A failure in a procedure that reports it itself, so that the work around it ends without another
/// message.
struct StepFailed {};

/// Runs a step of an export or an import under the name of its procedure, which messages show.
/// `table`: the one that the step works on, or empty. Returns true when the step ran to its end,
/// and false when it failed and this was reported; a runner that reports nothing lets failures
/// through.
using StepRunner = std::function<bool(const char* procedure, const std::string& table,
                                      const std::function<void()>& step)>;

/// Runs a step and lets its failures through.
inline bool RunUnreported(const char* /*procedure*/, const std::string& /*table*/,
                          const std::function<void()>& step) {
  step();
  return true;
}

}  // namespace tevra
