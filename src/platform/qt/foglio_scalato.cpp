#include "platform/qt/foglio_scalato.h"

#include <QRegularExpression>
#include <QSet>

namespace platform {

namespace {

bool e_misura(const QString& proprieta) {
    static const QSet<QString> note{"width",
                                    "height",
                                    "min-width",
                                    "min-height",
                                    "max-width",
                                    "max-height",
                                    "padding",
                                    "padding-top",
                                    "padding-right",
                                    "padding-bottom",
                                    "padding-left",
                                    "margin",
                                    "margin-top",
                                    "margin-right",
                                    "margin-bottom",
                                    "margin-left",
                                    "font-size",
                                    "spacing",
                                    "border-radius",
                                    "border-top-left-radius",
                                    "border-top-right-radius",
                                    "border-bottom-left-radius",
                                    "border-bottom-right-radius"};
    return note.contains(proprieta);
}

const QRegularExpression& pixel() {
    static const QRegularExpression misura(R"((\d+(?:\.\d+)?)px)");
    return misura;
}

/// The first length of a property of a rule; 0 without one.
int lunghezza(const QString& regola, const char* proprieta) {
    const QRegularExpression dichiarata(QString("(?:^|[;\\s])%1\\s*:([^;]*)").arg(proprieta));
    return pixel().match(dichiarata.match(regola).captured(1)).captured(1).toInt();
}

QString scalata(const QString& valore, qreal fattore) {
    QString esito;
    qsizetype da = 0;
    for (auto trovati = pixel().globalMatch(valore); trovati.hasNext();) {
        const QRegularExpressionMatch uno = trovati.next();
        const double lungo = uno.captured(1).toDouble();
        esito += valore.mid(da, uno.capturedStart() - da);
        esito += QString::number(lungo > 0 ? qMax(1, qRound(lungo * fattore)) : 0) + "px";
        da = uno.capturedEnd();
    }
    return esito + valore.mid(da);
}

}  // namespace

QString misure_scalate(const QString& foglio, qreal fattore) {
    static const QRegularExpression commento("/\\*.*?\\*/",
                                             QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression regola("([^{}]+)\\{([^{}]*)\\}");
    QString testo = foglio;
    testo.remove(commento);
    QString esito;
    for (auto regole = regola.globalMatch(testo); regole.hasNext();) {
        const QRegularExpressionMatch una = regole.next();
        const QString corpo = una.captured(2);
        // Lines keep their width, so that a circle's radius would outgrow it, and be none at all.
        const int largo = qRound(lunghezza(corpo, "width") * fattore);
        const int tondo = largo > 0 ? largo / 2 + lunghezza(corpo, "border") : 0;
        QString misure;
        for (const QString& dichiarazione : corpo.split(';', Qt::SkipEmptyParts)) {
            const qsizetype punti = dichiarazione.indexOf(':');
            const QString proprieta = dichiarazione.left(punti).trimmed();
            if (punti < 0 || !e_misura(proprieta)) continue;
            QString valore = scalata(dichiarazione.mid(punti + 1).trimmed(), fattore);
            if (tondo > 0 && proprieta == "border-radius") {
                valore = QString::number(
                             qMin(tondo, lunghezza(proprieta + ':' + valore, "border-radius"))) +
                         "px";
            }
            misure += proprieta + ':' + valore + ';';
        }
        if (!misure.isEmpty()) esito += una.captured(1).trimmed() + " {" + misure + "}\n";
    }
    return esito;
}

}  // namespace platform
