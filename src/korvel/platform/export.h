#pragma once

// Marks what hosts may call. Everything else is hidden in the shared library.
#define KORVEL_API __attribute__((visibility("default")))
