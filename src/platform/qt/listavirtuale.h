// Report list of very many rows: texts are asked for when they are shown.
#pragma once

#include <QTableView>

#include "platform/qt/fuoco.h"

namespace platform {

/// What such a list shows.
class Righe {
public:
    virtual ~Righe() = default;
    [[nodiscard]] virtual int quante() const = 0;
    [[nodiscard]] virtual QString testo(int riga, int colonna) const = 0;
};

/// Looks and acts as a `ListView` does, at eight bytes a row.
class ListaVirtuale : public ConFuocoVero<QTableView> {
    Q_OBJECT
public:
    /// `righe` is not owned and outlives the list.
    ListaVirtuale(const Righe& righe, QWidget* padre);
    ~ListaVirtuale() override;

    /// Adds a column; width in twips.
    void add_colonna(const QString& chiave, const QString& titolo, int twips, Qt::Alignment verso);
    [[nodiscard]] int colonne() const;
    [[nodiscard]] QString chiave(int colonna) const;
    [[nodiscard]] QString titolo(int colonna) const;
    [[nodiscard]] Qt::Alignment verso(int colonna) const;
    /// Width as it was assigned, in twips.
    [[nodiscard]] int larghezza(int colonna) const;

    /// Width of the whole list, in twips.
    void set_Width(int twips);
    [[nodiscard]] int Width() const { return twips_; }

    /// Rows as the list knows them, and the texts that it shows.
    [[nodiscard]] int righe() const;
    [[nodiscard]] QString testo(int riga, int colonna) const;

    /// Shows the rows as they are now, from the first one, none of them chosen.
    void aggiorna();

protected:
    bool event(QEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    class Modello;
    void misura_colonne();

    Modello* modello_;
    int twips_ = 0;
};

}  // namespace platform
