#pragma once

#include <cstddef>  // tells of the C library

/// Before a function that is a loop over bytes: where the processor has vectors of 32 bytes, they are used. Which of
/// the two is taken is found out once, when the program starts; what a sanitizer watches cannot be asked that early.
#if defined(__x86_64__) && defined(__GLIBC__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define QUORVANE_WIDE_VECTORS __attribute__((target_clones("avx2", "default")))
#else
#define QUORVANE_WIDE_VECTORS
#endif
