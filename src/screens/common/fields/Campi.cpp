#include "screens/common/fields/Campi.h"

#include <QKeyEvent>

#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

std::string Utf8(const QString& testo) {
  return testo.toStdString();
}

}  // namespace

Esito<Valore> TestoMostrato::Letto(const QString& testo) const {
  if (testo == mostrato) return Valore(originale);
  std::string digitato = Utf8(testo);
  if (std::string difetto = DifettoTesto(digitato); !difetto.empty()) {
    return Errore{std::move(difetto)};
  }
  if (std::string segno = SegnoRimasto(originale, digitato); !segno.empty()) {
    return Errore{std::move(segno)};
  }
  return Valore(std::move(digitato));
}

CampoTesto::CampoTesto(const QString& nome, QWidget* genitore, int lunghezza)
    : QLineEdit(genitore) {
  setObjectName(nome);
  setMaxLength(lunghezza);
}

void CampoTesto::Mostra(const Valore& valore) {
  testo_.originale = valore.Testo();
  setText(QString::fromStdString(Visibile(testo_.originale)));
  testo_.mostrato = text();
}

Esito<Valore> CampoTesto::Letto() const {
  return testo_.Letto(text());
}

void CampoTesto::Maiuscole(bool attive) {
  disconnect(this, &QLineEdit::textEdited, nullptr, nullptr);
  if (!attive) return;
  connect(this, &QLineEdit::textEdited, this, [this](const QString& testo) {
    const int posizione = cursorPosition();
    setText(testo.toUpper());
    setCursorPosition(posizione);
  });
}

void CampoTesto::focusInEvent(QFocusEvent* evento) {
  QLineEdit::focusInEvent(evento);
  if (evento->reason() != Qt::MouseFocusReason) selectAll();
}

CampoNumero::CampoNumero(const QString& nome, QWidget* genitore) : QLineEdit(genitore) {
  setObjectName(nome);
  setAlignment(Qt::AlignRight);
  setMaxLength(20);
}

void CampoNumero::Mostra(const Valore& valore) {
  const auto numero = valore.Intero();
  setText(numero == 0 ? QString() : QString::number(numero));
}

Esito<Valore> CampoNumero::Letto() const {
  const QString testo = text().trimmed();
  if (testo.isEmpty()) return Valore(std::int64_t{0});
  bool riuscito = false;
  const auto numero = testo.toLongLong(&riuscito);
  constexpr qlonglong kMassimo = 2'147'483'647;
  if (!riuscito) return Errore{"\"" + Utf8(testo) + "\" non è un numero intero"};
  if (numero > kMassimo || numero < -kMassimo) {
    return Errore{"\"" + Utf8(testo) + "\": il numero massimo è 2.147.483.647"};
  }
  return Valore(static_cast<std::int64_t>(numero));
}

void CampoNumero::focusInEvent(QFocusEvent* evento) {
  QLineEdit::focusInEvent(evento);
  if (evento->reason() != Qt::MouseFocusReason) selectAll();
}

CampoImporto::CampoImporto(const QString& nome, QWidget* genitore, int decimali)
    : QLineEdit(genitore), decimali_(decimali) {
  setObjectName(nome);
  setAlignment(Qt::AlignRight);
  setMaxLength(32);
}

void CampoImporto::Mostra(const Valore& valore) {
  setText(QString::fromStdString(ScriviImporto(valore.Importo(), decimali_)));
}

Esito<Valore> CampoImporto::Letto() const {
  auto letto = LeggiImporto(Utf8(text()));
  if (!letto) return letto.Errore();
  return Valore(letto.Valore());
}

void CampoImporto::focusInEvent(QFocusEvent* evento) {
  QLineEdit::focusInEvent(evento);
  if (evento->reason() != Qt::MouseFocusReason) selectAll();
}

void CampoImporto::keyPressEvent(QKeyEvent* evento) {
  // The keypad's point is the comma of an amount.
  if (evento->key() == Qt::Key_Period && evento->modifiers().testFlag(Qt::KeypadModifier)) {
    insert(QStringLiteral(","));
    return;
  }
  QLineEdit::keyPressEvent(evento);
}

CampoData::CampoData(const QString& nome, std::function<std::pair<int, Data>()> annoEOggi,
                     QWidget* genitore)
    : QLineEdit(genitore), annoEOggi_(std::move(annoEOggi)) {
  setObjectName(nome);
  setMaxLength(12);
}

void CampoData::Mostra(const Valore& valore) {
  setText(QString::fromStdString(valore.Data().Testo()));
}

Esito<Valore> CampoData::Letto() const {
  const auto [anno, oggi] = annoEOggi_();
  auto letta = LeggiData(Utf8(text()), anno, oggi);
  if (!letta) return letta.Errore();
  return Valore(letta.Valore());
}

void CampoData::focusInEvent(QFocusEvent* evento) {
  QLineEdit::focusInEvent(evento);
  if (evento->reason() != Qt::MouseFocusReason) selectAll();
}

CampoNote::CampoNote(const QString& nome, QWidget* genitore, int lunghezza)
    : QPlainTextEdit(genitore), lunghezza_(lunghezza) {
  constexpr int kRighe = 4;
  setObjectName(nome);
  setTabChangesFocus(true);
  setFixedHeight(fontMetrics().lineSpacing() * kRighe + 2 * Misura(Passo::Vicino));
}

void CampoNote::Mostra(const Valore& valore) {
  testo_.originale = valore.Testo();
  const QString testo = QString::fromStdString(Visibile(testo_.originale));
  // Set anew only when it differs, so that the cursor stays where it was.
  if (testo != toPlainText()) setPlainText(testo);
  testo_.mostrato = toPlainText();
  document()->setModified(false);
}

Esito<Valore> CampoNote::Letto() const {
  const QString testo = toPlainText();
  if (lunghezza_ > 0 && testo.size() > lunghezza_) {
    return Errore{"il testo ha " + std::to_string(testo.size()) + " caratteri: al massimo sono " +
                  std::to_string(lunghezza_)};
  }
  return testo_.Letto(testo);
}

}  // namespace fenalto::screens
