// The check form over a small development and an archive of few draws.
#pragma once

#include <filesystem>

#include "check/frmspoglio.h"
#include "support/archivio.h"
#include "support/programma.h"

namespace support {

/// Three SuperEnalotto draws, three Lotto draws of ten wheels, the last two of them national too.
inline Estrazioni poche_estrazioni() {
    Estrazioni e;
    e.archivios = {
        {"1998-01-07", "9", "12", "33", "45", "5", "81", "60", "<null>", "27"},
        {"1999-02-03", "1", "2", "3", "4", "5", "6", "7", "<null>", "28"},
        {"2010-12-31", "70", "8", "33", "21", "44", "90", "15", "3", "1234"},
    };
    const std::vector<std::string> ruote{"BA", "CA", "FI", "GE", "MI",
                                         "NA", "PA", "RM", "TO", "VE"};
    for (int n = 3; n <= 5; ++n) {
        int w = 0;
        for (const std::string& ruota : ruote) {
            std::vector<std::string> riga{"2001-01-0" + std::to_string(n), ruota};
            for (int k = 1; k <= 5; ++k) riga.push_back(std::to_string((n - 3) * 10 + w + k * 11));
            riga.push_back(std::to_string(n));
            e.archivio.push_back(riga);
            ++w;
        }
    }
    e.archivion = {{"2005-05-04", "NZ", "1", "2", "3", "4", "5", "4"},
                   {"2005-05-05", "NZ", "6", "7", "8", "9", "10", "5"}};
    return e;
}

inline void archivio_piccolo(const Cartella& cartella) {
    static const std::string dati = [] {
        const Cartella altrove;
        scrivi_sqlite(altrove.file("a.sqlite"), poche_estrazioni());
        return altrove.leggi("a.sqlite");
    }();
    metti_archivio(cartella.radice(), dati);
}

class ModuloSpoglio : public ::testing::Test {
protected:
    /// Opens the check on the lines of a SuperEnalotto development.
    check::frmspoglio& apri(const std::string& righe, int conteggio) {
        p.cartella.scrivi("s.sen", "9,5,5,\"2\",0,0,0," + std::to_string(conteggio) + "\r\n");
        p.cartella.scrivi("s.col", righe);
        return mostra();
    }
    check::frmspoglio& apri() { return apri("1,2,3,4,5,6\r\n10,20,30,40,50,60\r\n", 2); }
    /// The same in Lotto, with so many numbers a line.
    check::frmspoglio& apri_lotto(const std::string& righe, int conteggio, int forma = 5) {
        Programma::clic(p.form1.Image10);
        if (forma != 5) Programma::clic(p.form1.Imageb[static_cast<std::size_t>(forma - 3)]);
        p.mostrati();
        p.cartella.scrivi("s.sel", "9,5,5,\"2\",0,0,0," + std::to_string(forma) + "," +
                                       std::to_string(conteggio) + "\r\n");
        p.cartella.scrivi("s.lot", righe);
        return mostra();
    }
    check::frmspoglio& mostra() {
        p.form1.sessione.in_linea("s");
        p.dialoghi.app::DialoghiQt::spoglio(p.form1);
        auto* f = modulo();
        if (f == nullptr) throw std::runtime_error("no check form");
        f->activateWindow();
        QApplication::processEvents();
        return *f;
    }
    /// The form that stands, null when there is none.
    check::frmspoglio* modulo() { return p.form1.findChild<check::frmspoglio*>(); }

    static QStringList testi(std::span<QLineEdit* const> caselle) {
        QStringList t;
        for (const QLineEdit* casella : caselle) t << casella->text();
        return t;
    }
    static QStringList testi(std::span<QLabel* const> etichette) {
        QStringList t;
        for (const QLabel* etichetta : etichette) {
            t << (etichetta != nullptr ? etichetta->text() : QString());
        }
        return t;
    }
    static void scrivi(std::span<QLineEdit* const> caselle, const QStringList& testi) {
        for (int i = 0; i < testi.size(); ++i) {
            caselle[static_cast<std::size_t>(i)]->setText(testi[i]);
        }
    }
    static QStringList colonna(const check::frmspoglio& f, int c) {
        QStringList t;
        for (int r = 0; r < f.ListView1->righe(); ++r) t << f.ListView1->testo(r, c);
        return t;
    }
    static QStringList riga(const check::frmspoglio& f, int r) {
        QStringList t;
        for (int c = 0; c < f.ListView1->colonne(); ++c) t << f.ListView1->testo(r, c);
        return t;
    }

    Programma p{false, archivio_piccolo};
};

inline const Mostrato manca_un_numero{"Inserire tutti i numeri della combinazione vincente.",
                                      "Tabellino", Pulsanti::ok, Icona::nessuna};

}  // namespace support
