// What targets share.
#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the process when something does not hold, so that the fuzzer keeps the input.
#define MUST(condition)                                                                            \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: must hold: %s\n", __FILE__, __LINE__, #condition);        \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)
