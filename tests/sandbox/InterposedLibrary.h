#pragma once

#include <ctime>

/// A shared library that uses the C library as libubxcontrol does.
__attribute__((visibility("default"))) time_t timeAsALibrarySeesIt();
__attribute__((visibility("default"))) int flushAsALibraryDoes(int fd, int queue);
