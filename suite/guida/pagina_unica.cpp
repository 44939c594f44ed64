// Writes the whole guide as one page for a browser, pictures included.
#include <QFile>
#include <QRegularExpression>

#include "finestra.h"
#include "pagine.h"
#include "platform/comando.h"

namespace {

QString corpo(const QString& pagina) {
    QString testo = guida::html(pagina);
    testo = testo.section("<body>", 1).section("</body>", 0, 0);
    // Chapters are headings of one page now, and links lead within it.
    testo.replace("<h1>", "<h1 id=\"" + pagina + "\">");
    testo.replace(QRegularExpression(R"(href="([a-z]+)\.html")"), R"(href="#\1")");
    static const QRegularExpression figura(R"re(src="(figure/[a-z0-9]+\.png)")re");
    for (auto i = figura.globalMatch(testo); i.hasNext();) {
        const QString nome = i.next().captured(1);
        QFile file(":/guida/" + nome);
        if (!file.open(QIODevice::ReadOnly)) continue;
        testo.replace("src=\"" + nome + "\"",
                      "src=\"data:image/png;base64," + file.readAll().toBase64() + "\"");
    }
    return testo;
}

QString pagina_unica() {
    QString testo =
        "<!DOCTYPE html>\n<html lang=\"it\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width\">\n"
        // A browser's window must not pass for the guide's, whose title begins with its name.
        "<title>Tabellino - guida</title>\n"
        "<style>\nbody { font-family: \"Liberation Sans\", Arial, sans-serif; color: #10203A; "
        "max-width: 780px; margin: 24px auto; padding: 0 16px; }\nimg { max-width: 100%; }\n" +
        guida::stile_pagine() + "</style>\n</head>\n<body>\n<ul>\n";
    QString pagine;
    for (const guida::Capitolo& capitolo : guida::capitoli()) {
        for (const QString& pagina : capitolo.pagine) {
            testo += "<li><a href=\"#" + pagina + "\">" + guida::titolo(pagina) + "</a></li>\n";
            pagine += corpo(pagina);
        }
    }
    return testo + "</ul>\n" + pagine + "</body>\n</html>\n";
}

}  // namespace

/// pagina_unica FILE
int main(int argc, char** argv) {
    const std::vector<std::string> parole = platform::parole(argc, argv);
    if (parole.size() != 1) return 2;
    QFile file(QString::fromStdString(parole[0]));
    const QByteArray testo = pagina_unica().toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(testo) == testo.size() ? 0 : 1;
}
