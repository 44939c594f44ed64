// Where the marks stand on the recorded drawing, for ten layouts fed both ways.
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "stampa/lavoro.h"
#include "support/cartella.h"
#include "support/stampante.h"

using schedine::Forma;
using schedine::Ingresso;
using schedine::Modulo;
using schedine::Ordine;
using schedine::Posto;
using schedine::Punto;
using support::Operazione;
using support::Registratore;
using support::Tipo;

namespace {

/// Layouts that differ in every field.
std::vector<Modulo> disposizioni() {
    std::vector<Modulo> m(10);
    m[1].origine = {90, 160};
    m[1].griglia = {9, 10};
    m[1].ordine = Ordine::colonne;
    m[2].griglia = {15, 6};
    m[2].passo = {45, 41};
    m[2].ordine = Ordine::righe_dal_basso;
    m[3].foglio = {2100, 2970};
    m[3].griglia = {6, 15};
    m[3].passo = {101, 37};
    m[3].pannelli = {{0, 0}, {700, 0}, {0, 900}, {700, 900}, {0, 1800}};
    m[3].ordine = Ordine::colonne_dal_basso;
    m[4].forma = Forma::ovale;
    m[4].segno = {22, 22};
    m[5].forma = Forma::croce;
    m[5].segno = {24, 18};
    m[6].correzione = {-7, 12};
    m[7].scala = {10100, 9950};
    m[7].correzione = {3, -5};
    m[8].foglio = {820, 1990};
    m[8].passo = {33, 31};
    m[8].segno = {11, 7};
    m[8].pannelli = {{0, 0}, {350, 0}};
    m[8].griglia = {10, 9};
    m[9].foglio = {4200, 2970};
    m[9].passo = {40, 70};
    m[9].griglia = {13, 7};
    m[9].pannelli = {{0, 0}, {600, 0}, {1200, 500}, {1800, 1000}, {2400, 1500}};
    return m;
}

/// Centre of a cell in millimetres on the sheet, by the plainest means.
Punto atteso(const Modulo& m, std::size_t pannello, int numero) {
    int trovata = 0;
    Punto centro;
    const bool per_righe = m.ordine == Ordine::righe || m.ordine == Ordine::righe_dal_basso;
    const bool dal_basso =
        m.ordine == Ordine::righe_dal_basso || m.ordine == Ordine::colonne_dal_basso;
    const int fuori = per_righe ? m.griglia.y : m.griglia.x;
    const int dentro = per_righe ? m.griglia.x : m.griglia.y;
    for (int a = 0; a < fuori && trovata < numero; ++a) {
        for (int b = 0; b < dentro && trovata < numero; ++b) {
            ++trovata;
            const int colonna = per_righe ? b : a;
            const int dall_inizio = per_righe ? a : b;
            const int riga = dal_basso ? m.griglia.y - 1 - dall_inizio : dall_inizio;
            centro = {(m.origine.x + m.pannelli[pannello].x + colonna * m.passo.x) / 10.0,
                      (m.origine.y + m.pannelli[pannello].y + riga * m.passo.y) / 10.0};
        }
    }
    centro = {centro.x * m.scala.x / 10000 + m.correzione.x / 10.0,
              centro.y * m.scala.y / 10000 + m.correzione.y / 10.0};
    if (m.ingresso == Ingresso::testa) return centro;
    return {m.foglio.y / 10.0 - centro.y, centro.x};
}

/// Centres of what was drawn on a page, in millimetres; of a cross each of its strokes has one.
std::vector<Punto> disegnati(const Registratore& r, const Modulo& m) {
    std::vector<Punto> centri;
    const Tipo tipo = m.forma == Forma::croce   ? Tipo::tratto
                      : m.forma == Forma::ovale ? Tipo::ovale
                                                : Tipo::riquadro;
    const bool testa = m.ingresso == Ingresso::testa;
    const double largo = (testa ? m.segno.x : m.segno.y) / 10.0;
    const double alto = (testa ? m.segno.y : m.segno.x) / 10.0;
    for (const Operazione& o : r.di_tipo(tipo)) {
        if (o.x1 == o.x2 && o.y1 == o.y2) continue;
        EXPECT_NEAR(std::abs(o.x2 - o.x1) * 25.4 / 12, largo, 0.02);
        EXPECT_NEAR(std::abs(o.y2 - o.y1) * 25.4 / 6, alto, 0.02);
        EXPECT_EQ(o.pieno, m.forma != Forma::croce);
        centri.push_back({(static_cast<double>(o.x1) + static_cast<double>(o.x2)) / 2 * 25.4 / 12,
                          (static_cast<double>(o.y1) + static_cast<double>(o.y2)) / 2 * 25.4 / 6});
    }
    return centri;
}

class GeometriaSchedine : public testing::Test {
protected:
    /// A development in which every number of 1 to 90 is played.
    void SetUp() override {
        std::string dati;
        for (int i = 0; i < 15; ++i) {
            for (int k = 0; k < 6; ++k)
                dati += std::to_string(1 + i + k * 15) + (k < 5 ? "," : "\r\n");
        }
        cartella_.scrivi("x.col", dati);
        ASSERT_FALSE(sviluppo_.apri(cartella_.file("x.col"), 6));
    }
    void confronta(const Modulo& m) {
        schedine::Opzioni o;
        o.genere = schedine::Genere::modulo;
        o.modulo = m;
        schedine::Lavoro lavoro(sviluppo_, o);
        const auto pannelli = static_cast<std::int64_t>(m.pannelli.size());
        ASSERT_EQ(lavoro.pagine(), (15 + pannelli - 1) / pannelli);
        int segni = 0;
        for (std::int64_t pagina = 1; pagina <= lavoro.pagine(); ++pagina) {
            Registratore r;
            ASSERT_TRUE(lavoro.disegna(r, pagina));
            EXPECT_TRUE(r.testi().empty());
            std::vector<Punto> centri = disegnati(r, m);
            for (std::int64_t k = 0; k < pannelli; ++k) {
                const std::int64_t colonna = (pagina - 1) * pannelli + k;
                if (colonna >= 15) break;
                for (int j = 0; j < 6; ++j) {
                    const Punto dove = atteso(m, static_cast<std::size_t>(k),
                                              static_cast<int>(colonna) + 1 + j * 15);
                    const auto vicino = [&](Punto p) {
                        return std::hypot(p.x - dove.x, p.y - dove.y) < 0.1;
                    };
                    const auto trovati = std::erase_if(centri, vicino);
                    EXPECT_EQ(trovati, m.forma == Forma::croce ? 2U : 1U)
                        << dove.x << ", " << dove.y;
                    ++segni;
                }
            }
            EXPECT_TRUE(centri.empty()) << "marks where no cell is";
        }
        EXPECT_EQ(segni, 90);
    }

