#include "screens/ledger/closing/PaginaTrasporto.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/Attesa.h"

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;
using records::GenereCampo;
using records::Mostrato;

constexpr int kCifreContropartita = 10;
constexpr int kLargoPercorso = 56;
constexpr int kLunghezzaPercorsoDb = 1'000;
constexpr int kAltezzaArchivi = 70;
/// After the columns shown: the line's place in the list, which sorting doesn't change.
constexpr std::size_t kPostoSaldo = 4;

records::DescrizioneForma FormaTrasporto(int anno) {
  constexpr const char* kSaldi = "FrameSaldi";
  constexpr const char* kAvanzate = "FrameAvanzate";
  return {.campi = {Digitato("NuovoAnnoSaldi", "anno che riceve i saldi").In(kSaldi),
                    Digitato("DtSaldi", "data delle registrazioni").In(kSaldi).Accanto(),
                    Digitato("TrasportoDefinitivo", "trasporto DEFINITIVO saldi (causale APE)")
                        .In(kSaldi)
                        .Accanto(),
                    DiCodice("Contropartita", "contropartita", "contropartite", kCifreContropartita)
                        .In(kSaldi)
                        .Peso(1),
                    Mostrato("pLetturaSaldi", GenereCampo::Pulsante,
                             "Lettura saldi anno " + std::to_string(anno))
                        .In(kSaldi),
                    Digitato("NuovoNomeDbCont2Saldi", "archivio che riceve i saldi",
                             kLunghezzaPercorsoDb)
                        .In(kAvanzate)
                        .Mostra(kLargoPercorso),
                    Mostrato("pAbilitaVariazNomeSaldi", GenereCampo::Pulsante,
                             "Scelgo un altro archivio")
                        .In(kAvanzate)
                        .Accanto()},
          .riquadri = {{.nome = kSaldi,
                        .titolo = "Trasporto dei saldi finali " + std::to_string(anno),
                        .largo = true},
                       {.nome = kAvanzate, .titolo = "opzioni avanzate", .largo = true}}};
}

}  // namespace

PaginaTrasporto::PaginaTrasporto(Finestre& finestre)
    : PaginaTrasporto(finestre, std::make_unique<ledger::TrasportoSaldi>(finestre.Sessione())) {}

PaginaTrasporto::PaginaTrasporto(Finestre& finestre,
                                 std::unique_ptr<ledger::TrasportoSaldi> trasporto)
    : PaginaDiForma(finestre, trasporto->Dati()), trasporto_(std::move(trasporto)) {
  CreaLista();
  archivi_ = new QListWidget;
  archivi_->setObjectName(QStringLiteral("File1Saldi"));
  archivi_->setMaximumHeight(Cresciuta(kAltezzaArchivi));
  archivi_->setToolTip(tr("doppio clic: l'archivio che riceve i saldi"));
  archivi_->hide();
  auto* colonna = new QVBoxLayout(this);
  auto* campi = new QVBoxLayout;
  colonna->addLayout(campi);
  colonna->addWidget(archivi_);
  colonna->addWidget(lista_, 1);
  auto* piede = new QHBoxLayout;
  piede->addWidget(togli_);
  piede->addWidget(totale_, 1);
  piede->addSpacing(Misura(Passo::Stacco));
  auto* conferma = Pulsante(QStringLiteral("pConfermaSaldi"), tr("Conferma trasporto saldi"));
  piede->addWidget(conferma);
  colonna->addLayout(piede);
  Compila(FormaTrasporto(finestre.Sessione().Anno()), *campi);
  const auto rifiutato = [this] { return trasporto_->CampoRifiutato(); };
  const auto nessuno = [] { return std::string(); };
  Premuto(
      "pLetturaSaldi",
      [this] {
        const Attesa attesa;
        trasporto_->LetturaSaldi();
        MostraLista();
        return false;
      },
      nessuno);
  connect(conferma, &QPushButton::clicked, this,
          [this, rifiutato] { Esegui([this] { return trasporto_->ConfermaSaldi(); }, rifiutato); });
  Premuto(
      "pAbilitaVariazNomeSaldi",
      [this] {
        AbilitaNome();
        return false;
      },
      nessuno);
  connect(archivi_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* voce) {
    trasporto_->Dati().Scrivi("NuovoNomeDbCont2Saldi", voce->text().toStdString());
    Mostra();
  });
  MostraLista();
  Mostra();
}

void PaginaTrasporto::CreaLista() {
  lista_ = new Griglia(QStringLiteral("ListSaldi"), QStringLiteral("ChiusureAperture"),
                       {{tr("C/F/P"), Tipo::Testo, 50, 2, QStringLiteral("CFP")},
                        {tr("Conto"), Tipo::Testo, 100, 2, QStringLiteral("Conto|Cod")},
                        {tr("Descrizione"), Tipo::Testo, 320},
                        {tr("Saldo"), Tipo::Importo, 140}});
  lista_->Elastica(2);
  lista_->QuandoVuota(tr("premere «Lettura saldi»: i saldi da trasportare si vedono qui"));
  togli_ = Pulsante(QStringLiteral("EliminaRiga"), tr("Tolgo la riga"), tr("Ctrl+Canc"));
  lista_->Modello().Decimali(Gestore().Sessione().Euro() ? 2 : 0);
  totale_ = new QLabel;
  totale_->setObjectName(QStringLiteral("TotaleSaldi"));
  totale_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  connect(togli_, &QPushButton::clicked, this, [this] { TogliRiga(); });
  auto* canc = new QShortcut(QKeySequence(Qt::Key_Delete), lista_);
  canc->setContext(Qt::WidgetShortcut);
  connect(canc, &QShortcut::activated, this, [this] { TogliRiga(); });
}

void PaginaTrasporto::MostraLista() {
  Importo somma;
  std::vector<std::vector<Valore>> righe;
  righe.reserve(trasporto_->Lista().size());
  for (const ledger::VoceSaldo& voce : trasporto_->Lista()) {
    righe.push_back({voce.cfp, voce.conto, voce.descrizione, voce.saldo,
                     static_cast<std::int64_t>(righe.size())});
    somma += voce.saldo;
  }
  totale_->setText(tr("%1 saldi    somma %2")
                       .arg(righe.size())
                       .arg(Qs(ScriviImporto(somma, Gestore().Sessione().Euro() ? 2 : 0))));
  togli_->setEnabled(!righe.empty());
  lista_->Modello().Righe(std::move(righe));
}

void PaginaTrasporto::TogliRiga() {
  const int riga = lista_->RigaCorrente();
  if (riga < 0) return;
  trasporto_->TogliSaldo(
      static_cast<std::size_t>(lista_->Modello().Riga(riga)[kPostoSaldo].Intero()));
  MostraLista();
  const int righe = lista_->Modello().rowCount();
  if (righe > 0) lista_->VaiARiga(std::min(riga, righe - 1));
  lista_->setFocus();
}

void PaginaTrasporto::AbilitaNome() {
  nomeLibero_ = true;
  archivi_->clear();
  for (const auto& file : trasporto_->ArchiviTrovati()) archivi_->addItem(Qs(file.string()));
  archivi_->show();
}

records::StatoCampo PaginaTrasporto::Stato(const std::string& campo) const {
  if (campo == "NuovoNomeDbCont2Saldi") return {.attivo = nomeLibero_};
  if (campo == "pAbilitaVariazNomeSaldi") return {.attivo = !nomeLibero_};
  return {};
}

}  // namespace fenalto::screens
