#include "pagine.h"

#include <algorithm>

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QTextDocument>

#include "platform/text_file.h"

/// A static library's resources are linked in only when somebody asks for them; the macro works
/// in the global namespace alone.
static void carica_risorse() {
    Q_INIT_RESOURCE(guida);
}

namespace guida {

namespace {

constexpr int brano_prima = 40;
constexpr int brano_dopo = 90;

QString leggi(const QString& nome) {
    carica_risorse();
    QFile file(":/guida/" + nome);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll());
}

/// Plain text of a page, made once.
const QString& testo_piano(const QString& pagina) {
    static QHash<QString, QString> testi;
    auto posto = testi.find(pagina);
    if (posto == testi.end()) {
        QTextDocument documento;
        documento.setHtml(html(pagina));
        QString testo = documento.toPlainText();
        testo.replace(QChar::ObjectReplacementCharacter, u' ');
        posto = testi.insert(pagina, testo);
    }
    return *posto;
}

QString brano(const QString& testo, const QPair<int, int>& luogo) {
    const int da = std::max(0, luogo.first - brano_prima);
    const int a = std::min(static_cast<int>(testo.size()), luogo.first + brano_dopo);
    QString pezzo = testo.mid(da, a - da).simplified();
    if (da > 0) pezzo = "…" + pezzo.mid(pezzo.indexOf(' ') + 1);
    if (a < testo.size()) pezzo = pezzo.left(pezzo.lastIndexOf(' ')) + "…";
    return pezzo;
}

}  // namespace

const QVector<Capitolo>& capitoli() {
    static const QVector<Capitolo> tutti = {
        {"Per cominciare", {"inizio", "cruciverba", "disporre"}},
        {"Il sistema", {"tipi", "garanzie", "economiche", "elaborazione", "ripetizioni", "prezzi"}},
        {"Usare il sistema",
         {"visualizzatore", "spoglio", "analisi", "migliora", "stampa", "schedine", "libreria"}},
        {"Le estrazioni", {"archivio", "statistica"}},
        {"Il programma",
         {"file", "aspetti", "tastiera", "terminale", "domande", "misura", "licenze"}},
    };
    return tutti;
}

QString prima_pagina() {
    return capitoli().first().pagine.first();
}

QString pagina_o_prima(const QString& nome) {
    for (const Capitolo& capitolo : capitoli()) {
        for (const QString& pagina : capitolo.pagine) {
            if (pagina.compare(nome.trimmed(), Qt::CaseInsensitive) == 0) return pagina;
        }
    }
    return prima_pagina();
}

QString radice_suite(const QString& comando, const QString& cartella_eseguibile) {
    const QString cartella = QFileInfo(comando).absolutePath();
    const bool nominata = comando.contains('/') && QFileInfo(cartella + "/open").isFile();
    return nominata ? cartella : cartella_eseguibile;
}

QString nome_richiesto(const QString& radice) {
    platform::TextReader file((radice + "/open").toStdString());
    std::string nome;
    if (!file.campo(nome)) return {};
    return QString::fromStdString(nome);
}

QString html(const QString& pagina) {
    QString testo = leggi(pagina + ".html");
    testo.replace("<!--tavola delle garanzie-->", leggi("tavola_garanzie.html"));
    return testo;
}

QString titolo(const QString& pagina) {
    const QString testo = leggi(pagina + ".html");
    const qsizetype da = testo.indexOf("<title>") + 7;
    return testo.mid(da, testo.indexOf("</title>") - da);
}

QString piana(const QString& testo) {
    QString esito = testo;
    for (QChar& lettera : esito) {
        const QString parti = lettera.decomposition();
        if (!parti.isEmpty() && parti.front().isLetter()) lettera = parti.front();
        lettera = lettera.toLower();
    }
    // The typographic apostrophe is typed as the plain one.
    return esito.replace(QChar(0x2019), u'\'');
}

QStringList parole(const QString& cercato) {
    QStringList esito = piana(cercato).simplified().split(' ', Qt::SkipEmptyParts);
    esito.removeDuplicates();
    return esito;
}

QVector<QPair<int, int>> luoghi(const QString& testo, const QStringList& parole) {
    const QString dove = piana(testo);
    QVector<QPair<int, int>> esito;
    for (const QString& parola : parole) {
        for (qsizetype i = dove.indexOf(parola); i >= 0;
             i = dove.indexOf(parola, i + parola.size())) {
            esito.append({static_cast<int>(i), static_cast<int>(parola.size())});
        }
    }
    std::sort(esito.begin(), esito.end());
    return esito;
}

QVector<Trovata> cerca(const QString& cercato) {
    const QStringList cercate = parole(cercato);
    if (cercate.isEmpty()) return {};
    QVector<Trovata> esito;
    QHash<QString, int> nel_titolo;
    for (const Capitolo& capitolo : capitoli()) {
        for (const QString& pagina : capitolo.pagine) {
            const QString& testo = testo_piano(pagina);
            const QString dove = piana(testo);
            const bool tutte =
                std::all_of(cercate.begin(), cercate.end(),
                            [&dove](const QString& parola) { return dove.contains(parola); });
            if (!tutte) continue;
            const auto posti = luoghi(testo, cercate);
            esito.append({pagina, brano(testo, posti.first()), static_cast<int>(posti.size())});
            nel_titolo[pagina] = static_cast<int>(luoghi(titolo(pagina), cercate).size());
        }
    }
    std::stable_sort(esito.begin(), esito.end(), [&](const Trovata& a, const Trovata& b) {
        const int ta = nel_titolo[a.pagina];
        const int tb = nel_titolo[b.pagina];
        return ta != tb ? ta > tb : a.quante > b.quante;
    });
    return esito;
}

}  // namespace guida
