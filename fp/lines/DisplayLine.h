#pragma once
// Moved to fp/menu so the menu style can build its own title line.
#include "fp/menu/DisplayLine.h"
