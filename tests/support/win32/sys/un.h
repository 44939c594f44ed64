// Beside `mondo.h`.
#pragma once

inline int mknod(const char* /*nome*/, unsigned /*permessi*/, unsigned long /*quale*/) {
    return non_c_e();
}
