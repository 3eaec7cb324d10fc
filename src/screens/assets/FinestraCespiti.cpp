#include "screens/assets/FinestraCespiti.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/assets/PaginaAmmortamenti.h"
#include "screens/assets/PaginaCespite.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/ElencoCercato.h"
#include "screens/common/lists/SelettoreArticolo.h"
#include "screens/common/windows/FunzioniCorrelate.h"
#include "screens/ledger/FinestraMovimenti.h"

namespace fenalto::screens {
namespace {

QString TitoloCespiti() {
  return QObject::tr("Cespiti e Ammortamenti");
}

QString DiTrovati(const FormaElenco::Letti& letti) {
  if (letti.righe == 0) return letti.cercato ? QObject::tr("nessun cespite") : QString();
  const QString quanti =
      letti.righe == 1 ? QObject::tr("1 cespite") : QObject::tr("%1 cespiti").arg(letti.righe);
  return letti.finito ? quanti : QObject::tr("i primi %1").arg(letti.righe);
}

}  // namespace

FinestraCespiti::FinestraCespiti(Finestre& finestre)
    : FinestraDuePagine(QStringLiteral("Cespiti"), TitoloCespiti(), finestre),
      cespiti_(finestre.Sessione()),
      lettore_(finestre.Sessione()),
      pagina_(new PaginaCespite(cespiti_, finestre)),
      ammortamenti_(new PaginaAmmortamenti(finestre)) {
  Disponi(CreaScelta(), tr("Ricerca"), pagina_);
  AggiungiPagina(ammortamenti_, tr("Ammortamenti e stampe"));
  Collega();
  MostraTitolo();
  elenco_->Ricarica();
  selettore_->Foco();
}

FinestraCespiti::~FinestraCespiti() {
  TogliPagine();
}

QWidget* FinestraCespiti::CreaScelta() {
  auto* pagina = new QWidget;
  auto* colonna = new QVBoxLayout(pagina);
  auto* sopra = new QHBoxLayout;
  selettore_ = new SelettoreArticolo(
      [this](std::int64_t numero) {
        const QString testo = QString::fromStdString(lettore_.Testo(numero));
        return testo.isEmpty() ? tr("non c'è un cespite con questo numero") : testo;
      },
      this);
  selettore_->Disponi(*sopra, 1, tr("Cespite n."));
  nuovo_ = Pulsante(QStringLiteral("Nuovo"), tr("Nuovo cespite"), tr("Ins"));
  QList<QAbstractButton*> pulsanti{selettore_->PulsanteApri(), nuovo_};
  constexpr FunzioneCorrelata kCategorie{"FunzCor01", "Categorie cespiti", "CategorieCespiti"};
  sopra->addWidget(PulsanteFunzione(Gestore(), kCategorie, pulsanti));
  sopra->addWidget(nuovo_);
  elenco_ = new ElencoCercato(
      {.finestra = Nome(),
       .griglia = QStringLiteral("ElencoCespiti"),
       .cerca = QStringLiteral("CercaCespiti"),
       .stato = QStringLiteral("StatoRicerca"),
       .segnaposto = tr("numero, codice, categoria o parte di descrizione, serie, ubicazione"),
       .colonne = {{tr("N."), Tipo::Intero, 70, 2, QStringLiteral("NCesp")},
                   {tr("Codice"), Tipo::Testo, 110},
                   {tr("Descrizione"), Tipo::Testo, 320},
                   {tr("Categoria"), Tipo::Testo, 80, 2, QStringLiteral("Cat")},
                   {tr("In funzione dal"), Tipo::Data, 110, 2, QStringLiteral("Dal")},
                   {tr("Stato"), Tipo::Testo, 110}},
       .testo = DiTrovati,
       .subito = true,
       .ordinabile = true},
      lettore_);
  elenco_->Griglia().QuandoVuota(tr("nessun cespite: Ins, o Nuovo cespite, per il primo"));
  selettore_->Segui(*elenco_);
  colonna->addLayout(sopra);
  colonna->addWidget(elenco_, 1);
  AssegnaMnemoniche(pulsanti);
  return pagina;
}

void FinestraCespiti::Collega() {
  connect(selettore_, &SelettoreArticolo::ApriChiesto, this, &FinestraCespiti::Apri);
  connect(nuovo_, &QPushButton::clicked, this, &FinestraCespiti::Nuovo);
  connect(pagina_, &PaginaCespite::CorrelatoScelto, this, &FinestraCespiti::Apri);
  connect(ammortamenti_, &PaginaAmmortamenti::CespiteScelto, this, &FinestraCespiti::Apri);
  connect(ammortamenti_, &PaginaAmmortamenti::Cambiati, this, &FinestraCespiti::AggiornaScelta);
  connect(ammortamenti_, &PaginaAmmortamenti::RegistrazioneProposta, this,
          &FinestraCespiti::Registra);
  connect(ammortamenti_, &PaginaAmmortamenti::LiberaChiesto, this, [this](bool& libera) {
    if (!Aperta()) return;
    // The card would be written over what the function writes.
    libera = !Gestore().ControlloUscita(*this);
    if (!libera) return;
    Abbandona();
    GiraA(ammortamenti_);
  });
}

void FinestraCespiti::MostraTitolo() {
  const QString aperto = QString::fromStdString(cespiti_.Titolo());
  setWindowTitle(aperto.isEmpty() ? TitoloCespiti()
                                  : TitoloCespiti() + QStringLiteral(" - ") + aperto);
  TitoloRecord(aperto.isEmpty() ? tr("Cespite") : aperto);
}

void FinestraCespiti::MostraCespite() {
  MostraTitolo();
  EntraInRegistrazione();
}

void FinestraCespiti::Apri(std::int64_t numero) {
  if (!Lascia()) return;
  if (cespiti_.Apri(numero)) {
    selettore_->Seleziona(numero);
    MostraCespite();
  } else {
    selettore_->Foco();
  }
}

void FinestraCespiti::Nuovo() {
  if (!Lascia()) return;
  cespiti_.Nuovo();
  MostraCespite();
}

void FinestraCespiti::NuovoDa(const Rinvio& fattura) {
  if (!Lascia()) return;
  if (cespiti_.NuovoDaFattura(fattura.anno, fattura.Numero())) MostraCespite();
}

void FinestraCespiti::ApriRecord(const Rinvio& rinvio) {
  if (rinvio.classe == kCespiteDaFattura) return NuovoDa(rinvio);
  FinestraDuePagine::ApriRecord(rinvio);
}

void FinestraCespiti::Registra(const ledger::PropostaRegistrazione& proposta) {
  // The registration's window may be the one that is refused.
  auto* finestra = dynamic_cast<FinestraMovimenti*>(Gestore().Segui({.funzione = "Movimenti"}));
  if (finestra != nullptr) finestra->Proponi(proposta);
}

void FinestraCespiti::DopoRegistrazione(std::int64_t numero) {
  if (numero != 0) selettore_->Seleziona(numero);
  AggiornaScelta();
  FocoInVista(nuovo_);
}

void FinestraCespiti::ChiudiRecord() {
  cespiti_.Abbandona();
  MostraTitolo();
}

bool FinestraCespiti::IndietroDaScelta() {
  return elenco_->SvuotaRicerca();
}

void FinestraCespiti::FocoScelta() {
  selettore_->Foco();
}

void FinestraCespiti::AggiornaScelta() {
  elenco_->Rileggi();
  selettore_->Descrivi();
}

}  // namespace fenalto::screens
