#pragma once

/// For functions that work on many numbers: each is built twice, for any processor and for those that take 32
/// bytes at once; which one is settled where the library is loaded. A sanitizer cannot be asked that early.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__) &&     \
    !defined(__SANITIZE_THREAD__)
#define KESTRO_WIDEST [[gnu::target_clones("avx2", "default")]]
#else
#define KESTRO_WIDEST
#endif
