// Two hundred systems through the window: what is saved, developed and shown never changes, and the
// command of the suite makes and tells the same.
#include "platform/disk.h"
#include "suite/sistema_prova.h"
#include "support/programma.h"

using support::Programma;

namespace {

/// Own generator: the same systems on every machine.
class Sorte {
public:
    int fino_a(int n) {
        stato_ = stato_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>((stato_ >> 33) % static_cast<std::uint64_t>(n));
    }

private:
    std::uint64_t stato_ = 2004;
};

/// Running FNV-1a of all that comes out.
class Impronta {
public:
    void aggiungi(const std::string& testo) {
        for (const char c : testo + '\n') {
            valore_ = (valore_ ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
        }
    }
    [[nodiscard]] std::uint64_t valore() const { return valore_; }

private:
    std::uint64_t valore_ = 14695981039346656037ULL;
};

using Celle = std::vector<std::vector<int>>;

/// True when no line through the cell holds the number; written without the program's own rule.
bool ammesso(const Celle& m, int x, int y, int numero) {
    const int colonne = static_cast<int>(m.size());
    const int righe = static_cast<int>(m[0].size());
    for (int i = 0; i < colonne; ++i) {
        for (int j = 0; j < righe; ++j) {
            if (m[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] != numero) continue;
            if (i == x || j == y) return false;
            if (colonne != righe) continue;
            const int scarto = colonne >= 7 ? 1 : 0;
            if (i - j == x - y && std::abs(x - y) <= scarto) return false;
            if (i + j == x + y && std::abs(x + y - colonne + 1) <= scarto) return false;
        }
    }
    return true;
}

Celle cruciverba(Sorte& sorte, int colonne, int righe) {
    Celle m(static_cast<std::size_t>(colonne), std::vector<int>(static_cast<std::size_t>(righe)));
    for (int y = 0; y < righe; ++y) {
        for (int x = 0; x < colonne; ++x) {
            int numero = 1 + sorte.fino_a(90);
            while (!ammesso(m, x, y, numero)) numero = numero % 90 + 1;
            m[static_cast<std::size_t>(x)][static_cast<std::size_t>(y)] = numero;
        }
    }
    return m;
}

int tipo(Sorte& sorte, const platform::ComboBox* combo) {
    return combo->count() == 0 ? -1 : sorte.fino_a(combo->count());
}

/// Types every number into the crossword, as a player does.
void digita(Programma& p, const Celle& m) {
    p.cella(0, 0);
    for (std::size_t y = 0; y < m[0].size(); ++y) {
        for (const std::vector<int>& colonna : m) {
            const QString cifre = QStringLiteral("%1").arg(colonna[y], 2, 10, QChar('0'));
            QTest::keyClicks(p.form1.MSFlexGrid1, cifre);
        }
    }
}

/// Opens the one system of the folder by the manager.
void apri(Programma& p, const QString& nome) {
    Programma::voce(p.form1.mnuapri);
    systems::Form2* form2 = Programma::gestore();
    ASSERT_NE(form2, nullptr);
    const QList<QTreeWidgetItem*> voci = form2->ListView1->findItems(nome, Qt::MatchExactly);
    ASSERT_EQ(voci.size(), 1) << nome.toStdString();
    QTest::mouseClick(form2->ListView1->viewport(), Qt::LeftButton, {},
                      form2->ListView1->visualItemRect(voci.first()).center());
    Programma::clic(form2->Command5);
    EXPECT_EQ(p.form1.Tag(), nome);
}

class Duecento {
public:
    explicit Duecento(Programma& p) : p_(p) {}

