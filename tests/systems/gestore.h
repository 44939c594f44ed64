// The manager over a fresh library, in both games.
#pragma once

#include <filesystem>
#include <map>

#include <QLineEdit>

#include "platform/qt/folder.h"
#include "platform/qt/scrivania.h"
#include "support/programma.h"

namespace gestore {

using platform::Icona;
using platform::Pulsanti;
using platform::vbNo;
using platform::vbYes;
using support::Mostrato;
using support::Programma;
using systems::Form2;
namespace fs = std::filesystem;

using Stato = std::map<std::string, std::string>;

inline Stato stato(const std::string& cartella) {
    Stato s;
    for (const auto& voce : fs::directory_iterator(cartella)) {
        std::ifstream f(voce.path(), std::ios::binary);
        s[voce.path().filename().string()] = {std::istreambuf_iterator<char>(f), {}};
    }
    return s;
}

inline const char* const gia_esiste = "Esiste già un sistema con questo nome. Sovrascrivere?";

inline Mostrato domanda(const QString& testo) {
    return {testo, "Tabellino", Pulsanti::si_no};
}
inline Mostrato avviso(const QString& testo) {
    return {testo, "Tabellino", Pulsanti::ok};
}

/// Both games: the parameter is `lotto`.
class Gestore : public ::testing::TestWithParam<bool> {
protected:
    Gestore() {
        fs::create_directories(altra);
        if (GetParam()) p.form1.Image10_Click();
        platform::scrivania().sceglie_cartella = [this](const QString& titolo,
                                                        const QString& inizio) {
            titoli << titolo;
            inizi << inizio;
            return cartella_scelta;
        };
    }

    [[nodiscard]] std::string sis(const std::string& nome) const {
        return nome + (GetParam() ? ".sel" : ".sen");
    }
    [[nodiscard]] std::string svi(const std::string& nome) const {
        return nome + (GetParam() ? ".lot" : ".col");
    }
    [[nodiscard]] std::string altrui(const std::string& nome) const {
        return nome + (GetParam() ? ".sen" : ".sel");
    }
    /// A small valid head, told apart by the count.
    [[nodiscard]] std::string testo(int quanti) const {
        return std::string("1,5,5,\"2\",0,0,0,") + (GetParam() ? "5," : "") +
               std::to_string(quanti) + "\r\n";
    }
    void sistema(const std::string& nome, int quanti) const {
        p.cartella.scrivi(sis(nome), testo(quanti));
    }
    void scrivi_altra(const std::string& nome, const std::string& dati) const {
        std::ofstream(altra + "/" + nome, std::ios::binary) << dati;
    }
    Form2& apri() {
        p.form1.mnugest_sist_Click();
        QApplication::processEvents();
        return *Programma::gestore();
    }
    static void seleziona(Form2& f, const QString& nome) {
        const auto trovate = f.ListView1->findItems(nome, Qt::MatchExactly);
        ASSERT_EQ(trovate.size(), 1) << nome.toStdString();
        f.ListView1->setCurrentItem(trovate.first());
    }
    static QStringList nomi(const Form2& f) {
        QStringList tutti;
        for (int i = 0; i < f.ListView1->topLevelItemCount(); ++i) {
            tutti << f.ListView1->topLevelItem(i)->text(0);
        }
        return tutti;
    }
    /// Chooses an item of the pop-up menu; what it queued runs too.
    static void menu(QAction* azione) {
        Programma::voce(azione);
        QApplication::processEvents();
    }
    /// The item by itself: the offscreen platform gives a menu the focus for good.
    static void inizia_rinomina(Form2& f) {
        f.mnurinomina->trigger();
        QApplication::processEvents();
    }
    static QLineEdit* editore(Form2& f) { return f.ListView1->viewport()->findChild<QLineEdit*>(); }
    /// Renames the selected system by its label.
    static void rinomina(Form2& f, const QString& nuovo) {
        inizia_rinomina(f);
        QLineEdit* casella = editore(f);
        ASSERT_NE(casella, nullptr);
        // Typed as a paste, for the letters that no key of the test has.
        casella->selectAll();
        casella->insert(nuovo);
        QTest::keyClick(casella, Qt::Key_Return);
        QApplication::processEvents();
    }
    void duplica(Form2& f, const QString& nuovo) {
        menu(f.mnuduplica);
        f.txtduplica->clear();
        QTest::keyClicks(f.txtduplica, nuovo);
        Programma::clic(f.cmddup_conferma);
    }
    Form2& importa_da(const std::string& cartella) {
        Form2& f = apri();
        cartella_scelta = QString::fromStdString(cartella);
        menu(f.mnuimporta);
        return f;
    }
    /// The program folder, less the price of a column, which the main form keeps there.
    [[nodiscard]] Stato programma() const {
        Stato s = stato(p.cartella.programma());
        s.erase("cst");
        return s;
    }
    [[nodiscard]] QString dove() const {
        return QString::fromStdString(p.cartella.programma()) + "/";
    }

    Programma p;
    std::string altra = p.cartella.radice() + "/altra";
    QString cartella_scelta;
    QStringList titoli;
    QStringList inizi;
    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
};

}  // namespace gestore
