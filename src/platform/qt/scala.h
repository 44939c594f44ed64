// Windows of any size: what is told at 100 % is shown at every other.
#pragma once

#include <initializer_list>
#include <optional>

#include <QEvent>
#include <QFont>
#include <QHash>
#include <QLayout>
#include <QMargins>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QTimer>

#include "platform/ricordi.h"

class QProcessEnvironment;
class QWidget;

namespace platform {

/// Factor at which the window of a control shows what it holds; 1 where nobody scales it.
qreal scala(const QWidget* controllo);
/// A length at 100 % as it is shown.
int scalato(int lunghezza, qreal fattore);
/// A font at 100 % as it is shown on `dove`; at 1 itself.
QFont scalato(const QFont& carattere, qreal fattore, const QWidget* dove);
/// Place and size of a control at 100 %, whatever they are now.
QRect posto_a_100(const QWidget* controllo);
/// Size at 100 % for which what stands in a control is placed: its own, unless it was put
/// elsewhere.
QSize dentro_a_100(const QWidget* controllo);
/// Size of a window at 100 %: fixed, or the one that its scale goes out from.
void misura_a_100(QWidget* finestra, QSize misura);

/// Environment of a program that is opened from the window `da`, so that its own open at the
/// same factor.
QProcessEnvironment ambiente_scalato(const QWidget* da);

/// The size at which a window of the size `a_100` opens the first time where `libero` is free:
/// `fattore`, or the largest that fits, at least 60 %.
qreal fattore_iniziale(QSize a_100, QSize libero, qreal fattore);

/// Scales a window as its edge, Ctrl with plus, minus, 0 or the wheel ask it, and keeps where the
/// player left it. Controls with fixed places grow with the window; those that layouts place have
/// the room of the window and the scale of the keys. It belongs to the window, and takes
/// what stands in it when it is made for 100 %; what the program writes later is 100 % too.
class Scala : public QObject {
    Q_OBJECT
public:
    explicit Scala(QWidget* finestra);
    ~Scala() override;

    /// That of the window of a control, null when it has none.
    static Scala* di(const QWidget* controllo);
    /// Sent to each control after the scale changed.
    static QEvent::Type cambiata();
    /// A control with this property true sees to its own place, font and scale.
    static constexpr const char* da_se = "scala_da_se";
    /// A control with this property true takes Ctrl with the wheel for what it shows.
    static constexpr const char* rotella_sua = "scala_rotella_sua";
    /// How a control follows what its parent has beyond its scaled size: a sum of these. Without
    /// any for a direction it stays in the middle of a window, and in the corner of a frame.
    static constexpr const char* ancora = "scala_ancora";
    enum Ancora {
        segue_destra = 1,
        allarga = 2,
        segue_fondo = 4,
        alza = 8,
        sta_in_alto = 16,
        sta_a_sinistra = 32,
        in_proporzione = 64  ///< place and width grow as the parent's width does
    };

    [[nodiscard]] qreal fattore() const { return fattore_; }
    /// What the window has beyond its scaled size, at 100 %.
    [[nodiscard]] QSize resto() const;
    /// Size of the window at 100 %. The first one also brings back what the player left.
    void misura(QSize a_100);
    /// Puts a control elsewhere, at 100 %; what it holds follows as if its edge had been moved.
    void colloca(QWidget* controllo, QRect a_100, int come);
    /// Gives the window the size for a factor, as far as the screen has room.
    void porta_a(qreal fattore);
    void ingrandisci(bool piu);
    /// Puts the window where the player left it; false when it was left where it opened.
    bool rimetti();
    /// Takes note of where the program puts the window: elsewhere it is where the player put it.
    void messa(QPoint dove) { messa_ = dove; }

Q_SIGNALS:
    /// The controls are about to take their places.
    void dispone();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    struct Posto {
        QPointer<QWidget> controllo;
        QRect base;
        QSize dentro;  ///< see `dentro_a_100`; none unless it was put elsewhere
        QRect scritto;
        int come = 0;  ///< how it follows: a sum of `Ancora`
        QFont carattere;
        qreal punti_scritti = 0;  ///< size of the font that was written last; 0 after none
        bool proprio = false;     ///< the font is the control's own, not its window's
        bool assoluto = false;    ///< no layout places it
        // In a window that layouts fill: what bounds the control, and the cells of a table.
        QSize minima;
        QSize massima;
        QSize minima_scritta;
        QSize massima_scritta;
        QSize cella;
    };
    struct Spazi {
        QPointer<QLayout> chi;
        QMargins margini;
        int spazio = 0;
    };

    /// What the sheet of a scaled window is made of.
    struct Fonte {
        qreal fattore = 0;
        QString suo;
        QString generale;
        QString skin;
        bool operator==(const Fonte&) const = default;
    };

    void ascolta_tasti();
    void raccogli(QWidget* contenitore);
    void registra(QWidget* controllo);
    void accogli(Posto& posto);
    void prendi_fattore(QSize ora);
    void trascina();
    void adegua();
    void disponi();
    void disponi_uno(Posto& posto);
    void scrivi_caratteri();
    static void scrivi_carattere(Posto& posto, qreal fattore);
    void scrivi_limiti(Posto& posto, qreal prima);
    void raccogli_spazi();
    void scrivi_spazi();
    void rifai_disposizione();
    void vesti();
    void rivesti();
    void ricorda();
    [[nodiscard]] QWidget* area() const;
    [[nodiscard]] QSize libero() const;
    [[nodiscard]] QSize ingombro() const;
    [[nodiscard]] std::string nome() const;
    [[nodiscard]] const Posto* posto(const QWidget* controllo) const;
    friend QRect posto_a_100(const QWidget* controllo);
    friend QSize dentro_a_100(const QWidget* controllo);

    QWidget* finestra_;
    QSize base_;
    QSize base_area_;
    QSize base_minima_;
    QSize ingombro_;
    bool con_disposizione_;  ///< layouts fill it, and its edge gives them room, no other scale
    qreal voluto_ = 1;
    qreal offerto_ = 1;  ///< what the window opened at when nobody had chosen
    qreal fattore_ = 1;
    qreal disposto_ = 1;  ///< the factor for which all has its place
    QString foglio_;
    QString foglio_scritto_;
    Fonte fonte_;
    QHash<const QWidget*, qsizetype> indici_;
    QList<Posto> posti_;
    QList<Spazi> spazi_;
    std::optional<Ricordo> ricordo_;
    QSize offerta_;
    QPoint messa_;
    QTimer riposo_;           ///< runs while the edge is dragged
    bool dal_bordo_ = false;  ///< the desktop gives the window its size, not the program
    bool misurata_ = false;
    bool in_corso_ = false;
};

/// Says how controls follow what room is left, before their window is made scalable.
void ancora(std::initializer_list<QWidget*> controlli, int come);
/// Lets the player change the size of a window, whose controls stand as they shall at 100 %.
Scala* rendi_scalabile(QWidget* finestra);
/// Gives a box that layouts place the letters that the window `come` has now.
void caratteri_come(QWidget* riquadro, const QWidget* come);

}  // namespace platform
