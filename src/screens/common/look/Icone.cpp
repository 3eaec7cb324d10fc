#include "screens/common/look/Icone.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QXmlStreamReader>
#include <algorithm>
#include <array>
#include <utility>

namespace fenalto::screens {
namespace {

constexpr double kQuadro = 24;
constexpr double kTratto = 1.75;

struct Disegnato {
  const char* controllo;
  const char* disegno;
};
constexpr auto kDisegni = std::to_array<Disegnato>({
    {"Accetta", "conferma"},
    {"AggiungiAllegato", "allega"},
    {"Aggiorna", "aggiorna"},
    {"Annulla", "annulla"},
    {"AnnullaData", "annulla"},
    {"AnnullaRiga", "annulla"},
    {"Apri", "apri"},
    {"ApriAllegato", "vedi"},
    {"BarraArchivi", "ditta"},
    {"BarraCerca", "cerca"},
    {"BarraPrimanota", "libro"},
    {"CercaScadenze", "cerca"},
    {"ChiudiDupl", "annulla"},
    {"CmdRipristina", "aggiorna"},
    {"Command1VariazioneDitta", "conferma"},
    {"CommElencoFattSospIva", "stampa"},
    {"Conferma", "conferma"},
    {"ConfermaRiga", "conferma"},
    {"Controlla", "cerca"},
    {"Elimina", "elimina"},
    {"EliminaRiga", "elimina"},
    {"FinestraLibera", "libera"},
    {"Importa", "importa"},
    {"Imposta", "conferma"},
    {"MemorizzaStampa", "conferma"},
    {"Nuovo", "nuovo"},
    {"PNuovaRiga", "nuovo"},
    {"Precedente", "precedente"},
    {"Registrazione", "vedi"},
    {"Salta", "successivo"},
    {"Sdoppia", "copia"},
    {"Sfoglia", "apri"},
    {"Stampa", "stampa"},
    {"StampaElencoChiusure", "stampa"},
    {"Successivo", "successivo"},
    {"TogliAllegato", "elimina"},
    {"VedereRegCont", "vedi"},
    {"Vedi", "vedi"},
    {"VediRegistrazione", "vedi"},
    {"XlsEsp", "esporta"},
});

std::filesystem::path& Cartella() {
  static std::filesystem::path cartella;
  return cartella;
}

/// Reads numbers parted by blanks and commas from a path's text.
class Numeri {
 public:
  explicit Numeri(const QString& testo) : testo_(testo) {}

  [[nodiscard]] bool Finiti() {
    Salta();
    return posto_ >= testo_.size();
  }
  /// The next command letter; null where a number stands.
  QChar Comando() {
    Salta();
    return posto_ < testo_.size() && testo_.at(posto_).isLetter() ? testo_.at(posto_++) : QChar();
  }
  double Prendi() {
    Salta();
    const auto inizio = posto_;
    if (posto_ < testo_.size() && testo_.at(posto_) == QLatin1Char('-')) ++posto_;
    while (posto_ < testo_.size() &&
           (testo_.at(posto_).isDigit() || testo_.at(posto_) == QLatin1Char('.'))) {
      ++posto_;
    }
    bool letto = false;
    const double numero = QStringView(testo_).mid(inizio, posto_ - inizio).toDouble(&letto);
    guasti_ = guasti_ || !letto;
    return numero;
  }
  QPointF Punto() {
    const double x = Prendi();
    return {x, Prendi()};
  }
  [[nodiscard]] bool Guasti() const { return guasti_; }

