// What the tests ask of POSIX, as far as this system can answer: the rest fails as it does where a
// call is not known, and the tests that stand on it are left out by name. Included before
// everything else of a test.
#pragma once

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <direct.h>
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <signal.h>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/utime.h>
#include <unistd.h>

#ifndef EDQUOT
#define EDQUOT ENOSPC
#endif

inline int non_c_e() {
    errno = ENOSYS;
    return -1;
}

// Processes. There is no copy of one that runs.
constexpr int SIGKILL = 9;
constexpr int SIGPIPE = 13;
constexpr int SIGALRM = 14;
constexpr int SIGCONT = 18;
constexpr int SIGSTOP = 19;
constexpr int SIGXFSZ = 25;
constexpr int WNOHANG = 1;
constexpr int WUNTRACED = 2;
inline pid_t fork() {
    return static_cast<pid_t>(non_c_e());
}
inline pid_t waitpid(pid_t /*pid*/, int* stato, int /*come*/) {
    if (stato != nullptr) *stato = -1;
    return static_cast<pid_t>(non_c_e());
}
inline int kill(pid_t /*pid*/, int /*segnale*/) {
    return non_c_e();
}
inline int pause() {
    return non_c_e();
}
inline bool WIFEXITED(int stato) {
    return stato >= 0;
}
inline bool WIFSIGNALED(int /*stato*/) {
    return false;
}
inline bool WIFSTOPPED(int /*stato*/) {
    return false;
}
inline int WEXITSTATUS(int stato) {
    return stato;
}
inline int WTERMSIG(int /*stato*/) {
    return 0;
}
inline int pipe(int* canale) {
    return _pipe(canale, 65536, _O_BINARY);
}
inline int geteuid() {
    return 1000;
}
inline int setuid(int /*chi*/) {
    return non_c_e();
}
constexpr int CLONE_NEWNS = 0x20000;
inline int unshare(int /*cosa*/) {
    return non_c_e();
}

// Disks and files.
constexpr int MS_REC = 16384;
constexpr int MS_PRIVATE = 1 << 18;
constexpr int MS_RDONLY = 1;
constexpr int MS_REMOUNT = 32;
inline int mount(const char* /*da*/, const char* /*a*/, const char* /*tipo*/,
                 unsigned long /*come*/, const void* /*dati*/) {
    return non_c_e();
}
inline int umount(const char* /*dove*/) {
    return non_c_e();
}
inline int mkfifo(const char* /*nome*/, unsigned /*permessi*/) {
    return non_c_e();
}
inline int mkdir(const char* nome, unsigned /*permessi*/) {
    return _mkdir(nome);
}
inline int symlink(const char* /*meta*/, const char* /*nome*/) {
    return non_c_e();
}
inline int link(const char* /*meta*/, const char* /*nome*/) {
    return non_c_e();
}
inline int getxattr(const char* /*nome*/, const char* /*quale*/, void* /*dati*/,
                    std::size_t /*n*/) {
    return non_c_e();
}
inline int setxattr(const char* /*nome*/, const char* /*quale*/, const void* /*dati*/,
                    std::size_t /*n*/, int /*come*/) {
    return non_c_e();
}
constexpr int LOCK_SH = 1;
constexpr int LOCK_EX = 2;
constexpr int LOCK_NB = 4;
constexpr int LOCK_UN = 8;
/// Where the program's own locks are.
int flock(int fd, int come);
struct flock {
    short l_type;
    short l_whence;
    off_t l_start;
    off_t l_len;
    pid_t l_pid;
};
constexpr int F_RDLCK = 0;
constexpr int F_WRLCK = 1;
constexpr int F_UNLCK = 2;
constexpr int F_SETLK = 6;
constexpr int F_GETLK = 5;
inline int fcntl(int /*fd*/, int /*cosa*/, ...) {
    return non_c_e();
}
constexpr int O_NONBLOCK = 0;
constexpr int O_CLOEXEC = 0;
constexpr int AT_FDCWD = -100;
inline int utimensat(int /*dove*/, const char* nome, const struct timespec* tempi, int /*come*/) {
    __utimbuf64 quando{tempi[0].tv_sec, tempi[1].tv_sec};
    return _utime64(nome, &quando);
}
// Files of many gigabytes are cut to size by the call of that width alone.
#define truncate truncate64
inline int lstat(const char* nome, struct stat* s) {
    return stat(nome, s);
}
inline bool S_ISLNK(unsigned short /*modo*/) {
    return false;
}

// The environment: what says where a user's data lie has another name here.
inline int setenv(const char* nome, const char* valore, int /*copri*/) {
    if (std::strcmp(nome, "XDG_DATA_HOME") == 0) _putenv_s("LOCALAPPDATA", valore);
    return _putenv_s(nome, valore);
}
inline int unsetenv(const char* nome) {
    return setenv(nome, "", 1);
}
inline char* mkdtemp(char* modello) {
    static int fatte = 0;
    char* segni = modello + std::strlen(modello) - 6;
    for (int n = 0; n < 1000; ++n) {
        char prova[16];
        std::snprintf(prova, sizeof prova, "%06x", (_getpid() * 1009 + fatte++) & 0xFFFFFF);
        std::memcpy(segni, prova, 6);
        if (_mkdir(modello) == 0) return modello;
    }
    return nullptr;
}

// Limits and sockets.
struct rlimit {
    unsigned long rlim_cur;
    unsigned long rlim_max;
};
constexpr int RLIMIT_FSIZE = 1;
constexpr int RLIMIT_AS = 9;
constexpr int RLIMIT_CPU = 0;
constexpr int RLIMIT_NOFILE = 7;
inline int getrlimit(int /*quale*/, rlimit* /*dove*/) {
    return non_c_e();
}
inline int setrlimit(int /*quale*/, const rlimit* /*dove*/) {
    return non_c_e();
}
constexpr int AF_UNIX = 1;
constexpr int SOCK_STREAM = 1;
struct sockaddr {
    unsigned short sa_family;
};
struct sockaddr_un {
    unsigned short sun_family;
    char sun_path[108];
};
inline int socket(int /*a*/, int /*b*/, int /*c*/) {
    return non_c_e();
}
inline int bind(int /*fd*/, const sockaddr* /*dove*/, std::size_t /*n*/) {
    return non_c_e();
}
