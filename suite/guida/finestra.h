// The window of the guide: contents, search, pages.
#pragma once

#include <QMainWindow>
#include <QPair>
#include <QStringList>
#include <QTextBrowser>
#include <QVector>

class QLabel;
class QLineEdit;
class QListWidget;
class QPagedPaintDevice;
class QPushButton;
class QStackedWidget;
class QTreeWidget;

namespace guida {

/// Shows pages with their pictures as sharp as the screen allows, in lines of a readable length.
class Foglio : public QTextBrowser {
    Q_OBJECT
public:
    explicit Foglio(QWidget* padre);
    QVariant loadResource(int tipo, const QUrl& nome) override;
    /// Letters larger or smaller by steps; 0 is the design's size.
    void ingrandisci(int passi);
    [[nodiscard]] int ingrandimento() const { return ingrandimento_; }

protected:
    void resizeEvent(QResizeEvent* evento) override;

private:
    /// Width that a picture has room for.
    [[nodiscard]] int posto_figure() const;
    void adatta_figure();

    int ingrandimento_ = 0;
    int posto_figure_ = 0;  ///< for which those in view were made
};

class Finestra : public QMainWindow {
    Q_OBJECT
public:
    /// Opens on the page of that name, or on the first one.
    explicit Finestra(const QString& pagina);

    void apri(const QString& pagina);
    /// Name of the page in view.
    [[nodiscard]] const QString& pagina() const { return pagina_; }
    /// Draws the page in view on paper.
    void stampa(QPagedPaintDevice& carta) const;

private:
    QWidget* crea_sinistra();
    QWidget* crea_destra();
    QPushButton* pulsante(const QString& nome, const QString& testo, const QString& aiuto);
    void crea_indice();
    void crea_scorciatoie();
    void mostra_pagina(const QUrl& url);
    void cerca();
    void chiudi_ricerca();
    void evidenzia(bool vai_al_primo);
    void vai_al_luogo(int passo);
    void chiedi_stampa();

    QLineEdit* ricerca_ = nullptr;
    QStackedWidget* pila_ = nullptr;
    QTreeWidget* indice_ = nullptr;
    QListWidget* trovate_ = nullptr;
    QLabel* esito_ = nullptr;
    Foglio* foglio_ = nullptr;
    QPushButton* indietro_ = nullptr;
    QPushButton* avanti_ = nullptr;
    QVector<QPair<int, int>> luoghi_;
    int luogo_ = -1;
    QString pagina_;
};

/// Style sheet of the pages.
QString stile_pagine();

}  // namespace guida
