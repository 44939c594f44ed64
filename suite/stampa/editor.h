// The window that tells where the cells of the player's slip are.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "platform/qt/controls.h"
#include "stampa/campi_modulo.h"
#include "stampa/geometria.h"

class QScrollArea;

namespace schedine {

class Tavolo;

class Editor : public QDialog {
    Q_OBJECT
public:
    /// Edits the module of a name, or a new one when that is empty.
    Editor(std::string radice, const QString& nome, QWidget* padre);

    /// Of a new module.
    void gioco(bool lotto);
    /// Name under which the module was saved; empty when it was not.
    [[nodiscard]] QString salvato() const { return salvato_; }
    [[nodiscard]] const Modulo& modulo() const { return modulo_; }

    QLineEdit* txtnome = nullptr;
    platform::ComboBox* cmbgioco = nullptr;
    platform::ComboBox* cmbingresso = nullptr;
    platform::ComboBox* cmbordine = nullptr;
    platform::ComboBox* cmbforma = nullptr;
    std::array<std::array<QLineEdit*, 2>, campi_posto.size()> txtcampo{};
    QPlainTextEdit* txtposti = nullptr;
    QLabel* lbldifetto = nullptr;
    QLabel* lblguida = nullptr;
    QPushButton* cmdimmagine = nullptr;
    QPushButton* cmdangoli = nullptr;
    QPushButton* cmdpannello = nullptr;
    QPushButton* cmdprova = nullptr;
    QPushButton* cmdsalva = nullptr;
    QPushButton* cmdchiudi = nullptr;
    Tavolo* tavolo = nullptr;

    /// A point of the slip was clicked, in tenths of a millimetre.
    void clic(Punto punto);

protected:
    void reject() override;

private:
    QWidget* crea_campi();
    QWidget* crea_tavolo();
    QLayout* crea_comandi();
    void mostra(const Modulo& modulo);
    /// Takes what the fields say; the fault shows and names its field.
    void leggi();
    [[nodiscard]] std::string testo() const;
    void scegli_immagine();
    void inizia_angoli();
    void inizia_pannello();
    void mostra_guida();
    void stampa_prova();
    void salva();
    int messaggio(const QString& testo);

    std::string radice_;
    QString nome_;  ///< of the file that is edited
    QString salvato_;
    Modulo modulo_;
    Modulo registrato_;  ///< as it stands on the disk
    bool in_ordine_ = true;
    bool mostrando_ = false;
    enum class Attesa { nulla, angoli, pannello } attesa_ = Attesa::nulla;
    std::vector<Punto> angoli_;
};

}  // namespace schedine
