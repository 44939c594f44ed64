// Texts that are read out as they change.
#pragma once

#include "platform/qt/controls.h"

namespace platform {

/// Makes a label one of which assistive programs hear the texts without the focus on it; called
/// before anybody asks who speaks for it.
void rendi_annuncio(QLabel* riga);
/// Shows a text on such a label; one that is seen is read out, unless it stood there already.
/// False when it stood there or is not seen.
bool annuncia(QLabel* riga, const QString& testo);
/// Reads out more than such a label shows, or something else, once more too; it counts for the
/// label until its text changes.
void di(QLabel* riga, const QString& detto);

/// The same when a job has just shown its window's controls anew, of which readers are told one by
/// one: what comes among so many they drop. Not read out if the label has changed by then.
void di_a_cose_fatte(QLabel* riga, const QString& detto);

/// A value that is read out as it changes.
class Annuncio : public EtichettaValore {
    Q_OBJECT
public:
    explicit Annuncio(QWidget* padre);
    /// Shows a text; one that is seen is read out, unless it stood there already.
    void annuncia(const QString& testo);

Q_SIGNALS:
    /// A text was told to those who do not see the window.
    void detto(const QString& testo);
};

}  // namespace platform
