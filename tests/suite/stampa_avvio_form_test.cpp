// How the slip program finds its suite, and the one of its kind that runs already.
#include <filesystem>

#include "platform/qt/desktop.h"
#include "platform/qt/scrivania.h"
#include "stampa/avvio.h"
#include "support/altre_finestre.h"
#include "support/cartella.h"

namespace fs = std::filesystem;

TEST(AvvioSchedine, LaRadiceEQuellaDelComando) {
    const support::Cartella suite;
    const std::string radice = fs::canonical(suite.radice()).string();
    EXPECT_EQ(schedine::radice_suite(suite.radice() + "/stampa", "/usr/bin"), radice + "/");
    // Through a link of the user's suite the executable is elsewhere.
    fs::create_symlink("/usr/bin/true", suite.radice() + "/stampa");
    EXPECT_EQ(schedine::radice_suite(suite.radice() + "/stampa", "/usr/bin"), radice + "/");
    EXPECT_EQ(schedine::radice_suite("stampa", suite.radice()), suite.radice() + "/");
}

TEST(AvvioSchedine, UnComandoDAltrovePrendeLaSuiteDellUtente) {
    const support::Cartella suite;
    const fs::path dati = suite.radice() + "/dati";
    ::setenv("XDG_DATA_HOME", dati.string().c_str(), 1);
    EXPECT_EQ(schedine::radice_suite("/usr/bin/stampa", "/usr/bin"),
              (dati / "sortivario/").generic_string());
    ::unsetenv("XDG_DATA_HOME");
}

TEST(AvvioSchedine, LaSecondaPortaAvantiLaPrima) {
    support::AltreFinestre altre({{2, "Tabellino", false}, {6, "stampa - prova", false}});
    schedine::mostra_l_altra();
    EXPECT_EQ(altre.fatte, std::vector<std::string>{"attiva 6"});
}

TEST(AvvioSchedine, SenzaUnaFinestraLoDice) {
    support::AltreFinestre altre({{2, "Tabellino", false}});
    QStringList detti;
    const platform::Ripristina desktop(platform::scrivania());
    platform::scrivania().risponde = [&](const platform::Messaggio& m) {
        detti << m.testo;
        return platform::vbOK;
    };
    schedine::mostra_l_altra(0);
    EXPECT_EQ(detti, QStringList{"Il programma delle schedine è già aperto."});
}
