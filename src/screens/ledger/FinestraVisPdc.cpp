#include "screens/ledger/FinestraVisPdc.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <map>

#include "core/values/Testo.h"
#include "ledger/accounts/PianoDeiConti.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

enum Colonna { kCodice, kDescrizione, kClasse, kLettera };

/// Archive behind a row.
constexpr int kArchivio = Qt::UserRole;

QTreeWidgetItem* Riga(const ledger::VocePiano& voce, const char* archivio) {
  auto* riga = new QTreeWidgetItem(
      {QString::fromStdString(voce.cod), QString::fromStdString(voce.descrizione),
       QString::fromStdString(voce.cfp), QString::fromStdString(voce.patrEcon)});
  riga->setData(kCodice, kArchivio, QString::fromLatin1(archivio));
  return riga;
}

void Grassetto(QTreeWidgetItem& riga) {
  auto carattere = riga.font(kCodice);
  carattere.setBold(true);
  for (const int colonna : {kCodice, kDescrizione, kClasse, kLettera}) {
    riga.setFont(colonna, carattere);
  }
}

/// Whether the row's code begins with the text or its description holds it, without case and
/// accents.
bool Risponde(const QTreeWidgetItem& riga, const std::string& cercato) {
  return PerRicerca(riga.text(kCodice).toStdString()).starts_with(cercato) ||
         PerRicerca(riga.text(kDescrizione).toStdString()).find(cercato) != std::string::npos;
}

}  // namespace

struct FinestraVisPdc::Interno {
  Interno(FinestraVisPdc& finestraUsata, Finestre& gestoreUsato);
  void Leggi();
  void Filtra();
  void VaiA(const QString& codice);
  void Apri(const QTreeWidgetItem* riga);

  FinestraVisPdc& finestra;
  Finestre& gestore;
  QLineEdit* cerca;
  QLabel* stato;
  QTreeWidget* albero;
};

