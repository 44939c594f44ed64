#include "mondo.h"

#include "platform/syscalls.h"
#include "platform/win32/modi.h"

int flock(int fd, int come) {
    using namespace platform;
    return di_sistema().flock(
        fd, (come & LOCK_EX) != 0 ? win32::blocco_esclusivo : win32::blocco_condiviso);
}
