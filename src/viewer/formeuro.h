// Price of a single column.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

namespace app {
class Finestra;
}

namespace viewer {

class formeuro : public QDialog {
    Q_OBJECT
public:
    explicit formeuro(app::Finestra& finestra);

    QLineEdit* Text1 = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* Command3 = nullptr;
    QPushButton* Command4 = nullptr;

protected:
    void showEvent(QShowEvent* evento) override;
    /// Drops the keys that are no part of a price.
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void mostra(const QString& prezzo);
    void Command2_Click();
    app::Finestra& finestra_;
};

}  // namespace viewer
