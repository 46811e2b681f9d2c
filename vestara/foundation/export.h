#pragma once  // installed

#include "automation/export.h"

/// Marks what this library shows to other libraries and programs.
#define VESTARA_API AUTOMATION_EXPORT
