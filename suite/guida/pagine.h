// The pages of the guide: their order, their texts, and what a search finds in them.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace guida {

/// A chapter of the contents with the names of its pages.
struct Capitolo {
    QString titolo;
    QStringList pagine;
};

/// The contents, in reading order.
const QVector<Capitolo>& capitoli();

/// Name of the first page.
QString prima_pagina();

/// Name of the page that `nome` asks for, case ignored; the first one when there is no such page.
QString pagina_o_prima(const QString& nome);

/// The suite's root: the folder that the command names, which may hold a link to the installed
/// program, when it has a file "open"; else that of the executable.
QString radice_suite(const QString& comando, const QString& cartella_eseguibile);

/// What the file "open" of the suite's root asks for: one quoted name; empty without the file.
QString nome_richiesto(const QString& radice);

/// Text of a page as it stands in the resources, tables filled in.
QString html(const QString& pagina);

/// Title of a page.
QString titolo(const QString& pagina);

/// A page that holds all words of a search.
struct Trovata {
    QString pagina;
    QString brano;  ///< the words around the first hit
    int quante = 0;
};

/// Letters as a search compares them: without case and accents, one for one.
QString piana(const QString& testo);

/// Words that a search is made of.
QStringList parole(const QString& cercato);

/// Places of the words in a text, in ascending order, as position and length.
QVector<QPair<int, int>> luoghi(const QString& testo, const QStringList& parole);

/// The pages that hold all words, those with a word in the title first, then by number of hits.
QVector<Trovata> cerca(const QString& cercato);

}  // namespace guida
