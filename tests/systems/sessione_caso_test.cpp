// A million random actions on the session, held against a plain model of it.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>

#include "platform/disk.h"
#include "support/cartella.h"
#include "systems/sessione.h"
#include "systems/sessione_modello.h"

using crossword::Elenco;
using crossword::Gioco;
using modello::Griglia;
using modello::Modello;
using modello::quanti_tipi;
using systems::Cella;
using systems::Posata;
using systems::Salvataggio;
using systems::Sessione;

namespace {

constexpr int azioni = 1000000;

class Sorte {
public:
    int fino_a(int n) {
        stato_ = stato_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>((stato_ >> 33) % static_cast<std::uint64_t>(n));
    }

private:
    std::uint64_t stato_ = 15;
};

/// What a window would show that reads anew only what it is told to have changed.
struct Vista {
    Gioco gioco;
    crossword::Matrice matrice;
    std::array<int, 3> tipi{};
    std::vector<std::string> elenchi;
    std::int32_t totale = 0;
    std::int32_t senza = 0;
    systems::Prezzo prezzo;
    std::string nome;
    bool salvato = false;
    bool annullabile = false;
    bool ripetibile = false;

    void guarda(const Sessione& s, const systems::Cambiamento& c) {
        if (c.gioco) gioco = s.gioco();
        if (c.dimensioni || c.celle) matrice = s.matrice();
        if (c.tipi) {
            elenchi.clear();
            for (const int i : {1, 2, 3}) {
                const auto quale = static_cast<Elenco>(i);
                tipi.at(static_cast<std::size_t>(i - 1)) = s.tipo(quale);
                for (const std::string& t : s.tipi(quale)) elenchi.push_back(t);
            }
        }
        if (c.conteggi) {
            totale = s.totale();
            senza = s.senza_ripetizioni();
        }
        if (c.importo) prezzo = s.prezzo();
        if (c.nome) nome = s.nome();
        if (c.salvato) salvato = s.salvato();
        if (c.cronologia) {
            annullabile = s.annullabile();
            ripetibile = s.ripetibile();
        }
    }
};

class Passeggiata : public testing::Test {
protected:
    void SetUp() override {
        cartella.con_tabelle();
        s.avvia();
        m.griglia(6, 6);
        m.senza_passi();
        m.salvato = true;
        vista.guarda(s, {true, true, true, true, true, true, true, true, true});
        s.osserva([this](const systems::Cambiamento& c) {
            ++avvisi;
            vista.guarda(s, c);
        });
    }

