#pragma once
// Moved to fp/client so menu lines below the screens can commit values.
#include "fp/client/FpClient.h"
