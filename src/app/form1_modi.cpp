// The two games on one screen: switching, resetting, the lists of sizes.
#include "app/dialoghi.h"
#include "app/form1.h"
#include "platform/application.h"
#include "platform/desktop.h"
#include "platform/disk.h"

namespace app {

using platform::App;
using platform::DoEvents;
using platform::LockWindowUpdate;
using platform::MousePointer;
using platform::MsgBox;
using platform::Pulsanti;

void Form1::Image8_Click() {
    MousePointer(11);
    DoEvents();
    LockWindowUpdate(this);
    for (platform::Image* i : {Image7, Image10}) {
        i->show();
        i->raise();
    }
    Image9->hide();
    Image8->hide();
    setWindowTitle("Tabellino - SuperEnalotto");
    lotto = false;
    Frame10->hide();
    Frame8->hide();
    INIZIZLAIZZA_MATSIS();
    inizializza_superenalotto();
    salvato = true;
    nuovo_cruciverba();
    DoEvents();
    LockWindowUpdate(nullptr);
    MousePointer(0);
}

void Form1::Image10_Click() {
    MousePointer(11);
    DoEvents();
    LockWindowUpdate(this);
    for (platform::Image* i : {Image9, Image8}) {
        i->show();
        i->raise();
    }
    Image7->hide();
    Image10->hide();
    setWindowTitle("Tabellino - Lotto");
    Imageb_Click(2);
    Frame8->show();
    Frame8->raise();
    lotto = true;
    Frame10->show();
    INIZIZLAIZZA_MATSIS();
    inizializza_lotto();
    salvato = true;
    nuovo_cruciverba();
    DoEvents();
    LockWindowUpdate(nullptr);
    MousePointer(0);
}

void Form1::Imageb_Click(int Index) {
    // The development of the old form is void, even when the form does not change.
    if (!Tag().isEmpty()) platform::Kill(App().file(platform::s(Tag()) + ".lot"));
    rivedi_sviluppo();
    static const std::array<const char*, 3> titoli = {"Tabellino - Lotto (Sistemi in Terzine)",
                                                      "Tabellino - Lotto (Sistemi in Quartine)",
                                                      "Tabellino - Lotto (Sistemi in Cinquine)"};
    for (std::size_t i = 0; i < 3; ++i) {
        Imagey[i]->hide();
        Imageb[i]->show();
    }
    // A damaged system file can name a form that does not exist: then none is chosen.
    if (Index >= 0 && Index <= 2) {
        const auto scelta = static_cast<std::size_t>(Index);
        setWindowTitle(titoli[scelta]);
        platform::set_Tag(Frame9, QString::number(Index + 3));
        Imagey[scelta]->show();
        Imagey[scelta]->move(platform::px(105), Imagey[scelta]->y());
        Imageb[scelta]->hide();
    }
    INIZIZLAIZZA_MATSIS();
    cronologia_.dimentica_tipi();
    aggiorna_annulla();
    std::uint8_t quale = 2;
    carica_combo(gioco(), quale, static_cast<std::int16_t>(righe()));
    quale = 1;
    carica_combo(gioco(), quale, static_cast<std::int16_t>(colonne()));
    if (Combo1->Text() == Combo2->Text()) {
        quale = 3;
        carica_combo(gioco(), quale, static_cast<std::int16_t>(colonne()));
    }
}

void Form1::carica_dimensioni(int da) {
    Combo1->Clear();
    Combo2->Clear();
    for (int i = da; i <= 15; ++i) {
        Combo1->AddItem(QString::number(i));
        Combo2->AddItem(QString::number(i));
    }
    Combo1->set_Text(Combo1->itemText(0));
    Combo2->set_Text(Combo2->itemText(0));
}

void Form1::inizializza_lotto() {
    carica_dimensioni(5);
}

void Form1::inizializza_superenalotto() {
    LockWindowUpdate(this);
    carica_dimensioni(6);
    LockWindowUpdate(nullptr);
}

void Form1::nuovo_cruciverba() {
    if (salvato) {
        resetta();
        return;
    }
    const int risposta =
        MsgBox(this, {"Sono state apportate delle modifiche al sistema attualmente in linea.\n"
                      "Si desidera salvare ora il sistema?",
                      Pulsanti::si_no_annulla, "Tabellino"});
    if (risposta == platform::vbNo) resetta();
    if (risposta != platform::vbYes) return;
    bool completo = false;
    cruciverba_completo(completo);
    if (completo) {
        dialoghi_.gestore_salva(*this);
        resetta();
    } else {
        MsgBox(this, {"Per procedere al salvataggio del sistema occorre completare lo schema del "
                      "Cruciverba",
                      Pulsanti::ok, "Cruciverba"});
    }
}

void Form1::resetta() {
    matrice = crossword::Matrice();
    statistico.azzera();
    sistema_in_linea(QString());
    Combo1->set_ListIndex(0);
    Combo2->set_ListIndex(0);
    UpDown2->setValue(1);
    MSFlexGrid1->cella(0, 0);
    MSFlexGrid1->setFocus();
    salvato = true;
}

}  // namespace app
