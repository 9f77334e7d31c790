#pragma once
// Moved to fp/core; kept so existing includes still build.
#include "fp/core/Version.h"
