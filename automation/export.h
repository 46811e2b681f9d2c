#pragma once  // installed

// What crosses the border of a shared library is marked with its macro; everything else stays hidden. The libraries of
// Windows show the entry points of COM and nothing else.
#if defined(_WIN32)
#define AUTOMATION_EXPORT
#else
#define AUTOMATION_EXPORT __attribute__((visibility("default")))
#endif

#define AUTOMATION_API AUTOMATION_EXPORT
