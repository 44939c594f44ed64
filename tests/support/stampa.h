// The program with its print options, for the tests of them.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include <QPointer>

#include "platform/qt/controls.h"
#include "platform/qt/folder.h"
#include "platform/qt/scrivania.h"
#include "printing/frmstsvl.h"
#include "support/pdf.h"
#include "support/programma.h"

namespace support {

/// The program, with the documents that the desktop was asked to show.
class Stampa {
public:
    Stampa() {
        platform::scrivania().apre = [this](const QString& documento) {
            aperti << documento;
            return si_apre;
        };
    }
    ~Stampa() = default;
    Stampa(const Stampa&) = delete;
    Stampa& operator=(const Stampa&) = delete;

    /// A system in line as after a save.
    void in_linea(const QString& nome = "prova") {
        p.form1.sessione.in_linea(nome.toStdString());
        p.form1.sessione.segna_salvato(true);
    }
    void sviluppato(const std::string& colonne = "4,17,23,38,61,90\r\n") const {
        p.cartella.scrivi(p.form1.sessione.gioco().e_lotto() ? "prova.lot" : "prova.col", colonne);
    }
    /// Opens the dialog with the command of the main form.
    printing::frmstsvl* apri() {
        p.comando(7);
        QApplication::processEvents();
        f = cerca();
        EXPECT_FALSE(f.isNull()) << "the dialog did not open";
        return f;
    }
    static printing::frmstsvl* cerca() {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            auto* form = qobject_cast<printing::frmstsvl*>(w);
            if (form != nullptr && form->isVisible()) return form;
        }
        return nullptr;
    }
    void conferma(int opzione) {
        if (opzione >= 0) Programma::clic(f->Option1[static_cast<std::size_t>(opzione)]);
        Programma::clic(f->Command2);
    }
    /// The box that tells where a job went.
    [[nodiscard]] Mostrato scritto(const QString& cosa, const std::string& nome,
                                   bool al_posto = false) const {
        return {cosa + " è nel file\n" + platform::da_mostrare(platform::q(pdf(nome))) +
                    (al_posto ? "\n\nHa preso il posto del PDF con lo stesso nome." : ""),
                "Tabellino", Pulsanti::ok, Icona::informazione};
    }
    /// The box that tells why a job was lost.
    [[nodiscard]] Mostrato perso(const QString& cosa, const std::string& nome,
                                 const QString& motivo, bool rimasto = false) const {
        return {cosa + " non è stato stampato.\n\n" +
                    platform::da_mostrare(platform::q(pdf(nome))) + "\n" + motivo + "." +
                    (rimasto ? "\n\nIl PDF di prima è rimasto com'era." : ""),
                "Tabellino", Pulsanti::ok, Icona::informazione};
    }
    [[nodiscard]] bool chiuso() const { return f.isNull() || !f->isVisible(); }
    [[nodiscard]] std::string pdf(const std::string& nome) const { return p.cartella.file(nome); }
    [[nodiscard]] std::string testo(const std::string& nome) const {
        std::string unito;
        for (const Parola& parola : support::parole(pdf(nome))) unito += parola.testo + " ";
        return unito;
    }
    void nella_suite(const std::string& nome, const std::string& dati, bool programma = false) {
        const std::string intero = p.cartella.radice() + "/" + nome;
        std::ofstream(intero, std::ios::binary) << dati;
        if (programma) {
            std::filesystem::permissions(intero, std::filesystem::perms::owner_all);
        }
    }
    [[nodiscard]] std::string dalla_suite(const std::string& nome) const {
        std::ifstream file(p.cartella.radice() + "/" + nome, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    Programma p;
    QStringList aperti;
    /// What the desktop says when it is asked to show one.
    bool si_apre = true;
    QPointer<printing::frmstsvl> f;

private:
    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
};

}  // namespace support
