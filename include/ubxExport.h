#pragma once

/// Marks what callers of the library may use; everything else has hidden visibility.
#if defined(__GNUC__)
#define UBXCONTROL_API __attribute__((visibility("default")))
#else
#define UBXCONTROL_API
#endif
