#include "screens/ledger/ElencoRegistrazioni.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <algorithm>

namespace fenalto::screens {
namespace {

constexpr int kPagina = 200;
constexpr std::int64_t kTratto = 4'000;  // numbers gone through by one statement of a search
constexpr int kTempoTurno = 25;          // ms that a search takes between two events
constexpr int kTrovateMassime = 2'000;

using RigheGriglia = std::vector<std::vector<Valore>>;

RigheGriglia ComeRighe(const std::vector<ledger::ArticoloLetto>& letti) {
  RigheGriglia righe;
  righe.reserve(letti.size());
  for (const auto& letto : letti) {
    righe.push_back({letto.numero, letto.data, letto.dare, letto.avere});
  }
  return righe;
}

}  // namespace

ElencoRegistrazioni::ElencoRegistrazioni(Ambiente& ambiente, QWidget* genitore)
    : ElencoCercato(QStringLiteral("CercaArticoli"),
                    tr("numero, data, oppure conto o parte della sua descrizione"),
                    new Griglia(QStringLiteral("ElencoArticoli"), QStringLiteral("Movimenti"),
                                {{tr("Numero"), Tipo::Intero, 70},
                                 {tr("Data"), Tipo::Data, 90},
                                 {tr("Dare"), Tipo::Testo, 240},
                                 {tr("Avere"), Tipo::Testo, 240}}),
                    0, genitore),
      lettore_(ambiente) {
  // The order is the source's: rows come in pages.
  Righe().horizontalHeader()->setSectionsClickable(false);
  connect(&Cerca(), &QLineEdit::textChanged, this, &ElencoRegistrazioni::Ricarica);
  connect(&Ripresa(), &QTimer::timeout, this, &ElencoRegistrazioni::Prosegui);
}

void ElencoRegistrazioni::Ricarica() {
  Ripresa().stop();
  lettore_.Dimentica();
  ricerca_ = lettore_.Interpreta(Cerca().text().toStdString());
  sotto_ = lettore_.Inizio();
  Stato().clear();
  if (!ricerca_.immediata) {
    Righe().Modello().Righe({});
    Prosegui();
    return;
  }
  Righe().Modello().Pagine([this](int da) {
    if (da == 0) sotto_ = lettore_.Inizio();
    auto letti = lettore_.Pagina(ricerca_, sotto_, 0, kPagina);
    if (!letti.empty()) sotto_ = letti.back().numero;
    return ComeRighe(letti);
  });
  if (Righe().Modello().rowCount() == 0 && !Cerca().text().trimmed().isEmpty()) DiTrovate();
}

void ElencoRegistrazioni::Prosegui() {
  QElapsedTimer turno;
  turno.start();
  auto& modello = Righe().Modello();
  while (sotto_ > 1 && modello.rowCount() < kTrovateMassime && turno.elapsed() < kTempoTurno) {
    const std::int64_t oltre = std::max<std::int64_t>(0, sotto_ - 1 - kTratto);
    const auto letti = lettore_.Pagina(ricerca_, sotto_, oltre, kPagina);
    const bool altri = letti.size() == static_cast<std::size_t>(kPagina);
    sotto_ = altri ? letti.back().numero : oltre + 1;
    modello.Aggiungi(ComeRighe(letti));
  }
  if (sotto_ > 1 && modello.rowCount() < kTrovateMassime) {
    Stato().setText(tr("cerco... (fino al n. %1)").arg(sotto_));
    Ripresa().start(0);
    return;
  }
  DiTrovate();
}

void ElencoRegistrazioni::DiTrovate() {
  const int trovate = Righe().Modello().rowCount();
  if (trovate >= kTrovateMassime) {
    Stato().setText(tr("le ultime %1: restringere la ricerca").arg(trovate));
  } else {
    Stato().setText(trovate == 0   ? tr("nessuna registrazione")
                    : trovate == 1 ? tr("1 registrazione")
                                   : tr("%1 registrazioni").arg(trovate));
  }
}

QString ElencoRegistrazioni::Descrizione(std::int64_t numero) {
  const auto letto = lettore_.Uno(numero);
  if (!letto) return {};
  QString testo = QString::fromStdString(letto->data.Testo());
  const QString dare = QString::fromStdString(letto->dare);
  const QString avere = QString::fromStdString(letto->avere);
  if (!dare.isEmpty() || !avere.isEmpty()) {
    testo += QStringLiteral("   %1  →  %2").arg(dare, avere);
  }
  return testo;
}

}  // namespace fenalto::screens
