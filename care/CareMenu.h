// The items of the menu "Intretinere" that open no screen.
#pragma once

namespace tevra {

/// Compact the session's company and back it up, with the progress of a large file. A work that the
/// user cancelled says nothing. Throw Failure as Compactare and Salvare.
void mnuCompactare_Click();
void mnuSalvare_Click();

}  // namespace tevra
