#include "runner/Eventi.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QPointingDevice>
#include <QThread>
#include <QWidget>
#include <QtTest/QTest>
#include <array>

#include "core/values/Testo.h"
#include "runner/Programma.h"

namespace fenalto::copione {
namespace {

using Istante = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kPausa(2);

struct NomeTasto {
  const char* nome;
  Qt::Key tasto;
  const char* testo;
};
constexpr auto kTasti = std::to_array<NomeTasto>({
    {"Invio", Qt::Key_Return, "\r"},
    {"Tab", Qt::Key_Tab, "\t"},
    {"Esc", Qt::Key_Escape, "\x1b"},
    {"Spazio", Qt::Key_Space, " "},
    {"Ins", Qt::Key_Insert, ""},
    {"Canc", Qt::Key_Delete, "\x7f"},
    {"Su", Qt::Key_Up, ""},
    {"Giu", Qt::Key_Down, ""},
});

/// Where a key goes: an open popup has the keys before anything else.
QWidget* Ricevente(QWidget& controllo) {
  if (auto* popup = QApplication::activePopupWidget()) {
    return popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
  }
  auto* fuoco = QApplication::focusWidget();
  return fuoco != nullptr ? fuoco : &controllo;
}

/// Sends a key down and up, as long as the receiver lives.
void Invia(QWidget& controllo, Qt::Key tasto, const QString& testo, Qt::KeyboardModifiers altri) {
  QTest::sendKeyEvent(QTest::Click, Ricevente(controllo), tasto, testo, altri);
  QCoreApplication::processEvents();
}

Qt::Key CodiceDi(const QString& carattere) {
  const auto unita = carattere.at(0).toUpper().unicode();
  // Keys of printing characters of the Latin alphabet bear the number of the capital.
  return carattere.size() == 1 && unita >= 0x20 && unita <= 0xFF ? static_cast<Qt::Key>(unita)
                                                                 : Qt::Key_unknown;
}

void Mouse(QWidget& controllo, QEvent::Type tipo, const QPoint& punto, Qt::MouseButtons premuti) {
  QMouseEvent evento(tipo, punto, controllo.mapToGlobal(punto), Qt::LeftButton, premuti,
                     Qt::NoModifier, QPointingDevice::primaryPointingDevice());
  QSpontaneKeyEvent::setSpontaneous(&evento);
  qApp->notify(&controllo, &evento);
}

}  // namespace

bool SmaltisciEventi(std::chrono::milliseconds limite) {
  const auto scadenza = Istante::now() + limite;
  auto* giro = QAbstractEventDispatcher::instance(QThread::currentThread());
  for (bool altri = true; altri;) {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    altri = giro->processEvents(QEventLoop::AllEvents);
    if (altri && Istante::now() > scadenza) return false;
  }
  return true;
}

bool Riposa(Programma& programma, Istante::time_point scadenza) {
  while (true) {
    const auto resta =
        std::chrono::duration_cast<std::chrono::milliseconds>(scadenza - Istante::now());
    if (resta.count() <= 0 || !SmaltisciEventi(resta)) return false;
    if (!programma.Occupato() && QApplication::activeModalWidget() == nullptr) return true;
    QThread::msleep(static_cast<unsigned long>(kPausa.count()));
  }
}

void Attiva(QWidget& finestra) {
  if (QApplication::activeWindow() == finestra.window()) return;
  finestra.window()->activateWindow();
  QApplication::setActiveWindow(finestra.window());
  SmaltisciEventi();
}

bool HaFuoco(const QWidget& controllo) {
  const auto* fuoco = QApplication::focusWidget();
  return fuoco != nullptr &&
         (fuoco == &controllo || controllo.isAncestorOf(fuoco) || controllo.focusProxy() == fuoco);
}

bool MettiFuoco(QWidget& controllo, Qt::FocusReason motivo) {
  if (HaFuoco(controllo)) return true;
  const QPointer<QWidget> vivo(&controllo);
  Attiva(controllo);
  if (vivo) vivo->setFocus(motivo);
  SmaltisciEventi();
  return vivo && HaFuoco(*vivo);
}

void Digita(QWidget& controllo, const QString& testo) {
  const QPointer<QWidget> vivo(&controllo);
  for (qsizetype i = 0; i < testo.size() && vivo; ++i) {
    QString carattere = testo.mid(i, 1);
    if (carattere.at(0).isHighSurrogate() && i + 1 < testo.size()) carattere += testo.at(++i);
    if (carattere == QLatin1String("\n")) {
      Invia(*vivo, Qt::Key_Return, QStringLiteral("\r"), Qt::NoModifier);
    } else if (carattere == QLatin1String("\t")) {
      Invia(*vivo, Qt::Key_Tab, carattere, Qt::NoModifier);
    } else {
      Invia(*vivo, CodiceDi(carattere), carattere, Qt::NoModifier);
    }
  }
}

void Premi(QWidget& controllo, const Tasto& tasto) {
  Qt::KeyboardModifiers altri;
  altri.setFlag(Qt::ControlModifier, tasto.ctrl);
  altri.setFlag(Qt::ShiftModifier, tasto.maiusc);
  altri.setFlag(Qt::AltModifier, tasto.alt);
  for (const auto& noto : kTasti) {
    if (tasto.nome != noto.nome) continue;
    // The keyboard sends another key for Tab with Shift.
    const bool indietro = noto.tasto == Qt::Key_Tab && tasto.maiusc;
    Invia(controllo, indietro ? Qt::Key_Backtab : noto.tasto, QString::fromLatin1(noto.testo),
          altri);
    return;
  }
  const QString nome = QString::fromStdString(tasto.nome);
  if (nome.size() > 1) {
    Invia(controllo, static_cast<Qt::Key>(Qt::Key_F1 + nome.mid(1).toInt() - 1), QString(), altri);
    return;
  }
  const bool testo = !tasto.ctrl && !tasto.alt;
  Invia(controllo, CodiceDi(nome), testo ? (tasto.maiusc ? nome.toUpper() : nome) : QString(),
        altri);
}

void Clic(QWidget& controllo, const QPoint& punto) {
  const QPointer<QWidget> vivo(&controllo);
  Mouse(controllo, QEvent::MouseButtonPress, punto, Qt::LeftButton);
  if (vivo) Mouse(*vivo, QEvent::MouseButtonRelease, punto, Qt::NoButton);
}

void DoppioClic(QWidget& controllo, const QPoint& punto) {
  const QPointer<QWidget> vivo(&controllo);
  Clic(controllo, punto);
  if (vivo) Mouse(*vivo, QEvent::MouseButtonDblClick, punto, Qt::LeftButton);
  if (vivo) Mouse(*vivo, QEvent::MouseButtonRelease, punto, Qt::NoButton);
}

}  // namespace fenalto::copione
