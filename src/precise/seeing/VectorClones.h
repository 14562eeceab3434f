// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Put before a function whose loops are the time of the detection: the compiler makes it for
/// several widths of vectors, and the program takes the widest that the processor has. The results
/// are the same bits, since nothing is fused or summed in another order.
/// Sanitizers start too late for the choice, which is made while the program is loaded.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__gnu_linux__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define KORVEL_VECTOR_CLONES __attribute__((target_clones("default", "avx2", "avx512f")))
#else
#define KORVEL_VECTOR_CLONES
#endif
