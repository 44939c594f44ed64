// The window that imports draws for players who type no commands.
#pragma once

#include <string>

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

namespace importazione {

class Finestra : public QDialog {
    Q_OBJECT
public:
    /// Works on `archivio`; asks for the draws of `gioco`, by its key in the archive, or of any.
    explicit Finestra(std::string archivio, const std::string& gioco = {});

    void importa_file(const QStringList& file);

    QLabel* lblstato = nullptr;
    QLabel* lbltrascina = nullptr;
    QPushButton* cmdscegli = nullptr;
    QPushButton* cmdchiudi = nullptr;
    QCheckBox* chksostituisci = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QPlainTextEdit* txtrapporto = nullptr;

protected:
    void dragEnterEvent(QDragEnterEvent* evento) override;
    void dragLeaveEvent(QDragLeaveEvent* evento) override;
    void dropEvent(QDropEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void reject() override;

private:
    void mostra_stato();
    void evidenzia(bool sopra);

    std::string archivio_;
};

}  // namespace importazione
