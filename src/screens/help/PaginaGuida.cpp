#include "screens/help/PaginaGuida.h"

#include <QFile>
#include <QFileInfo>
#include <QPixmap>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>

#include "help/TestoGuida.h"
#include "screens/common/look/Tavolozza.h"

namespace fenalto::screens {
namespace {

constexpr int kLarghezza = 760;
constexpr int kMargine = 18;
constexpr int kInterlinea = 130;
constexpr int kSpazioCella = 5;

/// Folded letter by letter, so that places stay what they are.
QString PiegaLettere(const QString& testo) {
  QString piegato = testo.toLower();
  if (piegato.size() != testo.size()) piegato = testo;
  for (QChar& lettera : piegato) {
    const QString scomposta = lettera.decomposition();
    if (!scomposta.isEmpty() && lettera.decompositionTag() == QChar::Canonical) {
      lettera = scomposta.at(0);
    }
  }
  return piegato;
}

}  // namespace

PaginaGuida::PaginaGuida(QWidget* genitore) : QTextBrowser(genitore) {
  setObjectName(QStringLiteral("GuidaPagina"));
  setOpenLinks(false);
  setFrameShape(QFrame::NoFrame);
  document()->setDocumentMargin(kMargine);
  setLineWrapMode(QTextEdit::FixedPixelWidth);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(this, &QTextBrowser::anchorClicked, this, &PaginaGuida::Segui);
}

int PaginaGuida::LarghezzaTesto() const {
  return std::min(kLarghezza, std::max(viewport()->width(), 2 * kLarghezza / 5));
}

void PaginaGuida::MostraCapitolo(const QString& cartella, const QString& file,
                                 const QString& ancora, const QStringList& parole) {
  cartella_ = cartella;
  file_ = file;
  ancora_ = ancora;
  parole_ = parole;
  larghezza_ = LarghezzaTesto();
  QFile aperto(cartella + QLatin1Char('/') + file);
  const QString testo = aperto.open(QIODevice::ReadOnly) ? QString::fromUtf8(aperto.readAll())
                                                         : tr("Il capitolo %1 non c'è.").arg(file);
  setLineWrapColumnOrWidth(larghezza_);
  document()->setBaseUrl(QUrl::fromLocalFile(cartella + QLatin1Char('/')));
  document()->setMarkdown(testo);
  Impagina();
  Segna(parole);
  moveCursor(QTextCursor::Start);
  if (!ancora.isEmpty()) {
    VaiA(ancora);
  } else if (!extraSelections().isEmpty()) {
    QTextCursor primo = extraSelections().constFirst().cursor;
    primo.clearSelection();
    setTextCursor(primo);
    ensureCursorVisible();
  }
}

/// The toolkit sets chapters tight: air between lines, and tables whose lines are only just seen.
void PaginaGuida::Impagina() {
  QTextCursor cursore(document());
  for (QTextBlock blocco = document()->begin(); blocco.isValid(); blocco = blocco.next()) {
    // A picture's line is as high as the picture.
    if (blocco.text().contains(QChar::ObjectReplacementCharacter)) continue;
    QTextBlockFormat formato = blocco.blockFormat();
    formato.setLineHeight(kInterlinea, QTextBlockFormat::ProportionalHeight);
    cursore.setPosition(blocco.position());
    cursore.setBlockFormat(formato);
  }
  const QColor filo = palette().color(QPalette::Mid);
  for (auto* riquadro : document()->rootFrame()->childFrames()) {
    auto* tavola = qobject_cast<QTextTable*>(riquadro);
    if (tavola == nullptr) continue;
    QTextTableFormat formato = tavola->format();
    formato.setBorderBrush(filo);
    formato.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    formato.setBorderCollapse(true);
    formato.setCellPadding(kSpazioCella);
    tavola->setFormat(formato);
  }
}

void PaginaGuida::Segna(const QStringList& parole) {
  QList<QTextEdit::ExtraSelection> segni;
  QTextEdit::ExtraSelection segno;
  constexpr int kVelo = 80;  // of 255
  QColor evidenza = Colore(Segno::InScadenza, palette());
  evidenza.setAlpha(kVelo);
  segno.format.setBackground(evidenza);
  const QString testo = PiegaLettere(document()->toPlainText());
  for (const QString& parola : parole) {
    const QString cercata = PiegaLettere(parola);
    if (cercata.isEmpty()) continue;
    for (auto da = testo.indexOf(cercata); da >= 0; da = testo.indexOf(cercata, da + 1)) {
      segno.cursor = QTextCursor(document());
      segno.cursor.setPosition(static_cast<int>(da));
      segno.cursor.setPosition(static_cast<int>(da + cercata.size()), QTextCursor::KeepAnchor);
      segni << segno;
    }
  }
  std::sort(segni.begin(), segni.end(), [](const auto& a, const auto& b) {
    return a.cursor.selectionStart() < b.cursor.selectionStart();
  });
  setExtraSelections(segni);
}

void PaginaGuida::VaiA(const QString& ancora) {
  for (QTextBlock blocco = document()->begin(); blocco.isValid(); blocco = blocco.next()) {
    if (blocco.blockFormat().headingLevel() == 0) continue;
    if (QString::fromStdString(help::Ancora(blocco.text().toStdString())) != ancora) continue;
    // The heading at the top, not just in view.
    moveCursor(QTextCursor::End);
    setTextCursor(QTextCursor(blocco));
    ensureCursorVisible();
    return;
  }
}

void PaginaGuida::Segui(const QUrl& indirizzo) {
  const QString file = QFileInfo(indirizzo.path()).fileName();
  const bool dentro = indirizzo.scheme().isEmpty() || indirizzo.isLocalFile();
  if (dentro && file.isEmpty()) {
    emit Richiesto(file_, indirizzo.fragment());
  } else if (dentro && QFile::exists(cartella_ + QLatin1Char('/') + file)) {
    emit Richiesto(file, indirizzo.fragment());
  } else {
    emit Fuori(document()->baseUrl().resolved(indirizzo));
  }
}

QVariant PaginaGuida::loadResource(int tipo, const QUrl& nome) {
  if (tipo != QTextDocument::ImageResource) return QTextBrowser::loadResource(tipo, nome);
  QPixmap figura(document()->baseUrl().resolved(nome).toLocalFile());
  const int posto = LarghezzaTesto() - 2 * kMargine;
  if (figura.isNull() || figura.width() <= posto) return figura;
  const double punti = devicePixelRatioF();
  figura = figura.scaledToWidth(static_cast<int>(posto * punti), Qt::SmoothTransformation);
  figura.setDevicePixelRatio(punti);
  return figura;
}

void PaginaGuida::resizeEvent(QResizeEvent* evento) {
  QTextBrowser::resizeEvent(evento);
  if (file_.isEmpty() || LarghezzaTesto() == larghezza_) return;
  // What was read stays in view, at about the same place.
  const double letto = static_cast<double>(verticalScrollBar()->value()) /
                       std::max(1, verticalScrollBar()->maximum());
  MostraCapitolo(cartella_, file_, ancora_, parole_);
  if (isVisible()) {
    verticalScrollBar()->setValue(static_cast<int>(letto * verticalScrollBar()->maximum()));
  }
}

}  // namespace fenalto::screens
