// The fixed-width letters of a printed page.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include <QFontMetricsF>
#include <QPointF>
#include <QRawFont>

class QPainter;

namespace platform {

/// Letters that need no shaping: those of a number, a caption, most names.
inline constexpr std::size_t lettere_semplici = 128;
[[nodiscard]] bool testo_semplice(std::string_view testo);

/// The font of one weight, measured once. Lengths are in ems.
class CarattereStampa {
public:
    explicit CarattereStampa(bool grassetto);
    [[nodiscard]] double larghezza(std::string_view testo) const;
    [[nodiscard]] double larghezza(char lettera) const;
    [[nodiscard]] double ascendente() const { return ascendente_; }
    /// Ascent and descent.
    [[nodiscard]] double altezza() const { return altezza_; }
    /// The font itself, in no size yet.
    [[nodiscard]] static QFont carattere(bool grassetto);

private:
    QFontMetricsF metrica_;
    double ascendente_ = 0;
    double altezza_ = 0;
    std::array<double, lettere_semplici> larghezze_{};
};

/// Text gathered in one font and drawn in one go: shaping each of a listing's numbers anew, and
/// beginning a text for it in the page, would take most of the job's time.
class Scrittura {
public:
    /// Takes a font of a size in dots; what was gathered must have been drawn.
    void cambia(const QFont& carattere);
    /// Adds a letter whose base line begins at `dove`, in dots.
    void aggiungi(char lettera, QPointF dove);
    /// Draws with the pen of `pittore` what was gathered.
    void disegna(QPainter& pittore);

private:
    QRawFont carattere_;
    std::array<quint32, lettere_semplici> glifi_{};
    std::vector<quint32> scelti_;
    std::vector<QPointF> posti_;
};

}  // namespace platform
