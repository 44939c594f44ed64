// Code compiled twice, for the processor at hand and for any, and chosen at run time.
#pragma once

namespace platform {

#if defined(__x86_64__)
/// Marks a function that may use wide vectors and population counts; call it only when
/// `processore_ampio()`.
#define PLATFORM_AMPIO __attribute__((target("avx2,popcnt,bmi,bmi2,lzcnt")))
inline bool processore_ampio() {
    return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("popcnt") != 0 &&
           __builtin_cpu_supports("bmi2") != 0;
}
#else
#define PLATFORM_AMPIO
inline bool processore_ampio() {
    return false;
}
#endif
/// The body of such a function, which becomes part of each that calls it.
#define PLATFORM_INCORPORATO inline __attribute__((always_inline))

}  // namespace platform
