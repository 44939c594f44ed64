// Runs a program and waits for it.
#pragma once

#include <fcntl.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace support {

/// With its outputs in the files named, made anew; its exit code, -1 when it was killed, 127 when
/// it did not start.
inline int avvia(const std::string& programma, std::vector<std::string> parole,
                 const std::string& uscita, const std::string& errori) {
    parole.insert(parole.begin(), programma);
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        const int modo = O_WRONLY | O_CREAT | O_TRUNC | O_NOCTTY;
        ::dup2(::open(uscita.c_str(), modo, 0600), STDOUT_FILENO);
        ::dup2(::open(errori.c_str(), modo, 0600), STDERR_FILENO);
        std::vector<char*> argomenti;
        for (std::string& parola : parole) argomenti.push_back(parola.data());
        argomenti.push_back(nullptr);
        ::execv(programma.c_str(), argomenti.data());
        ::_exit(127);
    }
    int stato = 0;
    ::waitpid(figlio, &stato, 0);
    return WIFEXITED(stato) ? WEXITSTATUS(stato) : -1;
}

}  // namespace support
