// Making a control, naming it and putting it in its place, in one step.
#pragma once

#include <initializer_list>

#include <QLabel>
#include <QPushButton>

#include "platform/qt/controls.h"

namespace platform {

/// Names a control and puts it in its place, in pixels at 100 %.
template <typename Controllo>
Controllo* posto(Controllo* controllo, const QString& nome, QRect dove) {
    controllo->setObjectName(nome);
    controllo->setGeometry(dove);
    return controllo;
}

inline QLabel* etichetta(const QString& testo, QRect dove, QWidget* padre,
                         Qt::Alignment verso = Qt::AlignLeft) {
    auto* e = new QLabel(testo, padre);
    e->setGeometry(dove);
    e->setAlignment(verso | Qt::AlignVCenter);
    return e;
}

/// Label that shows a value, whatever its characters.
inline QLabel* valore(const QString& nome, QRect dove, QWidget* padre,
                      Qt::Alignment verso = Qt::AlignLeft) {
    auto* e = posto(new EtichettaValore(padre), nome, dove);
    e->setAlignment(verso | Qt::AlignVCenter);
    e->setProperty("valore", true);
    e->setTextFormat(Qt::PlainText);
    return e;
}

inline Frame* riquadro(const QString& nome, const QString& didascalia, QRect dove, QWidget* padre) {
    return posto(new Frame(didascalia, padre), nome, dove);
}

/// A frame of a window: the control that it becomes, name, caption and place.
struct PostoRiquadro {
    Frame** riquadro;
    const char* nome;
    QString didascalia;
    QRect dove;
};

/// Lays out the frames of `padre`, a later one over an earlier one.
inline void disponi(std::initializer_list<PostoRiquadro> riquadri, QWidget* padre) {
    for (const PostoRiquadro& p : riquadri) {
        *p.riquadro = riquadro(p.nome, p.didascalia, p.dove, padre);
    }
}

/// Picture whose tooltip and accessible name say what a click does.
inline Image* immagine(const QString& nome, const QString& risorsa, QSize misura, QRect dove,
                       const QString& scopo, QWidget* padre) {
    Image* i = posto(new Image(risorsa, misura, padre), nome, dove);
    i->setToolTip(scopo);
    i->setAccessibleName(scopo);
    return i;
}

inline QPushButton* pulsante(const QString& nome, const QString& testo, QRect dove,
                             QWidget* padre) {
    return posto(new QPushButton(testo, padre), nome, dove);
}

/// Button that a layout places, and that no Enter elsewhere presses; `larghezza` is the least.
inline QPushButton* pulsante_in_fila(const QString& nome, const QString& testo, QWidget* padre,
                                     int larghezza = 0) {
    QPushButton* b = pulsante(nome, testo, {}, padre);
    b->setMinimumSize(larghezza, 28);
    b->setAutoDefault(false);
    return b;
}

/// Text that a layout places, whatever its characters; `proprieta`, if any, picks its look.
inline QLabel* scritta(const QString& testo, const char* proprieta, QWidget* padre) {
    auto* e = new QLabel(testo, padre);
    e->setTextFormat(Qt::PlainText);
    if (proprieta != nullptr) e->setProperty(proprieta, true);
    return e;
}

/// List whose accessible name says what it chooses.
inline ComboBox* elenco(const QString& nome, const QString& scopo, QRect dove, QWidget* padre) {
    ComboBox* c = posto(new ComboBox(padre), nome, dove);
    c->setAccessibleName(scopo);
    return c;
}

}  // namespace platform
