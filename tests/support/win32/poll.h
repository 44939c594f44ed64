// Beside `mondo.h`: there is no other end of a terminal.
#pragma once

constexpr int O_NOCTTY = 0;
constexpr int POLLIN = 1;
struct pollfd {
    int fd;
    short events;
    short revents;
};
inline int poll(pollfd* /*quali*/, unsigned /*quanti*/, int /*ms*/) {
    return non_c_e();
}
inline int posix_openpt(int /*come*/) {
    return non_c_e();
}
inline int grantpt(int /*fd*/) {
    return non_c_e();
}
inline int unlockpt(int /*fd*/) {
    return non_c_e();
}
inline int ptsname_r(int /*fd*/, char* /*nome*/, std::size_t /*n*/) {
    return non_c_e();
}