    support::Cartella cartella_;
    schedine::Sviluppo sviluppo_;
};

}  // namespace

TEST_F(GeometriaSchedine, OgniSegnoStaNellaSuaCasella) {
    std::vector<Modulo> tutte = disposizioni();
    ASSERT_EQ(tutte.size(), 10U);
    for (std::size_t i = 0; i < tutte.size(); ++i) {
        for (const Ingresso ingresso : {Ingresso::testa, Ingresso::sinistra}) {
            SCOPED_TRACE("layout " + std::to_string(i) +
                         (ingresso == Ingresso::testa ? " head first" : " left side first"));
            tutte[i].ingresso = ingresso;
            const auto difetto = schedine::verifica(tutte[i]);
            EXPECT_FALSE(difetto) << difetto->testo();
            confronta(tutte[i]);
        }
    }
}

TEST_F(GeometriaSchedine, RuoteEPostaHannoIlLoroSegno) {
    Modulo m;
    m.lotto = true;
    m.ruote = {{0, {500, 1900}}, {5, {600, 1900}}};
    m.poste = {{100, {700, 1900}}, {200, {800, 1900}}};
    const auto centri = schedine::segni(m, {}, {{5}, 200});
    ASSERT_EQ(centri.size(), 2U);
    EXPECT_EQ(centri[0].x, 600);
    EXPECT_EQ(centri[1].x, 800);
    EXPECT_EQ(schedine::manca_al_modulo(m, true, {{5}, 200}), "");
    EXPECT_EQ(schedine::manca_al_modulo(m, true, {{1}, 200}),
              "Nel modulo non c'è il posto della ruota Cagliari.");
    EXPECT_EQ(schedine::manca_al_modulo(m, true, {{5}, 300}),
              "Nel modulo non c'è il posto di questa posta.");
    EXPECT_EQ(schedine::manca_al_modulo(m, false, {}),
              "Il modulo è per il Lotto, il sistema per il SuperEnalotto.");
}

TEST_F(GeometriaSchedine, QuattroAngoliDannoLaGriglia) {
    for (const Modulo& vero : disposizioni()) {
        Modulo m = vero;
        m.origine = {};
        m.passo = {7, 7};
        const double x = vero.origine.x + vero.pannelli[0].x;
        const double y = vero.origine.y + vero.pannelli[0].y;
        const double destra = x + (vero.griglia.x - 1) * vero.passo.x;
        const double basso = y + (vero.griglia.y - 1) * vero.passo.y;
        // A hand is off by some tenths.
        schedine::griglia_da_angoli(
            m, {{x + 2, y - 1}, {destra - 2, y + 1}, {destra + 2, basso - 1}, {x - 2, basso + 1}});
        EXPECT_EQ(m.origine, vero.origine);
        EXPECT_EQ(m.passo, vero.passo);
    }
}

TEST_F(GeometriaSchedine, LaProvaHaUnaCrocePerCasella) {
    Modulo m;
    m.pannelli.resize(1);
    Registratore r;
    schedine::disegna_prova(r, m);
    int croci = 0;
    for (const Operazione& o : r.di_tipo(Tipo::tratto)) {
        const double y = static_cast<double>(o.y1) * 25.4 / 6;
        croci += o.x1 != o.x2 && o.y1 == o.y2 && y >= 19 && o.x1 > 1 ? 1 : 0;
    }
    EXPECT_EQ(croci, 90);
}