    void sistema(int quale) {
        gioca(sorte_.fino_a(4));
        Programma::voce(p_.form1.mnunuovo);
        const int primo = lotto_ ? 5 : 6;
        const int colonne = primo + sorte_.fino_a(16 - primo);
        const int righe = sorte_.fino_a(2) == 0 ? colonne : primo + sorte_.fino_a(16 - primo);
        p_.dimensioni(colonne, righe);
        for (platform::ComboBox* combo : {p_.form1.Combo3, p_.form1.Combo4, p_.form1.Combo5}) {
            const int indice = tipo(sorte_, combo);
            if (indice >= 0) Programma::scegli(combo, indice);
        }
        vedi();
        Programma::voce(sorte_.fino_a(2) == 0 ? p_.form1.mnuRipetizioniCon
                                              : p_.form1.mnuRipetizioniSenza);
        const QString nome = "sistema" + QString::number(quale);
        const Celle m = cruciverba(sorte_, colonne, righe);
        if (quale % 10 == 0) {
            digita(p_, m);
            p_.scrivi_nel_gestore(nome);
            Programma::voce(p_.form1.mnusalva);
        } else {
            p_.cartella.scrivi(file(nome, false), testo(m));
            p_.risposte = {support::vbNo};
            apri(p_, nome);
            vedi();
        }
        p_.comando(1);
        EXPECT_EQ(p_.mostrati().back().testo, "Elaborazione completata.");
        vedi();
        come_il_comando(nome);
        for (const bool sviluppo : {false, true}) {
            const std::string scritto = file(nome, sviluppo);
            EXPECT_TRUE(p_.cartella.esiste(scritto)) << scritto;
            impronta_.aggiungi(scritto);
            impronta_.aggiungi(p_.cartella.leggi(scritto));
            platform::Kill(p_.cartella.file(scritto));
        }
    }
    [[nodiscard]] std::uint64_t impronta() const { return impronta_.valore(); }

private:
    void gioca(int quale) {
        app::Form1& f = p_.form1;
        lotto_ = quale > 0;
        platform::Image* gioco = lotto_ ? f.Image10 : f.Image8;
        if (gioco->isVisible()) Programma::clic(gioco);
        forma_ = quale + 2;
        if (lotto_) {
            // The button of the form in force has its chosen picture in front.
            const auto i = static_cast<std::size_t>(quale - 1);
            Programma::clic(f.Imageb[i]->isVisible() ? f.Imageb[i] : f.Imagey[i]);
        }
    }
    [[nodiscard]] std::string file(const QString& nome, bool sviluppo) const {
        return nome.toStdString() + (lotto_     ? sviluppo ? ".lot" : ".sel"
                                     : sviluppo ? ".col"
                                                : ".sen");
    }
    /// The file of a system that was never developed.
    [[nodiscard]] std::string testo(const Celle& m) const {
        const auto indice = [](const platform::ComboBox* c) {
            return "," + std::to_string(c->ListIndex());
        };
        std::string t = "0," + std::to_string(m[0].size() - 1) + "," +
                        std::to_string(m.size() - 1) + ",\"\"" + indice(p_.form1.Combo3) +
                        indice(p_.form1.Combo4) + indice(p_.form1.Combo5) +
                        (lotto_ ? "," + std::to_string(forma_) : "") + ",0\r\n";
        for (std::size_t y = 0; y < m[0].size(); ++y) {
            for (const std::vector<int>& colonna : m) t += std::to_string(colonna[y]) + ",";
            t += "\r\n";
        }
        return t;
    }
    /// Takes in all that the main form tells of the system.
    void vedi() {
        const app::Form1& f = p_.form1;
        QStringList testi{f.windowTitle(), f.lblsistema->text(), f.lblngioco->text()};
        for (int riga = 1; riga < 6; ++riga) {
            testi << p_.riepilogo(riga, 1) << p_.riepilogo(riga, 3);
        }
        for (const platform::ComboBox* combo : {f.Combo3, f.Combo4, f.Combo5}) {
            testi << combo->Text() << QString::number(combo->count());
        }
        testi << f.lblimportotot->text() << f.lblquote->text() << f.lblnumquote->text();
        impronta_.aggiungi(testi.join('|').toStdString());
    }

    /// The command, asked about the same system, gives the window's bytes, counts and price.
    void come_il_comando(const QString& nome) {
        const std::string suo = p_.cartella.file(file(nome, false));
        const support::Valore conta = comando_.json({"conta", suo})[0];
        const auto cella = [this](int riga) {
            return p_.riepilogo(riga, 3).remove('.').toStdString();
        };
        EXPECT_EQ(conta["totale"].testo, cella(4));
        const std::string senza = conta["senza_ripetizioni"].testo;
        EXPECT_EQ(senza == "null" ? "" : senza, cella(5));
        // The window has no price for a system that was opened without a count.
        const bool contato = senza != "null";
        EXPECT_EQ(std::stod(conta["importo"].testo),
                  contato ? p_.form1.lblimportotot->text().remove('.').replace(',', '.').toDouble()
                          : std::stod(conta["totale"].testo) * 0.5);
        EXPECT_EQ(conta["numeri_in_gioco"].testo, p_.form1.lblngioco->text().toStdString());
        EXPECT_EQ(conta["sviluppo"].testo, "presente");
        const std::string altrove = p_.cartella.radice() + "/altrove/";
        std::filesystem::create_directory(altrove);
        platform::scrivi(altrove + file(nome, false), p_.cartella.leggi(file(nome, false)));
        comando_.json({"sviluppa", "--scrivi", altrove + file(nome, false)});
        for (const bool sviluppo : {false, true}) {
            EXPECT_EQ(support::contenuto(altrove + file(nome, sviluppo)),
                      p_.cartella.leggi(file(nome, sviluppo)));
            platform::Kill(altrove + file(nome, sviluppo));
        }
    }

    Programma& p_;
    prova::Comando comando_{p_.cartella};
    Sorte sorte_;
    Impronta impronta_;
    bool lotto_ = false;
    int forma_ = 5;
};

}  // namespace

TEST(DuecentoSistemi, FileESchermoRestanoQuelli) {
    Programma p(true);
    Duecento duecento(p);
    for (int i = 0; i < 200; ++i) {
        duecento.sistema(i);
        if (testing::Test::HasFailure()) break;
    }
    EXPECT_EQ(duecento.impronta(), 6794629351998299575ULL);
}
