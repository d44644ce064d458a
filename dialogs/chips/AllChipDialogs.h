// Every chip page class with behaviour of its own, one include per line.
#include "dialogs/chips/Mbi5153.h"
