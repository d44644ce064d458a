// Resource numbers shared by the code and the resource scripts.
#pragma once

#define IDR_REGVANE_VERSION 1