FinestraVisPdc::Interno::Interno(FinestraVisPdc& finestraUsata, Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      cerca(new QLineEdit),
      stato(new EtichettaElisa),
      albero(new QTreeWidget) {
  constexpr int kLargoCodice = 130;
  constexpr int kLargoDescrizione = 380;
  constexpr int kLargoLettera = 60;
  cerca->setObjectName(QStringLiteral("CercaConti"));
  cerca->setPlaceholderText(tr("codice o parte della descrizione"));
  cerca->setClearButtonEnabled(true);
  stato->setObjectName(QStringLiteral("StatoConti"));
  albero->setObjectName(QStringLiteral("AlberoConti"));
  albero->setHeaderLabels({tr("Codice"), tr("Descrizione"), tr("C F P"), tr("P/E")});
  albero->setUniformRowHeights(true);
  albero->setExpandsOnDoubleClick(false);
  albero->header()->resizeSection(kCodice, Cresciuta(kLargoCodice));
  albero->header()->resizeSection(kDescrizione, Cresciuta(kLargoDescrizione));
  albero->header()->resizeSection(kClasse, Cresciuta(kLargoLettera));
  auto* sopra = new QHBoxLayout;
  Affianca(*sopra, tr("Cerca"), cerca, 1);
  sopra->addWidget(stato);
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addLayout(sopra);
  colonna->addWidget(albero, 1);
  connect(cerca, &QLineEdit::textChanged, &finestra, [this] { Filtra(); });
  connect(albero, &QTreeWidget::itemDoubleClicked, &finestra,
          [this](const QTreeWidgetItem* riga) { Apri(riga); });
}

void FinestraVisPdc::Interno::Leggi() {
  const auto* corrente = albero->currentItem();
  const QString codice = corrente == nullptr ? QString() : corrente->text(kCodice);
  albero->clear();
  const auto piano = ledger::LeggiPiano(gestore.Sessione());
  std::map<std::string, QTreeWidgetItem*> mastri;
  QList<QTreeWidgetItem*> righe;
  for (const auto& voce : piano.mastri) {
    auto* mastro = Riga(voce, "MASTRI");
    Grassetto(*mastro);
    mastri.emplace(SenzaMaiuscole(voce.cod), mastro);
    righe.append(mastro);
  }
  // What no master leads to stands by itself, last.
  for (const auto& voce : piano.conti) {
    auto* conto = Riga(voce, "CONTI");
    const std::string cod = SenzaMaiuscole(voce.cod);
    auto padre = mastri.end();
    for (auto punto = cod.find('.'); punto != std::string::npos && padre == mastri.end();
         punto = cod.find('.', punto + 1)) {
      padre = mastri.find(cod.substr(0, punto));
    }
    if (padre == mastri.end()) {
      righe.append(conto);
    } else {
      padre->second->addChild(conto);
    }
  }
  albero->addTopLevelItems(righe);
  albero->expandAll();
  Filtra();
  VaiA(codice);
}

void FinestraVisPdc::Interno::Filtra() {
  const std::string cercato = PerRicerca(cerca->text().trimmed().toStdString());
  int conti = 0;
  QTreeWidgetItem* primo = nullptr;
  for (int m = 0; m < albero->topLevelItemCount(); ++m) {
    auto* mastro = albero->topLevelItem(m);
    const bool tutto = cercato.empty() || Risponde(*mastro, cercato);
    if (tutto && mastro->data(kCodice, kArchivio) == QStringLiteral("CONTI")) ++conti;
    bool qualcuno = tutto;
    for (int c = 0; c < mastro->childCount(); ++c) {
      auto* conto = mastro->child(c);
      const bool trovato = tutto || Risponde(*conto, cercato);
      conto->setHidden(!trovato);
      qualcuno = qualcuno || trovato;
      if (!trovato) continue;
      ++conti;
      // A code typed whole leads to its account, not to the master above it.
      if (primo == nullptr) primo = conto;
    }
    mastro->setHidden(!qualcuno);
    if (qualcuno && primo == nullptr) primo = mastro;
  }
  stato->setText(conti == 1 ? tr("1 conto") : tr("%1 conti").arg(conti));
  if (!cercato.empty()) albero->setCurrentItem(primo);
}

void FinestraVisPdc::Interno::VaiA(const QString& codice) {
  if (codice.isEmpty()) return;
  const auto trovate =
      albero->findItems(codice, Qt::MatchFixedString | Qt::MatchRecursive, kCodice);
  if (!trovate.isEmpty()) albero->setCurrentItem(trovate.front());
}

void FinestraVisPdc::Interno::Apri(const QTreeWidgetItem* riga) {
  if (riga == nullptr) return;
  gestore.Segui(AllArchivio(riga->data(kCodice, kArchivio).toString().toStdString(),
                            riga->text(kCodice).toStdString()));
}

FinestraVisPdc::FinestraVisPdc(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("VisPdc"), tr("Piano dei conti"), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
  interno_->cerca->setFocus();
}

FinestraVisPdc::~FinestraVisPdc() {
  hide();
}

void FinestraVisPdc::ApriRecord(const Rinvio& rinvio) {
  interno_->cerca->clear();
  interno_->VaiA(QString::fromStdString(rinvio.codice));
}

void FinestraVisPdc::ApriScheda(int /*scheda*/) {
  interno_->Leggi();
  interno_->cerca->setFocus();
  interno_->cerca->selectAll();
}

void FinestraVisPdc::Aggiorna() {
  interno_->Leggi();
}

bool FinestraVisPdc::eventFilter(QObject* oggetto, QEvent* evento) {
  if (interno_ == nullptr || evento->type() != QEvent::KeyPress) {
    return FinestraFunzione::eventFilter(oggetto, evento);
  }
  const int tasto = static_cast<QKeyEvent*>(evento)->key();
  const bool invio = tasto == Qt::Key_Return || tasto == Qt::Key_Enter;
  // From the search line straight into what it has found.
  if (oggetto == interno_->cerca && tasto == Qt::Key_Down) {
    interno_->albero->setFocus();
    return true;
  }
  if (invio && (oggetto == interno_->albero ||
                (oggetto == interno_->cerca && !interno_->cerca->text().trimmed().isEmpty()))) {
    interno_->Apri(interno_->albero->currentItem());
    return true;
  }
  return FinestraFunzione::eventFilter(oggetto, evento);
}

}  // namespace fenalto::screens
