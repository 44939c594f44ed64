// Search for numbers in a development, beside the viewer that shows it.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/qt/listavirtuale.h"

namespace viewer {

class Form3;

/// Lists the combinations that hold the typed numbers; the one that is chosen is shown on its page.
/// `visore` is its parent.
class frmcerca : public QDialog {
    Q_OBJECT
public:
    explicit frmcerca(Form3& visore);
    ~frmcerca() override;

    QLineEdit* txtnumeri = nullptr;
    QLabel* lbltrovate = nullptr;
    platform::ListaVirtuale* elenco = nullptr;
    QPushButton* CmdEsci = nullptr;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    class Trovate;
    void cerca();
    void mostra_scelta();

    Form3& visore_;
    /// Read while nothing is searched.
    const QString invito_ =
        tr("Scrivete uno o più numeri, per esempio 7 21 33: compaiono le combinazioni che li hanno "
           "tutti.");
    std::unique_ptr<Trovate> trovate_;
};

}  // namespace viewer
