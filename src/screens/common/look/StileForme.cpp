#include "screens/common/look/StileForme.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <algorithm>

#include "screens/common/look/Icone.h"
#include "screens/common/look/Misure.h"
#include "screens/common/look/Tavolozza.h"

namespace fenalto::screens {
namespace {

constexpr double kRaggio = 4;
constexpr double kAnello = 2;

QRectF Interno(const QRect& rettangolo, double spesso) {
  const double meta = spesso / 2;
  return QRectF(rettangolo).adjusted(meta, meta, -meta, -meta);
}

QColor Misto(const QColor& sopra, const QColor& fondo, double parte) {
  const auto canale = [parte](int a, int b) { return static_cast<int>(b + (a - b) * parte); };
  return {canale(sopra.red(), fondo.red()), canale(sopra.green(), fondo.green()),
          canale(sopra.blue(), fondo.blue())};
}

/// Rounded frame of one pixel, or the ring of the focus in its place.
void Contorno(QPainter& pittore, const QStyleOption& opzione, const QColor& fondo) {
  const bool attivo = opzione.state & QStyle::State_Enabled;
  const bool foco = attivo && opzione.state & QStyle::State_HasFocus;
  const double spesso = foco ? kAnello : 1;
  const auto segno = foco ? Segno::Accento : attivo ? Segno::Filo : Segno::Divisione;
  pittore.save();
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.setPen(QPen(Colore(segno, opzione.palette), spesso));
  pittore.setBrush(fondo);
  pittore.drawRoundedRect(Interno(opzione.rect, spesso), kRaggio, kRaggio);
  pittore.restore();
}

}  // namespace

void DisegnaFoco(QPainter& pittore, const QStyleOption& opzione) {
  pittore.save();
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.setPen(QPen(Colore(Segno::Accento, opzione.palette), kAnello));
  pittore.setBrush(Qt::NoBrush);
  pittore.drawRoundedRect(Interno(opzione.rect, kAnello), kRaggio, kRaggio);
  pittore.restore();
}

void DisegnaCampo(QPainter& pittore, const QStyleOption& opzione, bool fermo) {
  const bool attivo = opzione.state & QStyle::State_Enabled && !fermo;
  Contorno(pittore, opzione,
           opzione.palette.color(attivo ? QPalette::Active : QPalette::Disabled, QPalette::Base));
}

void DisegnaPulsante(QPainter& pittore, const QStyleOption& opzione, bool conferma) {
  const bool attivo = opzione.state & QStyle::State_Enabled;
  const QColor accento = Colore(Segno::Accento, opzione.palette);
  QColor fondo = opzione.palette.color(QPalette::Button);
  constexpr double kDiConferma = 0.14;
  constexpr double kSopra = 0.10;
  constexpr double kPremuto = 0.22;
  if (attivo && conferma) fondo = Misto(accento, fondo, kDiConferma);
  if (attivo && opzione.state & (QStyle::State_Sunken | QStyle::State_On)) {
    fondo = Misto(accento, fondo, kPremuto);
  } else if (attivo && opzione.state & QStyle::State_MouseOver) {
    fondo = Misto(accento, fondo, kSopra);
  }
  Contorno(pittore, opzione, fondo);
  if (!attivo || !conferma || opzione.state & QStyle::State_HasFocus) return;
  pittore.save();
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.setPen(accento);
  pittore.setBrush(Qt::NoBrush);
  pittore.drawRoundedRect(Interno(opzione.rect, 1), kRaggio, kRaggio);
  pittore.restore();
}

void DisegnaCasella(QPainter& pittore, const QStyleOption& opzione, bool tonda) {
  const bool attivo = opzione.state & QStyle::State_Enabled;
  const bool scelta = opzione.state & QStyle::State_On;
  const auto& tavolozza = opzione.palette;
  const QColor fondo =
      scelta ? tavolozza.color(QPalette::Highlight) : tavolozza.color(QPalette::Base);
  const QColor bordo =
      scelta && attivo ? fondo : Colore(attivo ? Segno::Filo : Segno::Divisione, tavolozza);
  constexpr double kBordo = 1.25;
  constexpr double kAngolo = 3;
  const QRectF dove = Interno(opzione.rect, kBordo);
  pittore.save();
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.setPen(QPen(bordo, kBordo));
  pittore.setBrush(fondo);
  const QColor segno = tavolozza.color(QPalette::HighlightedText);
  if (tonda) {
    pittore.drawEllipse(dove);
    if (scelta) {
      const double quarto = dove.width() / 3.4;
      pittore.setPen(Qt::NoPen);
      pittore.setBrush(segno);
      pittore.drawEllipse(dove.adjusted(quarto, quarto, -quarto, -quarto));
    }
  } else {
    pittore.drawRoundedRect(dove, kAngolo, kAngolo);
    if (scelta) DipingiIcona(pittore, dove, QStringLiteral("conferma"), segno);
    if (opzione.state & QStyle::State_NoChange) {
      pittore.setPen(QPen(bordo, kAnello));
      pittore.drawLine(QPointF(dove.left() + kAngolo, dove.center().y()),
                       QPointF(dove.right() - kAngolo, dove.center().y()));
    }
  }
  pittore.restore();
}

void DisegnaLinguetta(QPainter& pittore, const QStyleOptionTab& opzione) {
  const bool scelta = opzione.state & QStyle::State_Selected;
  const bool attiva = opzione.state & QStyle::State_Enabled;
  const QColor fondo = opzione.palette.color(QPalette::Window);
  const QColor accento = Colore(Segno::Accento, opzione.palette);
  pittore.save();
  if (attiva && !scelta && opzione.state & QStyle::State_MouseOver) {
    constexpr double kSopra = 0.10;
    pittore.fillRect(opzione.rect, Misto(accento, fondo, kSopra));
  }
  const int filo = scelta ? 3 : 1;
  QRect sotto = opzione.rect;
  sotto.setTop(sotto.bottom() + 1 - filo);
  pittore.fillRect(sotto, scelta && attiva ? accento : Colore(Segno::Divisione, opzione.palette));
  pittore.restore();
  if (opzione.state & QStyle::State_HasFocus) DisegnaFoco(pittore, opzione);
}

void DisegnaElenco(QPainter& pittore, const QStyleOption& opzione, const QRect& freccia) {
  DisegnaCampo(pittore, opzione, false);
  constexpr double kParte = 0.8;
  const double lato = LatoIcona() * kParte;
  QRectF dove(0, 0, lato, lato);
  dove.moveCenter(QRectF(freccia).center());
  DipingiIcona(pittore, dove, QStringLiteral("giu"), opzione.palette.color(QPalette::ButtonText));
}

void DisegnaTestata(QPainter& pittore, const QStyleOption& opzione) {
  const QColor filo = Colore(Segno::Divisione, opzione.palette);
  pittore.fillRect(opzione.rect, opzione.palette.color(QPalette::Window));
  pittore.fillRect(QRect(opzione.rect.left(), opzione.rect.bottom(), opzione.rect.width(), 1),
                   filo);
  const int margine = Misura(Passo::Filo);
  pittore.fillRect(QRect(opzione.rect.right(), opzione.rect.top() + margine, 1,
                         opzione.rect.height() - 2 * margine),
                   filo);
}

void DisegnaTitolo(QPainter& pittore, const QStyleOptionHeader& opzione) {
  const auto gruppo = opzione.state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled;
  pittore.setPen(opzione.palette.color(gruppo, QPalette::ButtonText));
  pittore.drawText(
      opzione.rect, static_cast<int>(opzione.textAlignment) | Qt::TextSingleLine,
      pittore.fontMetrics().elidedText(opzione.text, Qt::ElideRight, opzione.rect.width()));
}

void DisegnaCornice(QPainter& pittore, const QStyleOption& opzione) {
  pittore.save();
  pittore.setRenderHint(QPainter::Antialiasing);
  const bool foco = opzione.state & QStyle::State_HasFocus;
  const double spesso = foco ? kAnello : 1;
  pittore.setPen(QPen(Colore(foco ? Segno::Accento : Segno::Filo, opzione.palette), spesso));
  pittore.setBrush(Qt::NoBrush);
  pittore.drawRoundedRect(Interno(opzione.rect, spesso), kAnello, kAnello);
  pittore.restore();
}

void DisegnaGruppo(QPainter& pittore, const QStyleOption& opzione) {
  pittore.save();
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.setPen(Colore(Segno::Divisione, opzione.palette));
  pittore.setBrush(Qt::NoBrush);
  // The title stands above its frame.
  const int titolo = std::max(LatoIcona(), opzione.fontMetrics.height()) + 3;
  pittore.drawRoundedRect(Interno(opzione.rect.adjusted(0, titolo, 0, 0), 1), kRaggio, kRaggio);
  pittore.restore();
}

}  // namespace fenalto::screens
