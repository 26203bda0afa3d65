// Carries the register over to the classification of 2005 (HG 2139/2004): new codes, new normal
// durations, and the remaining life of each asset counted anew from 01.01.2005.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// What is done before a work writes for the first time: a backup. A failure thrown there ends the
/// work before it changed anything.
using BeforeWriting = std::function<void()>;

/// Gives every asset the new code that belongs to its old one, in one transaction. Returns the
/// number of assets. Throws Failure.
std::int64_t AssociateNewCodes(Connection& company);

/// The lower limit of a code becomes its new normal duration, in one transaction. Returns the
/// number of codes. Throws Failure.
std::int64_t TakeLowerLimits(Connection& company);

/// How far RestartAt2005 came.
struct Restart {
  int assets = 0;       ///< restarted, and kept so
  std::string refusal;  ///< the message that ended it before its end; empty when it reached it
  std::string asset;    ///< the DENUMIRE of the asset that was refused
};

/// Blocks every asset that has a remaining value at 01.01.2005, with the share of its new normal
/// duration that corresponds to the months not yet used. An asset that was not calculated to
/// 12.2004, or whose code has the new duration 0, ends the work; so does a failure. The assets
/// before it stay restarted. `prepare` is not called when nothing is written. Throws Failure 11 for
/// an asset without a real duration, else as Recordset::Update, with the asset's DENUMIRE as
/// source.
Restart RestartAt2005(Connection& company, const BeforeWriting& prepare = {});

/// The messages after the three works.
std::string NewCodesText(std::int64_t assets);
std::string LowerLimitsText(std::int64_t codes);
std::string RestartedText(int assets);

/// The three works on the session's company, with their messages. Recalcul2005 and Recalcul_DR_2005
/// show a failure themselves; PreluareLimInf throws it.
void Recalcul2005(const BeforeWriting& prepare = {});
void PreluareLimInf(const BeforeWriting& prepare = {});
void Recalcul_DR_2005(const BeforeWriting& prepare = {});

}  // namespace tevra
