#pragma once

/// UBXCONTROL_API marks what callers of the library may use; everything else has hidden visibility. UBXCONTROL_INTERNAL
/// hides a part of an exported class.
#if defined(__GNUC__)
#define UBXCONTROL_API __attribute__((visibility("default")))
#define UBXCONTROL_INTERNAL __attribute__((visibility("hidden")))
#else
#define UBXCONTROL_API
#define UBXCONTROL_INTERNAL
#endif
