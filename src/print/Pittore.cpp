#include "print/Pittore.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "print/TestoPagina.h"

namespace fenalto::print {
namespace {

constexpr double kPunto = kPollice / 72;  // the same, a point
/// Width of a character of the fixed face, in parts of its size.
constexpr double kLarghezzaFissa = 0.6;

/// Families that print alike everywhere; the name asked for comes after its twin.
QStringList Famiglie(const QString& famiglia) {
  if (famiglia.compare(QLatin1String("Arial Narrow"), Qt::CaseInsensitive) == 0) {
    return {QStringLiteral("Liberation Sans Narrow"), famiglia, QStringLiteral("Liberation Sans")};
  }
  if (famiglia.compare(QLatin1String("Arial"), Qt::CaseInsensitive) == 0) {
    return {QStringLiteral("Liberation Sans"), famiglia};
  }
  if (famiglia.compare(QLatin1String("Courier New"), Qt::CaseInsensitive) == 0) {
    return {QStringLiteral("Liberation Mono"), famiglia};
  }
  return {famiglia, QStringLiteral("Liberation Sans")};
}

QFont Fonte(const QStringList& famiglie, double corpo, bool grassetto, bool corsivo) {
  QFont fonte(famiglie);
  fonte.setPixelSize(std::max(1, static_cast<int>(std::lround(corpo))));
  fonte.setBold(grassetto);
  fonte.setItalic(corsivo);
  fonte.setHintingPreference(QFont::PreferNoHinting);
  return fonte;
}

/// Characters that a fixed face has at its own width; others may come from another face.
bool Sicuro(char32_t carattere) {
  return (carattere >= 0x20 && carattere < 0x7F) ||
         (carattere >= 0xA0 && carattere < 0x180 && carattere != 0xAD) || carattere == 0x20AC ||
         carattere == 0x2026 || (carattere >= 0x2013 && carattere <= 0x2022) ||
         (carattere >= 0x2500 && carattere <= 0x257F);
}

int Caratteri(const QString& testo, int da, int unita) {
  int caratteri = 0;
  for (int i = da; i < da + unita && i < testo.size(); ++i) {
    if (!testo[i].isLowSurrogate()) ++caratteri;
  }
  return caratteri;
}

}  // namespace

const Rinvio* RinvioDi(const reports::Elemento& elemento) {
  const Rinvio* rinvio = nullptr;
  if (const auto* scritta = std::get_if<reports::Scritta>(&elemento)) rinvio = &scritta->rinvio;
  if (const auto* riga = std::get_if<reports::RigaFissa>(&elemento)) rinvio = &riga->rinvio;
  return rinvio != nullptr && !rinvio->Vuoto() ? rinvio : nullptr;
}

QPageLayout Disposizione(const reports::FormatoPagina& formato) {
  const bool orizzontale = formato.Orizzontale();
  const double corto = std::min(formato.larghezza, formato.altezza) / 100.0;
  const double lungo = std::max(formato.larghezza, formato.altezza) / 100.0;
  QPageLayout disposizione(QPageSize(QSizeF(corto, lungo), QPageSize::Millimeter),
                           orizzontale ? QPageLayout::Landscape : QPageLayout::Portrait,
                           QMarginsF(), QPageLayout::Millimeter);
  disposizione.setMode(QPageLayout::FullPageMode);
  return disposizione;
}

const Pittore::Tipo& Pittore::TipoDi(const reports::Carattere& carattere) {
  const int forma =
      carattere.corpo * 4 + (carattere.grassetto ? 2 : 0) + (carattere.corsivo ? 1 : 0);
  auto& tipo = tipi_[{carattere.famiglia, forma}];
  if (!tipo) {
    tipo = std::make_unique<Tipo>(Fonte(Famiglie(QString::fromStdString(carattere.famiglia)),
                                        carattere.corpo / 100.0 * kPunto, carattere.grassetto,
                                        carattere.corsivo));
  }
  return *tipo;
}

const Pittore::Tipo& Pittore::TipoFisso(int passo, bool grassetto) {
  auto& tipo = fissi_[passo * 2 + (grassetto ? 1 : 0)];
  if (!tipo) {
    const QStringList famiglie{QStringLiteral("Liberation Mono"),
                               QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Courier New")};
    tipo = std::make_unique<Tipo>(
        Fonte(famiglie, kPollice / std::max(1, passo) / kLarghezzaFissa, grassetto, false));
    const double stretto = tipo->misure.horizontalAdvance(QLatin1Char('i'));
    const double largo = tipo->misure.horizontalAdvance(QLatin1Char('W'));
    if (std::abs(stretto - largo) < 0.01) tipo->passo = largo;
  }
  return *tipo;
}

Pittore::Posto Pittore::Disponi(const reports::Scritta& scritta, int totale) {
  Posto posto{ConTotale(scritta.testo, totale), static_cast<double>(scritta.x)};
  const auto& misure = TipoDi(scritta.carattere).misure;
  double larga = misure.horizontalAdvance(posto.testo);
  const double campo = scritta.larghezza;
  if (campo > 0 && larga > campo) {
    if (scritta.numero) {
      // A number that is cut would be another number.
      const double asterisco = misure.horizontalAdvance(QLatin1Char('*'));
      posto.testo.fill(QLatin1Char('*'), static_cast<int>(campo / asterisco));
      larga = misure.horizontalAdvance(posto.testo);
    } else {
      // The reader sees that there is more.
      posto.testo = misure.elidedText(posto.testo, Qt::ElideRight, campo);
      larga = misure.horizontalAdvance(posto.testo);
    }
  }
  if (scritta.allineamento == reports::Allineamento::Destra) posto.x += campo - larga;
  if (scritta.allineamento == reports::Allineamento::Centro) posto.x += (campo - larga) / 2;
  return posto;
}

void Pittore::Dipingi(QPainter& pittore, const reports::Scritta& scritta, int totale) {
  const auto& tipo = TipoDi(scritta.carattere);
  const auto posto = Disponi(scritta, totale);
  if (posto.testo.trimmed().isEmpty()) return;
  pittore.setFont(tipo.fonte);
  pittore.drawText(QPointF(posto.x, scritta.y + tipo.misure.ascent()), posto.testo);
}

void Pittore::Dipingi(QPainter& pittore, const reports::RigaFissa& riga, int totale) {
  QString testo = ConTotale(riga.testo, totale);
  while (!testo.isEmpty() && testo.back() == QLatin1Char(' ')) testo.chop(1);
  int vuoti = 0;
  while (vuoti < testo.size() && testo[vuoti] == QLatin1Char(' ')) ++vuoti;
  testo.remove(0, vuoti);
  if (testo.isEmpty()) return;
  const auto& tipo = TipoFisso(riga.passo, riga.grassetto);
  const double cella = kPollice / std::max(1, riga.passo);
  const auto caratteri = testo.toStdU32String();
  const bool intera = tipo.passo > 0 && std::all_of(caratteri.begin(), caratteri.end(), Sicuro);
  pittore.save();
  pittore.setFont(tipo.fonte);
  pittore.translate(riga.x + vuoti * cella, riga.y + tipo.misure.ascent());
  if (intera) {
    // The whole line at once: its columns stay exact, and a file stays small.
    pittore.scale(cella / tipo.passo, 1);
    pittore.drawText(QPointF(0, 0), testo);
  } else {
    // A foreign character has a width of its own: each one goes to its column.
    for (std::size_t i = 0; i < caratteri.size(); ++i) {
      if (caratteri[i] == U' ') continue;
      pittore.drawText(QPointF(static_cast<double>(i) * cella, 0),
                       QString::fromUcs4(&caratteri[i], 1));
    }
  }
  pittore.restore();
}

void Pittore::Dipingi(QPainter& pittore, const reports::Tratto& tratto) {
  QPen penna(Qt::black, tratto.spessore);
  penna.setCapStyle(Qt::FlatCap);
  pittore.setPen(penna);
  pittore.drawLine(tratto.x1, tratto.y1, tratto.x2, tratto.y2);
}

void Pittore::Dipingi(QPainter& pittore, const reports::Riquadro& riquadro) {
  QPen penna(Qt::black, riquadro.spessore);
  penna.setJoinStyle(Qt::MiterJoin);
  pittore.setPen(riquadro.spessore > 0 ? penna : QPen(Qt::NoPen));
  pittore.setBrush(riquadro.grigio < 255
                       ? QBrush(QColor(riquadro.grigio, riquadro.grigio, riquadro.grigio))
                       : QBrush(Qt::NoBrush));
  pittore.drawRect(riquadro.x, riquadro.y, riquadro.larghezza, riquadro.altezza);
}

void Pittore::Dipingi(QPainter& pittore, const reports::Immagine& immagine) {
  auto trovata = immagini_.find(immagine.file);
  if (trovata == immagini_.end()) {
    trovata = immagini_.emplace(immagine.file, QImage(QString::fromStdString(immagine.file))).first;
  }
  if (trovata->second.isNull()) return;
  pittore.drawImage(QRectF(immagine.x, immagine.y, immagine.larghezza, immagine.altezza),
                    trovata->second);
}

void Pittore::Dipingi(QPainter& pittore, const reports::Pagina& pagina, double scala, int totale) {
  pittore.save();
  pittore.scale(scala, scala);
  for (const auto& elemento : pagina.elementi) {
    pittore.setPen(Qt::black);
    std::visit(
        [&](const auto& uno) {
          using Genere = std::decay_t<decltype(uno)>;
          if constexpr (std::is_same_v<Genere, reports::Scritta> ||
                        std::is_same_v<Genere, reports::RigaFissa>) {
            Dipingi(pittore, uno, totale);
          } else {
            Dipingi(pittore, uno);
          }
        },
        elemento);
  }
  pittore.restore();
}

QString Pittore::Testo(const reports::Elemento& elemento, int totale) {
  if (const auto* scritta = std::get_if<reports::Scritta>(&elemento))
    return Disponi(*scritta, totale).testo;
  if (const auto* riga = std::get_if<reports::RigaFissa>(&elemento))
    return ConTotale(riga->testo, totale);
  return {};
}

QRectF Pittore::Area(const reports::Elemento& elemento, int totale, int da, int quanti) {
  if (const auto* scritta = std::get_if<reports::Scritta>(&elemento)) {
    const auto& misure = TipoDi(scritta->carattere).misure;
    const auto posto = Disponi(*scritta, totale);
    const double inizio = misure.horizontalAdvance(posto.testo.left(da));
    const double fine = misure.horizontalAdvance(posto.testo.left(da + quanti));
    return {posto.x + inizio, static_cast<double>(scritta->y), fine - inizio, misure.height()};
  }
  if (const auto* riga = std::get_if<reports::RigaFissa>(&elemento)) {
    const double cella = kPollice / std::max(1, riga->passo);
    const QString testo = ConTotale(riga->testo, totale);
    return {riga->x + Caratteri(testo, 0, da) * cella, static_cast<double>(riga->y),
            Caratteri(testo, da, quanti) * cella,
            TipoFisso(riga->passo, riga->grassetto).misure.height()};
  }
  return {};
}

QRectF Pittore::Area(const reports::Elemento& elemento, int totale) {
  return Area(elemento, totale, 0, static_cast<int>(Testo(elemento, totale).size()));
}

}  // namespace fenalto::print
