// Check of the system in line against a winning combination.
#pragma once

#include <array>
#include <memory>
#include <span>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "check/dettaglio.h"
#include "check/spoglio.h"
#include "platform/qt/controls.h"
#include "platform/qt/flexgrid.h"
#include "platform/qt/listavirtuale.h"
#include "platform/recordset.h"
#include "statistics/riga_archivio.h"

namespace app {
class Finestra;
}

namespace check {

/// Checks the system named by its `Tag`, of the game and form in force when it is made. `finestra`
/// outlives the form, is hidden while it stands, and comes back when it goes, whichever way it is
/// closed.
class frmspoglio : public QDialog {
    Q_OBJECT
public:
    explicit frmspoglio(app::Finestra& finestra);
    ~frmspoglio() override;

    /// Reads the head of the system file; called once, before the form is shown.
    void iniz();
    void apridatabase();
    void comb_se8();
    void colore_griglia();
    void di_esito();
    void controllo_nvincenti();
    void controllo_nvincenti_lotto();
    void dettaglio_nvincenti();
    void dettaglio_nvincenti_lotto();
    /// The same way out as the button.
    void reject() override { close(); }

    QLabel* lblnomesistema = nullptr;
    QLabel* lblnumconb = nullptr;
    platform::ComboBox* Combo1 = nullptr;
    platform::ComboBox* Combo2 = nullptr;
    platform::ComboBox* Combo3 = nullptr;
    std::array<QLineEdit*, 7> txtnum{};
    std::array<QLineEdit*, 5> txtnumlotto{};
    QPushButton* Cmdspoglio = nullptr;
    QPushButton* Cmdvincenti = nullptr;
    QPushButton* Cmdvincentilotto = nullptr;
    QPushButton* cmdpunti = nullptr;
    QLabel* lblordina = nullptr;
    QPushButton* cmdsched = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* CmdEsci = nullptr;
    platform::Frame* Frame2 = nullptr;
    platform::Frame* Frame4 = nullptr;
    platform::Frame* Framevinclotto = nullptr;
    platform::Frame* framelotto = nullptr;
    platform::Frame* framedetlotto = nullptr;
    platform::MSFlexGrid* MSFlexGrid1 = nullptr;
    platform::ListaVirtuale* ListView1 = nullptr;
    platform::Image* piclist = nullptr;
    statistics::RigaArchivio* riga_archivio = nullptr;
    QFrame* picprog1 = nullptr;
    QFrame* picprog2 = nullptr;
    std::array<QLabel*, 8> lblvinc{};
    /// Only place 5 has a label.
    std::array<QLabel*, 8> lblvinc_j{};
    std::array<QLabel*, 4> lblvinclotto{};

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void showEvent(QShowEvent* evento) override;

private:
    class Elenco;
    class Occupato;

    // Layout, each routine one area of the window.
    void crea_sistema();
    void crea_estrazione();
    void crea_estrazione_lotto();
    void crea_cruciverba();
    void crea_esito();
    void crea_comandi();
    void ordine_tastiera();
    void spazio_in_piu();
    void collega();
    QLineEdit* casella(const QString& nome, const QString& scopo, QRect dove, QWidget* padre);

    void Form_Load();
    void copia_cruciverba();
    void elenca_estrazioni();
    /// Another archive took the old one's place: its draws are listed, and the one that is chosen
    /// stays chosen where it is still there.
    void rivedi_estrazioni();
    [[nodiscard]] bool appena_aperta() const;
    void centra_cruciverba();
    void Combo1_Click();
    void Combo3_Click();
    void casella_piena(QLineEdit* casella, QWidget* prossima);
    void Cmdspoglio_Click();
    void Cmdvincenti_Click();
    void Cmdvincentilotto_Click();
    void Command1_Click();
    void ordina(QPushButton* pulsante, int colonna);

    [[nodiscard]] RichiestaSpoglio richiesta() const;
    [[nodiscard]] platform::Err apri_tabelle();
    [[nodiscard]] bool conta(std::span<QLineEdit* const> caselle);
    void colora(std::span<QLineEdit* const> caselle);
    void mostra_totali();
    void mostra_totali_lotto();
    void elenca();
    void costruisci_elenco(void (frmspoglio::*dettaglio)());
    /// Grows the progress bar; false when the form was asked to close.
    bool avanza(std::int32_t fatte, std::int32_t tutte);
    void ridai_fuoco(QWidget* prima);

    app::Finestra& finestra_;
    const crossword::Gioco gioco_;
    std::vector<std::string> voci_;
    Spoglio spoglio_;
    Dettaglio dettaglio_;
    std::unique_ptr<Elenco> elenco_;
    bool occupato_ = false;
    bool chiusura_chiesta_ = false;
    QLineEdit* entrata_ = nullptr;
};

}  // namespace check
