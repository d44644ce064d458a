// Every chip page class with behaviour of its own, one include per line.
#include "dialogs/chips/Mbi5153.h"
#include "dialogs/chips/fm612x/RegvaneFM6126.h"
#include "dialogs/chips/fm612x/RegvaneFM6126EX.h"
#include "dialogs/chips/fm612x/RegvaneFM6127.h"
#include "dialogs/chips/fm612x/RegvaneFM6127EX.h"
#include "dialogs/chips/fm612x/RegvaneFM6128.h"
#include "dialogs/chips/fm612x/RegvaneFM6129.h"
#include "dialogs/chips/fm612x/RegvaneFM6129Ex.h"
