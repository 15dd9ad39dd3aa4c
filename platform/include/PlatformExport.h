#pragma once

/// The platform's classes are visible whatever a program is compiled with, so that a program that defines one of them
/// itself takes the place of the shared library.
#define UBXPLATFORM_API __attribute__((visibility("default")))
