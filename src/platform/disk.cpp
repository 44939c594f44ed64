#include "platform/disk.h"

#include <algorithm>
#include <ctime>

#include "platform/codepage.h"
#include "platform/lavoro.h"
#include "platform/macchina.h"
#include "platform/runtime.h"

namespace platform {

using macchina::Guasto;
using macchina::Voce;

namespace {

/// Position after the UTF-8 character at `i`.
std::size_t dopo_carattere(std::string_view s, std::size_t i) {
    ++i;
    while (i < s.size() && (static_cast<unsigned char>(s[i]) & 0xC0) == 0x80) ++i;
    return i;
}

bool stato(const std::string& nome, Voce& voce) {
    return macchina::guarda(nome_su_disco(nome), voce) == Guasto::nessuno;
}

/// Entry of `cartella` whose name equals `nome` but for case; empty when there is none.
std::string voce_senza_caso(const std::string& cartella, std::string_view nome) {
    const std::string cercato = LCase(nome);
    std::string trovato;
    for (const std::string& voce : macchina::voci(cartella)) {
        if (LCase(voce) == cercato && (trovato.empty() || trovato > voce)) trovato = voce;
    }
    return trovato;
}

/// True when nothing but a plain file, or nothing at all, stands at `nome`, links not followed.
/// A device, pipe or link there must neither be written nor be waited for.
bool libero_o_file(const std::string& nome) {
    Voce voce;
    return macchina::guarda_il_nome(nome, voce) != Guasto::nessuno || voce.file();
}

/// Appends what is left of `sorgente` to `copia`.
Esito travasa(File& sorgente, File& copia) {
    std::string blocco(std::size_t{1} << 18, '\0');
    for (;;) {
        const std::ptrdiff_t n = sorgente.leggi(blocco.data(), blocco.size());
        if (n < 0) return esito_di(sorgente.guasto());
        if (n == 0) return Esito::ok;
        if (!copia.scrivi(std::string_view(blocco).substr(0, static_cast<std::size_t>(n))))
            return esito_di(copia.guasto());
    }
}

/// Outcome of a step of an open file.
Esito dopo(const File& file, bool riuscito) {
    return riuscito ? Esito::ok : esito_di(file.guasto());
}

/// Syncs a file that must be of that size.
Esito fissa(File& file, std::int64_t dimensione) {
    if (!file.sincronizza()) return esito_di(file.guasto());
    Voce voce;
    // A full disk can pass unnoticed through write and sync; the size cannot lie.
    return file.guarda(voce) && voce.byte == dimensione ? Esito::ok : Esito::disco_pieno;
}

constexpr const char* attributo_parola = "user.tabellino.parola";

/// Gives a file another case of its own name, by way of a third name where the disk takes both
/// for one: a name that is listed, should the second step never come.
Guasto rinomina_nel_caso(const std::string& da, const std::string& a) {
    const Guasto guasto = macchina::rinomina_senza_coprire(da, a);
    if (guasto != Guasto::esiste) return guasto;
    const std::size_t punto = a.rfind('.');
    const std::size_t dove = punto == std::string::npos || punto < a.rfind('/') ? a.size() : punto;
    const std::string terzo = a.substr(0, dove) + "-" + a.substr(dove);
    const Guasto primo = macchina::rinomina_senza_coprire(da, terzo);
    if (primo != Guasto::nessuno) return primo;
    const Guasto secondo = macchina::rinomina_senza_coprire(terzo, a);
    if (secondo != Guasto::nessuno) macchina::rinomina_senza_coprire(terzo, da);
    return secondo;
}

}  // namespace

std::string cartella_di(const std::string& nome) {
    const std::size_t barra = nome.rfind('/');
    if (barra == std::string::npos) return ".";
    return barra == 0 ? "/" : nome.substr(0, barra);
}

std::string nome_su_disco(const std::string& nome) {
    // The system would cut the name at a null and hit another file.
    if (nome.find('\0') != std::string::npos) return "";
    if (nome.empty() || !macchina::nome_possibile(nome) || macchina::c_e(nome)) return nome;
    if (nome.back() == '/') {
        const std::size_t fine = nome.find_last_not_of('/');
        return fine == std::string::npos ? nome : nome_su_disco(nome.substr(0, fine + 1)) + "/";
    }
    const std::size_t barra = nome.rfind('/');
    const std::string ultimo = barra == std::string::npos ? nome : nome.substr(barra + 1);
    const std::string cartella =
        barra == std::string::npos ? "." : nome_su_disco(cartella_di(nome));
    const std::string voce = voce_senza_caso(cartella, ultimo);
    const std::string finale = voce.empty() ? ultimo : voce;
    if (barra == std::string::npos) return finale;
    return cartella.back() == '/' ? cartella + finale : cartella + "/" + finale;
}

std::string da_mostrare(std::string nome) {
    std::replace(nome.begin(), nome.end(), '/', macchina::barra());
    return mostrabile(nome);
}

bool esiste_file(const std::string& nome) {
    Voce voce;
    return stato(nome, voce) && voce.file();
}

bool esiste_cartella(const std::string& nome) {
    Voce voce;
    return stato(nome, voce) && voce.cartella();
}

bool cartella_scrivibile(const std::string& nome) {
    return esiste_cartella(nome) && macchina::scrivibile(nome_su_disco(nome));
}

bool crea_cartella(const std::string& nome) {
    if (esiste_cartella(nome)) return true;
    if (nome.empty() || !macchina::nome_possibile(nome)) return false;
    const std::string sopra = cartella_di(nome);
    if (sopra != nome && sopra != "." && !crea_cartella(sopra)) return false;
    macchina::crea_cartella(nome_su_disco(nome));
    return esiste_cartella(nome);
}

std::optional<std::int64_t> dimensione_file(const std::string& nome) {
    Voce voce;
    if (!stato(nome, voce) || !voce.file()) return std::nullopt;
    return voce.byte;
}

std::optional<std::int64_t> data_creazione(const std::string& nome) {
    return macchina::nascita(nome_su_disco(nome));
}

std::string testo_data_ora(std::int64_t secondi) {
    const auto parti = macchina::ora_locale(secondi);
    char testo[32] = "";
    if (!parti) return "";
    return std::string(testo, std::strftime(testo, sizeof testo, "%d/%m/%y %H.%M.%S", &*parti));
}

bool corrisponde(std::string_view nome, std::string_view modello) {
    return Like(LCase(nome), LCase(modello));
}

bool Like(std::string_view n, std::string_view m) {
    std::size_t i = 0;
    std::size_t j = 0;
    std::size_t stella = std::string::npos;
    std::size_t ripresa = 0;
    while (i < n.size()) {
        if (j < m.size() && m[j] == '?') {
            i = dopo_carattere(n, i);
            ++j;
        } else if (j < m.size() && m[j] != '*' && m[j] == n[i]) {
            ++i;
            ++j;
        } else if (j < m.size() && m[j] == '*') {
            stella = j++;
            ripresa = i;
        } else if (stella != std::string::npos) {
            j = stella + 1;
            i = ripresa = dopo_carattere(n, ripresa);
        } else {
            return false;
        }
    }
    while (j < m.size() && m[j] == '*') ++j;
    return j == m.size();
}

std::vector<std::string> Dir(const std::string& cartella, std::string_view modello) {
    std::vector<std::string> nomi;
    const std::string reale = nome_su_disco(cartella.empty() ? "." : cartella);
    for (std::string& nome : macchina::voci(reale)) {
        Voce voce;
        if (corrisponde(nome, modello) &&
            macchina::guarda(reale + "/" + nome, voce) == Guasto::nessuno && voce.file()) {
            nomi.push_back(std::move(nome));
        }
    }
    std::sort(nomi.begin(), nomi.end(), [](const std::string& a, const std::string& b) {
        const std::string x = LCase(a);
        const std::string y = LCase(b);
        return x != y ? x < y : a < b;
    });
    return nomi;
}

Esito Kill(const std::string& nome) {
    Voce voce;
    const std::string reale = nome_su_disco(nome);
    if (const Guasto guasto = macchina::guarda_il_nome(reale, voce); guasto != Guasto::nessuno)
        return esito_di(guasto);
    return voce.collegamento_o_file() ? esito_di(macchina::togli(reale)) : Esito::errore;
}

Esito Name(const std::string& vecchio, const std::string& nuovo) {
    const std::string da = nome_su_disco(vecchio);
    const std::string a = nome_su_disco(nuovo);
    Voce sua;
    Voce altra;
    if (const Guasto guasto = macchina::guarda_il_nome(da, sua); guasto != Guasto::nessuno)
        return esito_di(guasto);
    if (!sua.collegamento_o_file()) return Esito::errore;
    // The same file under another case takes the new case; any other file in the way stays.
    const bool c_e = macchina::guarda_il_nome(a, altra) == Guasto::nessuno;
    const bool stesso = c_e && sua.stesso(altra) && LCase(da) == LCase(a);
    if (c_e && !stesso) return Esito::errore;
    const std::string arrivo =
        stesso ? cartella_di(a) + "/" + nuovo.substr(nuovo.rfind('/') + 1) : a;
    if (arrivo == da) return Esito::ok;
    return esito_di(stesso ? rinomina_nel_caso(da, arrivo)
                           : macchina::rinomina_senza_coprire(da, arrivo));
}

Esito copia_in(const std::string& origine, Lavoro& lavoro, std::int64_t& dimensione,
               std::string_view parola) {
    if (lavoro.esito() != Esito::ok) return lavoro.esito();
    const std::string da = nome_su_disco(origine);
    Voce voce;
    if (const Guasto guasto = macchina::guarda(da, voce); guasto != Guasto::nessuno)
        return esito_di(guasto);
    if (!voce.file()) return Esito::errore;
    File sorgente(da, File::Modo::leggi);
    // The size of what is open: another program may have put a new file in its place.
    if (!sorgente.aperto() || !sorgente.guarda(voce)) return esito_di(sorgente.guasto());
    dimensione = voce.byte;
    Esito esito = travasa(sorgente, lavoro.file());
    // Of what was copied: by its name it would be that of a file put there meanwhile.
    const std::string sua = sorgente.attributo(attributo_parola);
    if (!sua.empty() || !parola.empty())
        lavoro.file().annota(attributo_parola, sua.empty() ? parola : sua);
    if (esito == Esito::ok) esito = fissa(lavoro.file(), dimensione);
    return concludi(lavoro.file(), esito);
}

Esito FileCopy(const std::string& vecchio, const std::string& nuovo, Meta meta,
               std::string_view parola) {
    const std::string da = nome_su_disco(vecchio);
    const std::string a = nome_su_disco(nuovo);
    Voce sua;
    Voce altra;
    if (const Guasto guasto = macchina::guarda(da, sua); guasto != Guasto::nessuno)
        return esito_di(guasto);
    if (!sua.file()) return Esito::errore;
    const bool nuova = macchina::guarda_il_nome(a, altra) != Guasto::nessuno;
    if (!nuova && sua.stesso(altra)) return Esito::ok;
    if (!nuova && !altra.file()) return Esito::errore;
    Lavoro lavoro(cartella_di(a));
    std::int64_t dimensione = 0;
    Esito esito = copia_in(da, lavoro, dimensione, parola);
    if (esito == Esito::ok) esito = lavoro.pubblica(a, dimensione);
    const bool resta = esito == Esito::disco_pieno && nuova && meta == Meta::resta;
    if (resta && !lavoro.nome().empty() &&
        macchina::rinomina_senza_coprire(lavoro.nome(), a) == Guasto::nessuno) {
        lavoro.lascia();
    }
    return esito;
}

Esito aggiungi(const std::string& nome, std::string_view dati) {
    const std::string reale = nome_su_disco(nome);
    if (!libero_o_file(reale)) return Esito::errore;
    File file(reale, File::Modo::aggiungi);
    Voce voce;
    if (!file.aperto() || !file.guarda(voce)) return esito_di(file.guasto());
    const Esito esito = dopo(file, file.scrivi(dati));
    // Half an append would leave a torn line for the next one to join.
    if (esito != Esito::ok && !file.tronca(voce.byte)) return esito;
    return concludi(file, esito);
}

Esito scrivi(const std::string& nome, std::string_view dati) {
    const std::string reale = nome_su_disco(nome);
    Voce voce;
    if (macchina::guarda_il_nome(reale, voce) == Guasto::nessuno)
        return voce.file() ? sostituisci(nome, dati) : Esito::errore;
    File file(reale, File::Modo::nuovo);
    if (!file.aperto()) return esito_di(file.guasto());
    const Esito esito = concludi(file, dopo(file, file.scrivi(dati) && file.sincronizza()));
    if (esito != Esito::ok) macchina::togli(reale);
    return esito;
}

std::optional<std::string> leggi_tutto(const std::string& nome, std::int64_t limite) {
    Voce voce;
    const std::string reale = nome_su_disco(nome);
    if (macchina::guarda(reale, voce) != Guasto::nessuno || !voce.file()) return std::nullopt;
    File file(reale, File::Modo::leggi);
    if (!file.aperto() || !file.guarda(voce) || !voce.file() || voce.byte > limite)
        return std::nullopt;
    std::string dati(static_cast<std::size_t>(voce.byte), '\0');
    std::size_t letti = 0;
    while (letti < dati.size()) {
        const std::ptrdiff_t n = file.leggi(dati.data() + letti, dati.size() - letti);
        if (n < 0) return std::nullopt;
        if (n == 0) break;
        letti += static_cast<std::size_t>(n);
    }
    dati.resize(letti);
    return dati;
}

namespace {

/// Moves a finished file to a place on another disk.
Esito trasloca(const std::string& da, const std::string& a, std::int64_t dimensione,
               Creazione creazione) {
    Lavoro lavoro(cartella_di(a));
    std::int64_t copiati = 0;
    Esito esito = copia_in(da, lavoro, copiati);
    if (esito == Esito::ok && copiati != dimensione) esito = Esito::errore;
    if (esito == Esito::ok) esito = lavoro.pubblica(a, dimensione, creazione);
    if (esito == Esito::ok) macchina::togli(da);
    return esito;
}

}  // namespace

Esito pubblica(const std::string& lavoro, const std::string& nome, std::int64_t dimensione,
               Creazione creazione) {
    const std::string partenza = nome_su_disco(lavoro);
    const std::string arrivo = nome_su_disco(nome);
    Voce vecchio;
    Voce voce;
    const bool c_era = macchina::guarda_il_nome(arrivo, vecchio) == Guasto::nessuno;
    if (c_era && !vecchio.collegamento_o_file()) return Esito::errore;
    if (const Guasto guasto = macchina::guarda_il_nome(partenza, voce); guasto != Guasto::nessuno)
        return esito_di(guasto);
    if (!voce.file()) return Esito::errore;
    File file(partenza, File::Modo::leggi_se_file);
    if (!file.aperto()) return esito_di(file.guasto());
    if (c_era && vecchio.file()) {
        // Where the disk keeps no such date, it is that of the last replacement; where it keeps no
        // modes, there is none to lose.
        const auto vecchia = creazione == Creazione::resta ? data_creazione(arrivo) : std::nullopt;
        if (vecchia) file.nasce(*vecchia);
        file.permessi(vecchio.permessi);
    }
    const Esito esito = concludi(file, fissa(file, dimensione));
    if (esito != Esito::ok) return esito;
    const Guasto guasto = macchina::rinomina(partenza, arrivo);
    if (guasto == Guasto::altro_disco) return trasloca(partenza, arrivo, dimensione, creazione);
    if (guasto != Guasto::nessuno) return esito_di(guasto);
    macchina::sincronizza_cartella(cartella_di(arrivo));
    return Esito::ok;
}

std::string dietro_il_collegamento(const std::string& nome) {
    const std::string reale = nome_su_disco(nome);
    Voce voce;
    if (macchina::guarda_il_nome(reale, voce) != Guasto::nessuno || !voce.collegamento())
        return reale;
    const std::string vero = macchina::percorso_reale(reale);
    return vero.empty() ? reale : vero;
}

Esito sostituisci(const std::string& nome, std::string_view dati) {
    const std::string arrivo = dietro_il_collegamento(nome);
    Voce voce;
    if (macchina::guarda_il_nome(arrivo, voce) == Guasto::nessuno && !voce.collegamento_o_file())
        return Esito::errore;
    Lavoro lavoro(cartella_di(arrivo));
    if (lavoro.esito() != Esito::ok) return lavoro.esito();
    File& file = lavoro.file();
    const Esito esito = concludi(file, dopo(file, file.scrivi(dati)));
    return esito == Esito::ok ? lavoro.pubblica(arrivo, static_cast<std::int64_t>(dati.size()))
                              : esito;
}

std::string annotazione(const std::string& nome) {
    return macchina::attributo(nome_su_disco(nome), attributo_parola);
}

bool annota(const std::string& nome, std::string_view parola) {
    File file(nome_su_disco(nome), File::Modo::leggi_se_file);
    return file.aperto() && file.annota(attributo_parola, parola);
}

}  // namespace platform
