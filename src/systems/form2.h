// Manager of the saved systems.
#pragma once

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include "crossword/matrice.h"
#include "platform/qt/controls.h"
#include "platform/qt/desktop.h"
#include "platform/qt/listview.h"
#include "systems/operazioni.h"
#include "systems/passo.h"

namespace app {
class Finestra;
}

namespace systems {

class Form2 : public QDialog {
    Q_OBJECT
public:
    /// Loads the list of the game in force; `finestra` outlives the manager.
    explicit Form2(app::Finestra& finestra);

    /// The three modes; one of them is called once, before the form is shown.
    void modo_salva();
    void modo_apri();
    void modo_utility();

    /// Empties the list and fills it from a folder given with or without a final separator.
    void trova_sistemi(const QString& cartella);
    [[nodiscard]] std::int32_t numero_sistemi() const { return numero_sistemi_; }

    platform::ListView* ListView1 = nullptr;
    platform::TabStrip* TabStrip1 = nullptr;
    platform::Frame* Frame2 = nullptr;
    platform::Frame* PicUtility = nullptr;
    platform::Frame* pic_salva = nullptr;
    platform::Frame* picimporta = nullptr;
    platform::Frame* picduplica = nullptr;
    platform::Frame* frmduplica = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* Command5 = nullptr;
    QPushButton* cmdsalva = nullptr;
    QPushButton* cmdeffacer1 = nullptr;
    QPushButton* cmdimporta = nullptr;
    QPushButton* cmdannul = nullptr;
    QPushButton* cmddup_conferma = nullptr;
    QPushButton* cmddup_annulla = nullptr;
    QLineEdit* Text1 = nullptr;
    QLineEdit* txtduplica = nullptr;
    QLabel* lblavviso = nullptr;
    QMenu* mnuutlituy = nullptr;
    QAction* mnuduplica = nullptr;
    QAction* mnurinomina = nullptr;
    QAction* mnuinvia = nullptr;
    QAction* mnuimporta = nullptr;
    QAction* mnuelimina = nullptr;
    QAction* mnueliminatutti = nullptr;

protected:
    void showEvent(QShowEvent* evento) override;

private:
    void Form_Load();
    void crea_lista();
    void crea_apri();
    void crea_utility();
    void crea_salva();
    void crea_importa();
    void crea_duplica();
    void crea_menu();
    void collega();
    void mostra(platform::Frame* gruppo);

    void TabStrip1_Click(int Index);
    void ListView1_ColumnClick(int colonna);
    void ListView1_Click();
    void cmdsalva_Click();
    /// Says under the name, while it is so, that such a system would end in the trash.
    void Text1_Change();
    void Command5_Click();
    /// Hides, thaws and unloads the form.
    void esci_congelando();
    [[nodiscard]] bool sovrascrittura_negata(const QString& nome);

    // Operations of the pop-up menu.
    void collega_operazioni();
    void mnurinomina_Click();
    void ListView1_AfterLabelEdit(QTreeWidgetItem* voce, const QString& nuovo);
    void mnuduplica_Click();
    void cmddup_annulla_Click();
    void cmddup_conferma_Click();
    void mnuelimina_Click();
    void mnueliminatutti_Click();
    void mnuimporta_Click();
    void cmdimporta_Click();
    void mnuinvia_Click();
    [[nodiscard]] Coppia coppia(const QString& cartella, const QString& nome) const;
    [[nodiscard]] QString nome_scelto() const;
    /// Brings the panel and the notice of a copy to front, painted before the copy starts.
    void mostra_avviso();
    void mostra_avanti(platform::Frame* gruppo, QPushButton* predefinito);
    void nascondi_duplica();
    /// Tells at the foot of the main form what an operation came to.
    void racconta(Operazione operazione, const QString& nome, const Passi& passi,
                  const QString& dove = {});
    int chiedi(const QString& domanda);
    void avverti(const QString& testo, platform::Icona icona = platform::Icona::nessuna);

    app::Finestra& finestra_;
    QPushButton* predefinito_ = nullptr;
    std::int32_t numero_sistemi_ = 0;
    QStringList ordine_{QString(), QString(), QString()};
};

}  // namespace systems
