// What the viewer can do besides paging: go to a page, search, export.
#pragma once

#include <QLineEdit>
#include <QPushButton>

namespace viewer {

class Form3;
struct Esportazione;

class Strumenti : public QObject {
    Q_OBJECT
public:
    /// Puts its buttons into the row of the page numbers of `visore`, whose controls stand already
    /// and which outlives this.
    explicit Strumenti(Form3& visore);

    /// Opens the box for a page over the number of the page.
    void vai();
    void cerca();
    void esporta();
    [[nodiscard]] bool al_lavoro() const { return al_lavoro_; }
    /// The job ends at its next pending-events point.
    void ferma() { fermato_ = true; }

    QPushButton* cmdvai = nullptr;
    QPushButton* cmdcerca = nullptr;
    QPushButton* cmdesporta = nullptr;
    QLineEdit* txtpagina = nullptr;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void chiudi_casella(bool vai);
    /// Tells what an export came to.
    void racconta(const Esportazione& fatta, const QString& file);

    Form3& visore_;
    bool al_lavoro_ = false;
    bool fermato_ = false;
};

}  // namespace viewer
