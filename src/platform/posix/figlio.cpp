#include "platform/figlio.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace {

using Orologio = std::chrono::steady_clock;

}  // namespace

Figlio::~Figlio() {
    if (fd_ >= 0) ::close(fd_);
    if (pid_ <= 0) return;
    const auto pid = static_cast<pid_t>(pid_);
    ::kill(pid, SIGKILL);
    while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
    }
}

bool Figlio::avvia(const std::string& programma, const std::vector<std::string>& argomenti) {
    std::array<int, 2> tubo{};
    if (::pipe2(tubo.data(), O_CLOEXEC) != 0) return false;
    fd_ = tubo[0];
    std::vector<char*> argv{const_cast<char*>(programma.c_str())};
    for (const std::string& argomento : argomenti)
        argv.push_back(const_cast<char*>(argomento.c_str()));
    argv.push_back(nullptr);
    // An empty environment: the library takes its character set from there.
    std::array<char*, 1> ambiente{nullptr};

    posix_spawn_file_actions_t azioni;
    posix_spawnattr_t attributi;
    ::posix_spawn_file_actions_init(&azioni);
    ::posix_spawn_file_actions_addopen(&azioni, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&azioni, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_adddup2(&azioni, tubo[1], STDOUT_FILENO);
    ::posix_spawn_file_actions_addclosefrom_np(&azioni, STDERR_FILENO + 1);
    ::posix_spawnattr_init(&attributi);
    sigset_t segnali;
    ::sigfillset(&segnali);
    ::posix_spawnattr_setsigdefault(&attributi, &segnali);
    ::sigemptyset(&segnali);
    ::posix_spawnattr_setsigmask(&attributi, &segnali);
    ::posix_spawnattr_setflags(&attributi, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    pid_t pid = -1;
    const int esito =
        ::posix_spawn(&pid, programma.c_str(), &azioni, &attributi, argv.data(), ambiente.data());
    ::posix_spawnattr_destroy(&attributi);
    ::posix_spawn_file_actions_destroy(&azioni);
    ::close(tubo[1]);
    pid_ = esito == 0 ? pid : -1;
    return esito == 0;
}

Figlio::Fine Figlio::uscita(const Limiti& limiti, std::string& dati) {
    const auto fine = Orologio::now() + limiti.attesa_totale;
    std::vector<char> pezzo(std::size_t{1} << 16);
    auto muto_da = Orologio::now();
    while (true) {
        const auto ora = Orologio::now();
        const auto termine = std::min(fine, muto_da + limiti.attesa_muta);
        if (ora >= termine) return Fine::scaduto;
        const auto resta = std::chrono::duration_cast<std::chrono::milliseconds>(termine - ora);
        pollfd attesa{fd_, POLLIN, 0};
        const int pronti = ::poll(&attesa, 1, static_cast<int>(resta.count()) + 1);
        if (pronti < 0 && errno != EINTR) return Fine::perduto;
        if (pronti <= 0) continue;
        const ssize_t n = ::read(fd_, pezzo.data(), pezzo.size());
        if (n < 0 && errno != EINTR) return Fine::perduto;
        if (n == 0) return Fine::finito;
        if (n < 0) continue;
        dati.append(pezzo.data(), static_cast<std::size_t>(n));
        if (dati.size() > limiti.uscita_massima) return Fine::troppo;
        muto_da = Orologio::now();
    }
}

}  // namespace platform