 private:
  void Salta() {
    while (posto_ < testo_.size() &&
           (testo_.at(posto_).isSpace() || testo_.at(posto_) == QLatin1Char(','))) {
      ++posto_;
    }
  }
  QString testo_;
  qsizetype posto_ = 0;
  bool guasti_ = false;
};

bool Segui(QPainterPath& linee, const QString& testo) {
  Numeri numeri(testo);
  QChar comando;
  while (!numeri.Finiti() && !numeri.Guasti()) {
    if (const QChar nuovo = numeri.Comando(); !nuovo.isNull()) comando = nuovo;
    const QPointF ora = linee.currentPosition();
    switch (comando.toLatin1()) {
      case 'M':
        linee.moveTo(numeri.Punto());
        comando = QLatin1Char('L');
        break;
      case 'L':
        linee.lineTo(numeri.Punto());
        break;
      case 'H':
        linee.lineTo(numeri.Prendi(), ora.y());
        break;
      case 'V':
        linee.lineTo(ora.x(), numeri.Prendi());
        break;
      case 'C': {
        const QPointF prima = numeri.Punto();
        const QPointF seconda = numeri.Punto();
        linee.cubicTo(prima, seconda, numeri.Punto());
        break;
      }
      case 'Z':
        linee.closeSubpath();
        break;
      default:
        return false;
    }
  }
  return !numeri.Guasti();
}

bool Elemento(QPainterPath& linee, const QXmlStreamReader& lettore) {
  const auto attributi = lettore.attributes();
  const auto numero = [&](const char* nome) {
    return attributi.value(QLatin1String(nome)).toDouble();
  };
  const auto nome = lettore.name();
  if (nome == QLatin1String("svg")) return true;
  if (nome == QLatin1String("path")) {
    return Segui(linee, attributi.value(QLatin1String("d")).toString());
  }
  if (nome == QLatin1String("circle")) {
    linee.addEllipse(QPointF(numero("cx"), numero("cy")), numero("r"), numero("r"));
    return true;
  }
  if (nome == QLatin1String("rect")) {
    linee.addRoundedRect(QRectF(numero("x"), numero("y"), numero("width"), numero("height")),
                         numero("rx"), numero("rx"));
    return true;
  }
  return false;
}

QPainterPath Leggi(const QString& disegno) {
  QFile file(QString::fromStdString((Cartella() / (disegno.toStdString() + ".svg")).string()));
  if (!file.open(QIODevice::ReadOnly)) return {};
  QXmlStreamReader lettore(&file);
  QPainterPath linee;
  while (!lettore.atEnd()) {
    if (lettore.readNext() == QXmlStreamReader::StartElement && !Elemento(linee, lettore)) {
      return {};
    }
  }
  return lettore.hasError() ? QPainterPath() : linee;
}

/// Draws in the colour that the text of the palette has at that moment.
class Motore : public QIconEngine {
 public:
  explicit Motore(QString disegno) : disegno_(std::move(disegno)) {}

  void paint(QPainter* pittore, const QRect& dove, QIcon::Mode modo, QIcon::State) override {
    const QPalette tavolozza = QApplication::palette();
    const auto gruppo = modo == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const auto ruolo = modo == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
    DipingiIcona(*pittore, dove, disegno_, tavolozza.color(gruppo, ruolo));
  }
  QPixmap pixmap(const QSize& misura, QIcon::Mode modo, QIcon::State stato) override {
    QPixmap immagine(misura);
    immagine.fill(Qt::transparent);
    QPainter pittore(&immagine);
    paint(&pittore, QRect({}, misura), modo, stato);
    return immagine;
  }
  [[nodiscard]] QIconEngine* clone() const override { return new Motore(disegno_); }

 private:
  QString disegno_;
};

}  // namespace

void CartellaIcone(const std::filesystem::path& cartella) {
  Cartella() = cartella;
}

QPainterPath Tracciato(const QString& disegno) {
  static QHash<QString, QPainterPath> letti;
  const auto trovato = letti.constFind(disegno);
  if (trovato != letti.constEnd()) return *trovato;
  return *letti.insert(disegno, Leggi(disegno));
}

QIcon IconaAzione(const QString& disegno) {
  return Tracciato(disegno).isEmpty() ? QIcon() : QIcon(new Motore(disegno));
}

QString DisegnoDi(const QString& controllo) {
  const auto trovato = std::find_if(kDisegni.begin(), kDisegni.end(), [&](const Disegnato& uno) {
    return controllo == QLatin1String(uno.controllo);
  });
  return trovato == kDisegni.end() ? QString() : QString::fromLatin1(trovato->disegno);
}

void MettiIcona(QAbstractButton& pulsante) {
  const QString disegno = DisegnoDi(pulsante.objectName());
  if (!disegno.isEmpty()) pulsante.setIcon(IconaAzione(disegno));
}

void DipingiIcona(QPainter& pittore, const QRectF& dove, const QString& disegno,
                  const QColor& colore) {
  const double lato = std::min(dove.width(), dove.height());
  pittore.save();
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.translate(dove.center() - QPointF(lato / 2, lato / 2));
  pittore.scale(lato / kQuadro, lato / kQuadro);
  pittore.setPen(QPen(colore, kTratto, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  pittore.setBrush(Qt::NoBrush);
  pittore.drawPath(Tracciato(disegno));
  pittore.restore();
}

}  // namespace fenalto::screens
