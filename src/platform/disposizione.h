// Making a control, naming it and putting it in its place, in one step.
#pragma once

#include <QLabel>
#include <QPushButton>

#include "platform/controls.h"

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

inline QPushButton* pulsante(const QString& nome, const QString& testo, QRect dove,
                             QWidget* padre) {
    return posto(new QPushButton(testo, padre), nome, dove);
}

/// List whose accessible name says what it chooses.
inline ComboBox* elenco(const QString& nome, const QString& scopo, QRect dove, QWidget* padre) {
    ComboBox* c = posto(new ComboBox(padre), nome, dove);
    c->setAccessibleName(scopo);
    return c;
}

}  // namespace platform
