#include "screens/common/look/Tavolozza.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace fenalto::screens {
namespace {

struct Coppia {
  QRgb chiaro;
  QRgb scuro;
};

QColor Di(const Coppia& coppia, Tono tono) {
  return QColor::fromRgb(tono == Tono::Chiaro ? coppia.chiaro : coppia.scuro);
}

Coppia CoppiaDi(Segno segno) {
  switch (segno) {
    case Segno::Accento:
      return {0x1f5f8b, 0x6cb4e8};
    case Segno::Scaduto:
      return {0xb3261e, 0xff8a80};
    case Segno::InScadenza:
      return {0x8a5200, 0xf0b45a};
    case Segno::Fatto:
      return {0x1e6b3a, 0x7dcf9a};
    case Segno::Sommesso:
      return {0x57606b, 0xa3adb8};
    case Segno::Filo:
      return {0x848d97, 0x737d88};
    case Segno::Divisione:
      break;
  }
  return {0xd3d8de, 0x3a414a};
}

double Luminanza(const QColor& colore) {
  const auto canale = [](double valore) {
    return valore <= 0.04045 ? valore / 12.92 : std::pow((valore + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * canale(colore.redF()) + 0.7152 * canale(colore.greenF()) +
         0.0722 * canale(colore.blueF());
}

}  // namespace

Tono TonoDi(const QPalette& tavolozza) {
  constexpr int kMezzo = 128;
  return tavolozza.color(QPalette::Base).lightness() < kMezzo ? Tono::Scuro : Tono::Chiaro;
}

QPalette Tavolozza(Tono tono) {
  struct Voce {
    QPalette::ColorRole ruolo;
    Coppia colori;
    Coppia spento;
  };
  constexpr Coppia kTesto{0x1b1f24, 0xe6e9ed};
  constexpr Coppia kTestoSpento{0x6b737d, 0x939ca6};
  constexpr Coppia kFondo{0xf2f4f6, 0x22272d};
  constexpr Coppia kCampo{0xffffff, 0x181c21};
  constexpr Coppia kCampoSpento{0xf2f4f6, 0x22272d};
  constexpr Coppia kPulsante{0xffffff, 0x2d333b};
  constexpr Coppia kPulsanteSpento{0xf2f4f6, 0x262b32};
  constexpr Coppia kScelto{0x1f5f8b, 0x2a6f9e};
  constexpr Coppia kSceltoSpento{0xc3ccd5, 0x3a4450};
  constexpr Coppia kSuScelto{0xffffff, 0xffffff};
  constexpr Coppia kSuSceltoSpento{0x3d444d, 0xc3cad2};
  constexpr std::array<Voce, 18> kVoci{{
      {QPalette::Window, kFondo, kFondo},
      {QPalette::WindowText, kTesto, kTestoSpento},
      {QPalette::Base, kCampo, kCampoSpento},
      {QPalette::AlternateBase, {0xf6f8fa, 0x1d2228}, {0xf2f4f6, 0x22272d}},
      {QPalette::Text, kTesto, kTestoSpento},
      {QPalette::PlaceholderText, {0x57606b, 0xa3adb8}, kTestoSpento},
      {QPalette::Button, kPulsante, kPulsanteSpento},
      {QPalette::ButtonText, kTesto, kTestoSpento},
      {QPalette::BrightText, {0xffffff, 0xffffff}, {0xffffff, 0xffffff}},
      {QPalette::Highlight, kScelto, kSceltoSpento},
      {QPalette::HighlightedText, kSuScelto, kSuSceltoSpento},
      {QPalette::Link, {0x1f5f8b, 0x6cb4e8}, kTestoSpento},
      {QPalette::ToolTipBase, {0x2d333b, 0x3a414a}, {0x2d333b, 0x3a414a}},
      {QPalette::ToolTipText, {0xffffff, 0xffffff}, {0xffffff, 0xffffff}},
      {QPalette::Light, {0xffffff, 0x3a414a}, {0xffffff, 0x3a414a}},
      {QPalette::Mid, {0xb6bec7, 0x4a525c}, {0xb6bec7, 0x4a525c}},
      {QPalette::Dark, {0x848d97, 0x15191d}, {0x848d97, 0x15191d}},
      {QPalette::LinkVisited, {0x5b4a8a, 0xb4a5e8}, kTestoSpento},
  }};
  QPalette tavolozza;
  for (const auto& [ruolo, colori, spento] : kVoci) {
    tavolozza.setColor(QPalette::Active, ruolo, Di(colori, tono));
    tavolozza.setColor(QPalette::Inactive, ruolo, Di(colori, tono));
    tavolozza.setColor(QPalette::Disabled, ruolo, Di(spento, tono));
  }
  return tavolozza;
}

QColor Colore(Segno segno, const QPalette& tavolozza) {
  return Di(CoppiaDi(segno), TonoDi(tavolozza));
}

double Contrasto(const QColor& sopra, const QColor& fondo) {
  const auto misto = [&](double a, double b) { return b + (a - b) * sopra.alphaF(); };
  const QColor visto = QColor::fromRgbF(static_cast<float>(misto(sopra.redF(), fondo.redF())),
                                        static_cast<float>(misto(sopra.greenF(), fondo.greenF())),
                                        static_cast<float>(misto(sopra.blueF(), fondo.blueF())));
  const double prima = Luminanza(visto);
  const double dopo = Luminanza(fondo);
  constexpr double kVelo = 0.05;
  return (std::max(prima, dopo) + kVelo) / (std::min(prima, dopo) + kVelo);
}

}  // namespace fenalto::screens
