#include "platform/terminale.h"

#include <csignal>
#include <unistd.h>

namespace platform {

namespace {

volatile std::sig_atomic_t fermare = 0;

}  // namespace

bool errori_su_un_terminale() {
    return ::isatty(STDERR_FILENO) == 1;
}

bool uscita_su_un_terminale() {
    return ::isatty(STDOUT_FILENO) == 1;
}

void ascolta_interruzione() {
    struct sigaction azione {};
    azione.sa_handler = [](int) { fermare = 1; };
    azione.sa_flags = static_cast<int>(SA_RESETHAND);
    ::sigaction(SIGINT, &azione, nullptr);
    ::sigaction(SIGTERM, &azione, nullptr);
}

bool interrotto() {
    return fermare != 0;
}

}  // namespace platform
