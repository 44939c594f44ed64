// Long use: chance plays on every window, and after each action the idle program is looked over.
#include <cstdio>
#include <malloc.h>
#include <random>

#include "soak/accorcia.h"
#include "soak/giocatore.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SOAK_ASAN 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define SOAK_ASAN 1
#endif
#ifdef SOAK_ASAN
// GCC ships the function without its header.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace {

using soak::Giocatore;
using soak::Passi;

std::size_t in_uso() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
#ifdef SOAK_ASAN
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 m = mallinfo2();
    return m.uordblks + m.hblkhd;
#endif
}

/// Plays until the actions are done, or a fault was found and told.
void gioca(std::uint32_t seme, int azioni) {
    Giocatore giocatore(seme);
    for (int i = 1; i <= azioni; ++i) {
        giocatore.agisci();
        const QStringList difetti = giocatore.difetti();
        if (difetti.isEmpty()) continue;
        ADD_FAILURE() << "seed " << seme << ", action " << i << ":\n"
                      << difetti.join('\n').toStdString() << "\n--\n"
                      << giocatore.diario().toStdString();
        return;
    }
    if (qEnvironmentVariableIsSet("TABELLINO_SOAK_DIARIO")) {
        std::puts(qPrintable(giocatore.diario()));
    }
}

/// How a walk ended: with what was wrong, after how many actions, and the diary of them.
struct Arrivo {
    QString difetti;
    std::size_t azioni = 0;
    QString diario;
};

Arrivo cammina(const Passi& passi) {
    Giocatore giocatore(1);
    for (std::size_t i = 0; i < passi.size(); ++i) {
        giocatore.agisci(passi[i]);
        const QStringList difetti = giocatore.difetti();
        if (!difetti.isEmpty()) return {difetti.join('\n'), i + 1, giocatore.diario()};
    }
    return {{}, passi.size(), {}};
}

void cammina_e_racconta(std::uint32_t seme, std::size_t azioni) {
    std::mt19937 caso(seme);
    Passi passi(azioni);
    for (std::uint32_t& passo : passi) passo = static_cast<std::uint32_t>(caso());
    const Arrivo primo = cammina(passi);
    if (primo.difetti.isEmpty()) return;
    passi.resize(primo.azioni);
    passi = soak::accorcia(passi, [](const Passi& p) { return !cammina(p).difetti.isEmpty(); });
    const Arrivo breve = cammina(passi);
    ADD_FAILURE() << "seed " << seme << ", action " << primo.azioni << ":\n"
                  << primo.difetti.toStdString() << "\nas a test:\n"
                  << soak::come_prova(passi) << "\n"
                  << breve.difetti.toStdString() << "\n--\n"
                  << breve.diario.toStdString();
}

/// How many games are played; a longer run asks for more.
std::uint32_t quanti_semi() {
    const int chiesti = qEnvironmentVariableIntValue("TABELLINO_SOAK_SEMI");
    return chiesti > 0 ? static_cast<std::uint32_t>(chiesti) : 8;
}

class Soak : public testing::TestWithParam<std::uint32_t> {};

TEST_P(Soak, DuecentocinquantaAzioniACaso) {
    gioca(GetParam(), 250);
}

TEST_P(Soak, DuecentocinquantaPassiConOgniDispositivo) {
    cammina_e_racconta(GetParam(), 250);
}

INSTANTIATE_TEST_SUITE_P(Semi, Soak, testing::Range(1U, quanti_semi() + 1));

TEST(SoakMemoria, LaStessaPartitaUnAltraVoltaNonNeChiedeDiPiu) {
    constexpr std::uint32_t seme = 77;
    constexpr int azioni = 120;
    gioca(seme, azioni);
    const std::size_t prima = in_uso();
    gioca(seme, azioni);
    const std::size_t dopo = in_uso();
    constexpr std::size_t margine = 256 * 1024;
    EXPECT_LT(dopo, prima + margine);
}

}  // namespace
