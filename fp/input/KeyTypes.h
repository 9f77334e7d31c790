#pragma once
// Moved to fp/core so the link layer can use the key vocabulary.
#include "fp/core/KeyTypes.h"
