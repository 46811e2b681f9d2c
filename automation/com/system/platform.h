#pragma once

// The system's headers, as every file of this folder needs them.
#include <objbase.h>
#include <oleauto.h>
#include <olectl.h>
#include <windows.h>