    [[nodiscard]] Cella una_cella() { return {caso.fino_a(m.colonne()), caso.fino_a(m.righe())}; }
    void celle_uguali() const {
        ASSERT_EQ(s.matrice().colonne(), m.colonne());
        ASSERT_EQ(s.matrice().righe(), m.righe());
        for (int x = 0; x < m.colonne(); ++x) {
            for (int y = 0; y < m.righe(); ++y) {
                const auto& colonna = m.celle[static_cast<std::size_t>(x)];
                ASSERT_EQ(s.matrice()(x, y), colonna[static_cast<std::size_t>(y)]) << x << y;
            }
        }
    }
    void tutto_uguale() {
        celle_uguali();
        ASSERT_EQ(vista.gioco, s.gioco());
        ASSERT_TRUE(vista.matrice == s.matrice());
        ASSERT_EQ(vista.totale, s.totale());
        ASSERT_EQ(vista.senza, s.senza_ripetizioni());
        ASSERT_EQ(vista.prezzo.totale, s.prezzo().totale);
        ASSERT_EQ(vista.prezzo.quota, s.prezzo().quota);
        ASSERT_EQ(vista.prezzo.quote, s.prezzo().quote);
        ASSERT_EQ(vista.nome, s.nome());
        std::size_t voci = 0;
        for (int i = 0; i < 3; ++i) voci += s.tipi(static_cast<Elenco>(i + 1)).size();
        ASSERT_EQ(vista.elenchi.size(), voci);
        ASSERT_EQ(s.gioco(), m.gioco);
        ASSERT_EQ(s.colonne(), m.colonne());
        ASSERT_EQ(s.righe(), m.righe());
        for (int i = 0; i < 3; ++i) {
            const auto quale = static_cast<Elenco>(i + 1);
            ASSERT_EQ(s.tipo(quale), m.tipi[static_cast<std::size_t>(i)]) << i;
            ASSERT_EQ(vista.tipi.at(static_cast<std::size_t>(i)), s.tipo(quale)) << i;
        }
        ASSERT_EQ(s.totale(), m.totale());
        ASSERT_EQ(s.senza_ripetizioni(), m.senza);
        ASSERT_EQ(s.prezzo().totale, m.totale_testo);
        ASSERT_EQ(s.prezzo().quota, m.quota);
        ASSERT_EQ(s.prezzo().quote, std::to_string(m.quote));
        ASSERT_EQ(s.nome(), m.nome);
        ASSERT_EQ(s.completo(), m.completo());
        ASSERT_EQ(s.sviluppo_presente(), !m.nome.empty() && m.sviluppi.contains(m.su_disco()));
    }
    void flag_uguali() const {
        ASSERT_EQ(s.salvato(), m.salvato);
        ASSERT_EQ(s.annullabile(), m.fatti > 0);
        ASSERT_EQ(s.ripetibile(), m.fatti < m.passi.size());
        ASSERT_EQ(vista.salvato, m.salvato);
        ASSERT_EQ(vista.annullabile, m.fatti > 0);
        ASSERT_EQ(vista.ripetibile, m.fatti < m.passi.size());
        // One word for one action, however many steps it took.
        ASSERT_LE(avvisi, 1);
    }

