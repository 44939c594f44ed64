// altro WHAT FOLDER: the other program of the tests of two. It does what it is asked for, tells the
// outcome in a file of the folder, and stays until it is killed.
#include <sqlite3.h>
#include <string>

#include "platform/application.h"
#include "platform/disk.h"
#include "platform/lavoro.h"
#include "platform/segno.h"
#include "platform/win32/nomi.h"

using namespace platform;

int main(int parole, char** parola) {
    if (parole != 3) return 2;
    const std::string cosa = parola[1];
    const std::string dove = parola[2];
    const auto aspetta = [&](bool esito) {
        sostituisci(dove + "/.pronto", esito ? "1" : "0");
        Sleep(INFINITE);
    };
    if (cosa == "istanza") {
        Application app;
        app.Path = dove;
        aspetta(app.PrevInstance());
    } else if (cosa == "turno") {
        const Turno turno(dove);
        aspetta(turno.preso());
    } else if (cosa == "lavoro") {
        const Lavoro lavoro(dove);
        aspetta(lavoro.esito() == Esito::ok);
    } else if (cosa == "segno") {
        const Segno segno(dove + "/sch");
        aspetta(!segno.occupato());
    } else if (cosa == "archivio") {
        sqlite3* db = nullptr;
        sqlite3_open((dove + "/drawit.sqlite").c_str(), &db);
        // So small a cache that the changed pages go to the file ahead of the commit.
        aspetta(sqlite3_exec(db, "PRAGMA cache_size=1; BEGIN; UPDATE archivio SET concorso = 7;",
                             nullptr, nullptr, nullptr) == SQLITE_OK);
    } else if (cosa == "sostituisce") {
        sostituisci(dove + "/.pronto", "1");
        for (char c = 'a';; c = c == 'z' ? 'a' : static_cast<char>(c + 1))
            sostituisci(dove + "/a.col", std::string(100'000, c));
    }
    return 2;
}
