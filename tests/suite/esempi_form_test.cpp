// The shipped sample systems: each is what a player would have got on the screen.
#include "crossword/linee.h"
#include "support/programma.h"

using support::Programma;
namespace fs = std::filesystem;

namespace {

struct Atteso {
    const char* nome;
    bool lotto;
    const char* totale;
    const char* senza_ripetizioni;
};

void PrintTo(const Atteso& a, std::ostream* uscita) {
    *uscita << a.nome;
}

class Esempi : public testing::TestWithParam<Atteso> {
protected:
    Esempi() : p(true, copia) {
        const Atteso& a = GetParam();
        if (a.lotto) p.form1.Image10_Click();
        Programma::voce(p.form1.mnuapri);
        systems::Form2* form2 = Programma::gestore();
        const auto voci = form2->ListView1->findItems(a.nome, Qt::MatchExactly);
        if (voci.size() != 1) return;
        QTest::mouseClick(form2->ListView1->viewport(), Qt::LeftButton, {},
                          form2->ListView1->visualItemRect(voci.first()).center());
        Programma::clic(form2->Command5);
    }
    static void copia(const support::Cartella& cartella) {
        fs::copy(ESEMPI_DIR, cartella.programma(), fs::copy_options::recursive);
    }
    [[nodiscard]] std::string file(const char* sen, const char* sel) const {
        return GetParam().nome + std::string(GetParam().lotto ? sel : sen);
    }
    Programma p;
};

}  // namespace

TEST_P(Esempi, SiApronoComeIlProgrammaLiSalverebbe) {
    ASSERT_EQ(p.form1.Tag(), GetParam().nome);
    EXPECT_TRUE(p.form1.sessione.salvato());
    EXPECT_EQ(p.riepilogo(4, 3), GetParam().totale);
    EXPECT_EQ(p.riepilogo(5, 3), GetParam().senza_ripetizioni);
    EXPECT_EQ(systems::testo_sistema(p.form1.sessione.sistema()),
              p.cartella.leggi(file(".sen", ".sel")));
}

TEST_P(Esempi, TengonoLaRegolaDelTabellone) {
    const crossword::Matrice& m = p.form1.sessione.matrice();
    ASSERT_TRUE(crossword::cruciverba_completo(m));
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) {
            const auto barrati = crossword::numeri_sulle_linee(m, y, x);
            EXPECT_FALSE(barrati[static_cast<std::size_t>(m(x, y))]) << x << "," << y;
        }
    }
}

TEST_P(Esempi, HannoLoSviluppoCheIlProgrammaFarebbe) {
    const std::string nome = file(".col", ".lot");
    const std::string consegnato = p.cartella.leggi(nome);
    EXPECT_EQ(consegnato.empty(), QString(GetParam().senza_ripetizioni).isEmpty());
    if (consegnato.empty()) return;
    p.comando(1);
    EXPECT_EQ(p.mostrati().back().testo, "Elaborazione completata.");
    EXPECT_EQ(p.cartella.leggi(nome), consegnato);
    EXPECT_EQ(p.riepilogo(5, 3), GetParam().senza_ripetizioni);
}

INSTANTIATE_TEST_SUITE_P(Tutti, Esempi,
                         testing::Values(Atteso{"primipassi", false, "14", "14"},
                                         Atteso{"ridotto", false, "81", ""},
                                         Atteso{"terzine", true, "48", "46"},
                                         Atteso{"cinquine", true, "144", ""}));