    void lascia(Cella c, int numero, Posata atteso) {
        avvisi = 0;
        ASSERT_EQ(s.posa(c, numero), atteso);
        ++fatte[atteso == Posata::sbarrata ? "sbarrate" : "posate"];
        if (atteso != Posata::posata) return;
        m.scrivi(c.colonna, c.riga, numero);
        ASSERT_EQ(s.matrice()(c.colonna, c.riga), numero);
    }
    void posa() {
        const Cella c = una_cella();
        const int numero = caso.fino_a(40) == 0 ? caso.fino_a(200) - 60 : 1 + caso.fino_a(90);
        if (numero < 1 || numero > 90) {
            lascia(c, numero, Posata::fuori);
            return;
        }
        const bool ammesso = m.ammesso(c.colonna, c.riga, numero);
        lascia(c, numero, ammesso ? Posata::posata : Posata::sbarrata);
    }
    void rimuovi() {
        const Cella c = una_cella();
        s.rimuovi(c);
        m.scrivi(c.colonna, c.riga, 0);
        ASSERT_EQ(s.matrice()(c.colonna, c.riga), 0);
    }
    /// Every empty cell takes a number that it may.
    void riempi() {
        for (int x = 0; x < m.colonne(); ++x) {
            for (int y = 0; y < m.righe(); ++y) {
                if (m.cella(x, y) != 0) continue;
                int numero = 1 + caso.fino_a(90);
                while (!m.ammesso(x, y, numero)) numero = numero % 90 + 1;
                lascia({x, y}, numero, Posata::posata);
            }
        }
    }
    void completa() {
        std::vector<int> scelti;
        for (const auto& colonna : m.celle) {
            std::copy_if(colonna.begin(), colonna.end(), std::back_inserter(scelti),
                         [](int n) { return n != 0; });
        }
        const Griglia prima = m.celle;
        Cella ferma{-1, -1};
        Cella attesa{-1, -1};
        for (int y = 0; y < m.righe() && attesa.riga < 0; ++y) {
            for (int x = 0; x < m.colonne() && attesa.riga < 0; ++x) {
                if (m.cella(x, y) != 0) continue;
                const auto n = std::find_if(scelti.begin(), scelti.end(),
                                            [&](int k) { return m.ammesso(x, y, k); });
                if (n == scelti.end()) {
                    attesa = {x, y};
                } else {
                    m.cella(x, y) = *n;
                }
            }
        }
        if (prima != m.celle) {
            m.salvato = false;
            m.annota(prima, m.tipi);
        }
        ASSERT_EQ(s.completa_con_scelti({}, &ferma), attesa.riga < 0
                                                         ? systems::Completato::completo
                                                         : systems::Completato::impossibile);
        ASSERT_EQ(ferma, attesa);
        ++fatte[attesa.riga < 0 ? "completate" : "impossibili"];
        tutto_uguale();
    }
    void scegli() {
        const int i = caso.fino_a(3);
        const auto k = static_cast<std::size_t>(i);
        const int quanti = i == 2 && !m.quadrata()
                               ? 0
                               : quanti_tipi(m.gioco, i == 2, i == 1 ? m.righe() : m.colonne());
        ASSERT_EQ(static_cast<int>(s.tipi(static_cast<Elenco>(i + 1)).size()), quanti);
        const int indice = caso.fino_a(10) - 1;
        const bool esiste = indice >= 0 && indice < quanti;
        ASSERT_EQ(s.scegli_tipo(static_cast<Elenco>(i + 1), indice), esiste);
        if (!esiste) return;
        m.tipi[k] = indice;
        m.ricalcola();
        tutto_uguale();
    }
    void rifai(bool indietro) {
        const bool possibile = indietro ? m.fatti > 0 : m.fatti < m.passi.size();
        const auto cella = indietro ? s.annulla() : s.ripeti();
        if (!possibile) {
            ASSERT_FALSE(cella.has_value());
            return;
        }
        const Modello::Passo p = m.passi[indietro ? --m.fatti : m.fatti++];
        ++fatte[indietro ? "annullate" : "ripetute"];
        if (!p.tipi.empty()) ++fatte["annullate con i tipi"];
        m.celle = indietro ? p.prima : p.dopo;
        m.salvato = false;
        for (const auto& [i, tipo] : p.tipi) {
            m.tipi[static_cast<std::size_t>(i)] = indietro ? tipo.first : tipo.second;
            m.ricalcola();
        }
        tutto_uguale();
    }
    void altra_griglia() {
        const int minimo = m.gioco.e_lotto() ? 5 : 6;
        switch (caso.fino_a(8)) {
            case 0:
                s.svuota();
                m.griglia(m.colonne(), m.righe());
                break;
            case 1:
                s.nuovo();
                m.nuovo(minimo);
                break;
            case 2:
                s.azzera();
                m.nuovo(minimo);
                m.cambia_quote(1);
                break;
            case 3:
                s.passa_al_superenalotto();
                m.passa(Gioco::superenalotto());
                break;
            case 4:
                s.passa_al_lotto();
                if (!m.nome.empty()) m.sviluppi.erase(m.nome + ".lot");
                m.passa(Gioco::lotto());
                break;
            case 5: {
                const int forma = 3 + caso.fino_a(3);
                s.cambia_forma(forma);
                m.cambia_forma(forma);
                break;
            }
            default: {
                const int c = 4 + caso.fino_a(13);
                const int r = caso.fino_a(2) == 0 ? c : 4 + caso.fino_a(13);
                s.dimensioni(c, r);
                if (std::min(c, r) >= minimo && std::max(c, r) <= 15) m.griglia(c, r);
            }
        }
        tutto_uguale();
    }
    void file() {
        const std::string nome(1, static_cast<char>('a' + caso.fino_a(4)));
        if (caso.fino_a(4) != 0) riempi();
        avvisi = 0;
        switch (caso.fino_a(5)) {
            case 0:
                ASSERT_EQ(s.salva(), !m.completo()    ? Salvataggio::incompleto
                                     : m.nome.empty() ? Salvataggio::senza_nome
                                                      : Salvataggio::salvato);
                if (m.completo() && !m.nome.empty()) m.salva();
                break;
            case 1:
                ASSERT_EQ(s.salva_come("../" + nome), Salvataggio::nome_vietato);
                ASSERT_EQ(s.salva_come(nome),
                          m.completo() ? Salvataggio::salvato : Salvataggio::incompleto);
                if (!m.completo()) break;
                m.nome = nome;
                m.salva();
                ++fatte["salvate"];
                break;
            case 2:
                s.libera(nome);
                m.sviluppi.erase(nome + m.gioco.estensione_sviluppo());
                break;
            case 3:
                sviluppa();
                break;
            default:
                if (!m.disco.contains(nome + m.gioco.estensione_sistema())) break;
                ASSERT_TRUE(s.apri(nome));
                ++fatte["aperte"];
                m.apri(nome);
        }
        tutto_uguale();
    }
    void sviluppa() {
        // The large ones take too long for so many.
        if (m.totale() > 10000) return;
        const bool con = caso.fino_a(2) == 0;
        s.ripetizioni(con);
        avvisi = 0;
        ASSERT_EQ(platform::esiste_file(cartella.file("rip.dat")), con);
        const auto esito = s.sviluppa({});
        if (!m.completo() || m.nome.empty()) {
            ASSERT_EQ(esito, !m.completo() ? systems::Elaborato::incompleto
                                           : systems::Elaborato::senza_nome);
            return;
        }
        ASSERT_EQ(esito, systems::Elaborato::completo);
        ++fatte[con ? "con ripetizioni" : "senza ripetizioni"];
        std::istringstream righe(cartella.leggi(m.su_disco()));
        std::set<std::string> diverse;
        int quante = 0;
        for (std::string riga; std::getline(righe, riga); ++quante) diverse.insert(riga);
        if (!con) {
            ASSERT_EQ(quante, static_cast<int>(diverse.size()));
            m.senza = quante;
            m.prezza(quante);
        }
        m.sviluppi.insert(m.su_disco());
        m.salva();
    }
    void passo() {
        const int quale = caso.fino_a(100000);
        if (quale < 55000) {
            posa();
        } else if (quale < 70000) {
            rimuovi();
        } else if (quale < 85000) {
            rifai(quale % 3 != 0);
        } else if (quale < 95000) {
            const int quante = caso.fino_a(40) + 1;
            s.quote(quante);
            m.cambia_quote(quante);
        } else if (quale < 98500) {
            scegli();
        } else if (quale < 99400) {
            completa();
        } else if (quale < 99700) {
            altra_griglia();
        } else if (quale < 99900) {
            riempi();
        } else {
            file();
        }
        flag_uguali();
    }

    support::Cartella cartella;
    Sessione s{cartella.programma()};
    Modello m;
    Sorte caso;
    Vista vista;
    int avvisi = 0;
    std::map<std::string, int> fatte;
};

}  // namespace

TEST_F(Passeggiata, UnMilioneDiAzioniComeIlModelloSemplice) {
    for (int i = 0; i < azioni && !HasFatalFailure(); ++i) {
        avvisi = 0;
        passo();
        ASSERT_FALSE(HasFatalFailure()) << "at action " << i;
        if (i % 50 == 0) tutto_uguale();
    }
    for (const char* cosa :
         {"posate", "sbarrate", "annullate", "annullate con i tipi", "ripetute", "completate",
          "impossibili", "con ripetizioni", "senza ripetizioni", "aperte", "salvate"}) {
        EXPECT_GE(fatte[cosa], azioni / 100000) << cosa;
        RecordProperty(cosa, fatte[cosa]);
    }
}
