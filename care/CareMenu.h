// The items of the menus "Intretinere" and "Prelucrari" that open no screen.
#pragma once

namespace tevra {

/// Compact the session's company and back it up, with the progress of a large file. A work that the
/// user cancelled says nothing. Throw Failure as Compactare and Salvare.
void mnuCompactare_Click();
void mnuSalvare_Click();

/// Backs the session's company up before `work`, with the progress of a large file. Throws as
/// BackUpBefore, and GivenUp when the user cancels.
void BackUpWithProgress(const char* work);

/// Convert the session's company to the new lei and to the classification of 2005, after a backup.
/// A work that the user cancelled says nothing. Preluare_Click throws Failure, the others show it.
void mnuDenominare_Click();
void Recalcul_Click();
void Preluare_Click();
void Recalcul_2005_Click();

}  // namespace tevra
