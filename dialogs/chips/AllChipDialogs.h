// Every chip page class with behaviour of its own, one include per page. The chip-type table names
// these classes on its CUSTOM rows; the factory includes this file to construct them.
#pragma once

#include "dialogs/chips/ChipRegModify.h"
#include "dialogs/chips/Mbi5153.h"
#include "dialogs/chips/ParamTablePages.h"
