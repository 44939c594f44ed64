// Print options: every print job starts here.
#pragma once

#include <array>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "platform/controls.h"
#include "printing/mod_stampa.h"
#include "printing/prospetto.h"

namespace app {
class Form1;
}

namespace printing {

class frmstsvl : public QDialog {
    Q_OBJECT
public:
    explicit frmstsvl(app::Form1& form1);

    platform::Frame* Frame1 = nullptr;
    platform::Frame* Frame2 = nullptr;
    std::array<QRadioButton*, 3> Option1{};
    std::array<QFrame*, 3> Shape1{};
    QFrame* Shape2 = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* Command3 = nullptr;
    QPushButton* cmdstampa = nullptr;
    std::array<QLineEdit*, 2> txtdalla{};
    QFrame* Picture1 = nullptr;
    QFrame* Picture2 = nullptr;
    std::array<QLabel*, 2> Label1{};

protected:
    bool event(QEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void crea_opzioni();
    void crea_intervallo();
    void crea_pulsanti();
    void crea_invio();
    void ordine_tastiera();
    void centra();

    void Form_Load();
    void Command2_Click();
    void cmdstampa_Click();
    void txtdalla_Validate(int Index);

    /// Jobs; false leaves the form open.
    [[nodiscard]] bool prospetto();
    [[nodiscard]] bool sviluppo();
    [[nodiscard]] bool schedine();
    void non_stampabile();

    [[nodiscard]] QString nome() const;
    [[nodiscard]] bool manca_lo_sviluppo() const;
    [[nodiscard]] Testata testata() const;
    [[nodiscard]] Prospetto prospetto_a_schermo();
    [[nodiscard]] bool stampa_sviluppo(crossword::Gioco gioco);
    void messaggio(const QString& testo, const QString& titolo, bool informazione);

    app::Form1& form1_;
    bool in_messaggio_ = false;
    bool dal_messaggio_ = false;
};

}  // namespace printing
