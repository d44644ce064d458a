// The start values of a simulated chip: what a freshly installed screen of that chip would report
// to the host. Register images follow the chip's own layout where the family is known (MBI5153,
// FM6126 to FM6129, the raw register editor's chips) and a neutral per-colour image otherwise.
#pragma once

#include "workbench/SimulatedChip.h"

// Sets the chip up as a host would hand it to the page of this type and sub-type: the chip's type
// and sub-type (for a page of the extended range, those of the chip it extends), its chip name
// (from the page's class), the host values the pages ask for (gain range, register kind, count,
// parameter rows) and the register images.
void SetUpSimulatedChip(SimulatedChip& chip, int chipType, int subType);
