#include "screens/ledger/PaginaRegistrazione.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/lists/PiedeGriglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/rows/PannelloAllegati.h"
#include "screens/ledger/RiquadroRiga.h"

namespace fenalto::screens {
namespace {

using records::Digitato;
using records::Mostrato;
using Genere = records::GenereCampo;

records::DescrizioneForma FormaTesta() {
  return {.campi = {Digitato("NumDoc", "Articolo n.", 9)
                        .Aiuto("vuoto: lo assegna il programma alla conferma"),
                    Mostrato("ProbabileNumDoc", Genere::Etichetta, "probabile n.").Accanto(),
                    Digitato("Dt", "Data")
                        .Accanto()
                        .Aiuto("15, 1503, 150324 o 15/3: il resto si completa da solo"),
                    Mostrato("AnnoRegistrazione", Genere::Etichetta, "Anno").Accanto(),
                    Mostrato("AvvisoData", Genere::Etichetta).Accanto(),
                    Digitato("Duplicabile", "duplicabile")
                        .Turno(1)
                        .Aiuto("la registrazione si offre come modello per quelle nuove"),
                    Digitato("DescrArtDupl", "Modello")
                        .Accanto()
                        .Turno(1)
                        .Segnaposto("nome nell'elenco delle registrazioni duplicabili")
                        .Peso(1)},
          .stretta = true};
}

records::StatoCampo StatoTesta(ledger::Primanota& primanota, const std::string& nome) {
  const auto& testa = primanota.Testa();
  if (nome == "ProbabileNumDoc") {
    return {.didascalia = testa.Testo(nome).empty() ? "" : "probabile n."};
  }
  if (nome == "AnnoRegistrazione") return {.testo = testa.Testo("Anno")};
  if (nome != "AvvisoData") return {};
  const Data registrata = testa.Leggi("Dt").Data();
  const bool altroAnno = !registrata.Nulla() && registrata.Anno() != testa.Leggi("Anno").Intero();
  return {.testo = altroAnno ? "data di un altro anno" : ""};
}

/// A total: to be read and copied, never typed into.
CampoImporto* Totale(const char* nome, int decimali) {
  auto* campo = new CampoImporto(QString::fromLatin1(nome), nullptr, decimali);
  campo->setReadOnly(true);
  campo->setFocusPolicy(Qt::ClickFocus);
  return campo;
}

}  // namespace

PaginaRegistrazione::PaginaRegistrazione(ledger::Primanota& primanota, Finestre& finestre,
                                         QWidget* genitore)
    : PaginaSul(primanota, finestre, genitore) {
  constexpr int kRigheMinime = 4;
  Usa(CreaGriglia(), kRigheMinime, new RiquadroRiga(caso_, finestre_));
  allegati_ = new PannelloAllegati(AllegatiDi(caso_), finestre_);
  solaLettura_->setText(tr("Registrazione in modifica altrove: si può consultare, non cambiare."));
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(CreaTestata());
  colonna->addWidget(solaLettura_);
  colonna->addWidget(righe_, 1);
  colonna->addWidget(CreaTotali());
  colonna->addWidget(riga_);
  colonna->addWidget(CreaPiede());
  OrdinaFuochi(testa_->Ordine() +
               QList<QWidget*>{nuovaRiga_, righe_, conferma_, elimina_, annulla_, automatiche_} +
               testa_->Ordine(1));
  connect(automatiche_, &QCheckBox::clicked, this, [this](bool attive) {
    caso_.ContropAutomatiche(attive);
    Mostra();
  });
  AssegnaMnemoniche(QList<QAbstractButton*>{conferma_, nuovaRiga_, elimina_} + riga_->Pulsanti() +
                    QList<QAbstractButton*>{annulla_} + allegati_->Pulsanti());
}

Griglia* PaginaRegistrazione::CreaGriglia() {
  return new Griglia(
      QStringLiteral("GrigliaRighe"), QStringLiteral("Movimenti"),
      {{tr("Posizione"), Tipo::Intero, 50, 2, QStringLiteral("Posi")},
       {tr("Causale"), Tipo::Testo, 60},
       {tr("Descrizione causale"), Tipo::Testo, 130, 2,
        QStringLiteral("Descr. causale|DescrCausale")},
       {tr("Descrizione"), Tipo::Testo, 170},
       {tr("C/F/P"), Tipo::Testo, 40, 2, QStringLiteral("CFP")},
       {tr("Conto"), Tipo::Testo, 80},
       {tr("Descrizione conto"), Tipo::Testo, 180, 2, QStringLiteral("Descr. conto|DescrConto")},
       {tr("Dare"), Tipo::Importo, 100, 2, QStringLiteral("Dare|ImpoDare")},
       {tr("Avere"), Tipo::Importo, 100, 2, QStringLiteral("Avere|ImpoAvere")},
       {tr("Contropartita"), Tipo::Testo, 80, 2, QStringLiteral("Controp.|ContoControp")},
       {tr("Diversi"), Tipo::Booleano, 50, 2, QStringLiteral("Diversi|DiversiControp")}});
}

QWidget* PaginaRegistrazione::CreaTestata() {
  auto* testata = new QWidget;
  auto* riga = new QHBoxLayout(testata);
  riga->setContentsMargins(0, 0, 0, 0);
  auto* campi = new QVBoxLayout;
  testa_ = Compila(FormaTesta(), *campi);
  campi->addStretch(1);
  riga->addLayout(campi, 3);
  riga->addWidget(allegati_, 2);
  testata->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  return testata;
}

QWidget* PaginaRegistrazione::CreaTotali() {
  constexpr int kColonnaDare = 7;
  const int decimali = finestre_.Sessione().Euro() ? 2 : 0;
  totDare_ = Totale("TotDare", decimali);
  totAvere_ = Totale("TotAvere", decimali);
  sbilancio_ = Totale("Sbilancio", decimali);
  constexpr int kCifre = 16;
  LargoCaratteri(sbilancio_, kCifre);
  totDare_->setAccessibleName(tr("Totale dare"));
  totAvere_->setAccessibleName(tr("Totale avere"));
  auto* piede = new PiedeGriglia(*righe_, tr("Totali"));
  piede->Metti(kColonnaDare, totDare_);
  piede->Metti(kColonnaDare + 1, totAvere_);
  return piede;
}

QWidget* PaginaRegistrazione::CreaPiede() {
  auto* piede = new QWidget;
  auto* riga = new QHBoxLayout(piede);
  riga->setContentsMargins(0, 0, 0, 0);
  automatiche_ = new QCheckBox(tr("contropartite automatiche"));
  automatiche_->setObjectName(QStringLiteral("ContropAutomatiche"));
  riga->addWidget(Didascalia(tr("Sbilancio"), sbilancio_));
  riga->addWidget(sbilancio_);
  riga->addSpacing(Misura(Passo::Gruppo));
  riga->addWidget(automatiche_);
  riga->addStretch(1);
  for (auto* pulsante : {nuovaRiga_, conferma_, elimina_, annulla_}) riga->addWidget(pulsante);
  return piede;
}

// --- What is shown ----------------------------------------------------------------------------

void PaginaRegistrazione::Mostra() {
  const bool scrivibile = !caso_.SolaLettura();
  for (QWidget* campo :
       std::initializer_list<QWidget*>{automatiche_, nuovaRiga_, conferma_, elimina_}) {
    campo->setEnabled(scrivibile);
  }
  solaLettura_->setVisible(!scrivibile);
  testa_->Applica([this](const std::string& nome) { return StatoTesta(caso_, nome); }, !scrivibile);
  legatura_->Mostra();
  automatiche_->setChecked(caso_.ContropAutomatiche());
  MostraElencoRighe();
  MostraTotali();
  allegati_->Mostra();
  MostraRiquadro();
}

void PaginaRegistrazione::MostraElencoRighe() {
  std::vector<std::vector<Valore>> righe;
  for (const auto& riga : caso_.Righe()) {
    righe.push_back({riga.posi, riga.causale, riga.descrCausale, riga.descrizione, riga.cfp,
                     riga.conto, riga.descrConto, riga.impoDare, riga.impoAvere, riga.contoControp,
                     riga.diversiControp, riga.num});
  }
  MostraRighe(std::move(righe));
}

void PaginaRegistrazione::MostraTotali() {
  totDare_->Mostra(caso_.TotDare());
  totAvere_->Mostra(caso_.TotAvere());
  sbilancio_->Mostra(caso_.Sbilancio());
  ColoraErrato(sbilancio_, !caso_.Sbilancio().Zero());
}

void PaginaRegistrazione::FocoData() {
  testa_->Controllo("Dt").setFocus();
}

QList<QList<QWidget*>> PaginaRegistrazione::OrdineTesta() const {
  return {testa_->Ordine(), testa_->Ordine(1)};
}

// --- Rows -------------------------------------------------------------------------------------

void PaginaRegistrazione::ApriRiga(int indice) {
  if (!legatura_->Raccogli()) return;
  if (!caso_.ApriRiga(righe_->Modello().Riga(indice).back().Intero())) return;
  riga_->Entra();
  righe_->VaiARiga(indice);
}

void PaginaRegistrazione::NuovaRiga() {
  if (!Raccogli() || !caso_.PNuovaRiga()) return;
  riga_->Entra();
}

// --- Registration -----------------------------------------------------------------------------

std::optional<std::int64_t> PaginaRegistrazione::ConfermaRegistrazione() {
  std::string campo;
  if (caso_.Conferma(&campo)) return caso_.NumeroConfermato();
  Mostra();
  VaiA(campo);
  return std::nullopt;
}

bool PaginaRegistrazione::EliminaRegistrazione() {
  if (caso_.Elimina()) return true;
  Mostra();
  return false;
}

}  // namespace fenalto::screens
