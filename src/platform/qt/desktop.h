// The desktop: message boxes, pending events, pointer, frozen windows, the trash.
#pragma once

#include <functional>

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace platform {

/// Answers of a message box, with their classic values.
inline constexpr int vbOK = 1;
inline constexpr int vbCancel = 2;
inline constexpr int vbYes = 6;
inline constexpr int vbNo = 7;
/// That of the first of a box's own buttons; the others count on from it.
inline constexpr int vbAltri = 100;

enum class Pulsanti { ok, si_no, si_no_annulla };
enum class Icona { nessuna, informazione };

struct Messaggio {
    QString testo;
    Pulsanti pulsanti = Pulsanti::ok;
    QString titolo;
    Icona icona = Icona::nessuna;
    /// Captions of buttons of its own, before "OK"; the first is the default.
    QStringList altri = {};
    /// A question that is left without an answer, by Escape or the close box, counts as "Sì", where
    /// a "No" would take something away.
    bool lasciata_vale_si = false;
};

/// Shows a modal box over `padre` (may be null) and returns the answer. Every box of the program
/// goes through here.
int MsgBox(QWidget* padre, const Messaggio& messaggio);

/// Lets pending events run, when the last ones ended 15 ms ago or more, an idle wait included;
/// input waits, but for a closing during a `LavoroLungo`.
void DoEvents();

/// Pointer values: 0 is the default, 11 the hourglass.
void MousePointer(int valore);
int MousePointer();

/// While one lives the pointer is an hourglass. They nest: the last to go brings the default back.
class Clessidra {
public:
    Clessidra();
    ~Clessidra();
    Clessidra(const Clessidra&) = delete;
    Clessidra& operator=(const Clessidra&) = delete;
    /// The hourglass stays when this goes, until another one goes.
    void resta() { resta_ = true; }

private:
    int prima_;
    bool resta_ = false;
};

/// While one lives pending events do not paint `finestra`, which may go before it. They nest.
class FinestraFerma {
public:
    explicit FinestraFerma(QWidget* finestra);
    ~FinestraFerma();
    FinestraFerma(const FinestraFerma&) = delete;
    FinestraFerma& operator=(const FinestraFerma&) = delete;

private:
    QPointer<QWidget> finestra_;
};

/// While one lives, keys and mouse go nowhere, so that nothing re-enters a running job; painting
/// and the close box work on, and the control `ascoltato`, which may end the job. They nest.
class LavoroLungo {
public:
    explicit LavoroLungo(const QWidget* ascoltato = nullptr);
    ~LavoroLungo();
    LavoroLungo(const LavoroLungo&) = delete;
    LavoroLungo& operator=(const LavoroLungo&) = delete;
    static bool in_corso();

private:
    QPointer<const QWidget> ascoltato_prima_;
};

/// True when the desktop knows no program for documents of the type `mime`.
bool nessuno_apre(const QString& mime);
/// Shows a file or an address in the program that the desktop keeps for it; false when there is
/// none.
bool apri_documento(const QString& documento);

/// Shows a box with an OK button and others; returns the answer, vbAltri and on for the others.
using Dice = std::function<int(const QString& testo, const QStringList& altri)>;
/// Says `testo`, which tells of a document just written, and opens it or its folder where that is
/// chosen; where no program does, says that too.
void offri_documento(const QString& testo, const QString& file, const QString& mime,
                     const Dice& dice);

/// Moves a file to the desktop's trash; false when it could not, and then it stays.
bool cestina(const QString& nome);

/// Centres `finestra` over `sotto`, by their outer corners and their inner sizes.
void centra(QWidget* finestra, const QWidget* sotto);
/// Moves a window that reaches beyond its screen back into it, as far as it fits.
void tieni_sullo_schermo(QWidget* finestra);

/// Shows a window that was hidden, where it stood.
void mostra_di_nuovo(QWidget* finestra);

/// Pixels of a length in twips (15 to the pixel).
constexpr int px(int twips) {
    return (twips * 2 + 15) / 30;
}

/// Text between the logic's UTF-8 and the screen. Bytes that are no UTF-8, as a name on an old
/// disk may have, and control bytes but tabulators and line ends come back as they went, through
/// characters that show as unknown ones.
QString q(const std::string& testo);
std::string s(const QString& testo);

}  // namespace platform
