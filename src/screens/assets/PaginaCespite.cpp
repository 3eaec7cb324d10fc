#include "screens/assets/PaginaCespite.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "assets/CategorieCespiti.h"
#include "assets/LineeScheda.h"
#include "screens/assets/GraficoCespite.h"
#include "screens/assets/RiquadroCespite.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;
using records::Mostrato;
using Genere = records::GenereCampo;

constexpr int kAnniPrevisti = 12;
constexpr int kCaratteriNote = 4'000;
constexpr int kAltezzaMinima = 60;

records::DescrizioneForma FormaTestaCespite() {
  return {.campi = {Mostrato("NCesp", Genere::Etichetta, "N.Cespite"),
                    Digitato("Codice", "Codice").Mostra(12).Accanto(),
                    Digitato("sn", "Serie n.").Mostra(14).Accanto().Aiuto("di serie o di telaio"),
                    Digitato("Usato", "usato").Accanto().Aiuto("comprato usato"),
                    Digitato("Descrizione", "Descrizione").Mostra(40).Peso(1),
                    DiCodice("Cat", "Categoria", "categorieCespiti", 8).Peso(1),
                    Digitato("Dal", "In funzione dal").Aiuto("data entrata in funzione"),
                    Digitato("Ubicaz", "Ubicazione").Accanto().Mostra(16).Peso(1),
                    DiCodice("CespCorr", "Cesp. di riferimento", "cespiti", 8)
                        .Peso(1)
                        .Aiuto("il cespite principale a cui questo è legato: l'allarme al camion")},
          .stretta = true};
}

Valore OpzioneImporto(const std::optional<Importo>& importo) {
  return importo ? Valore(*importo) : Valore();
}

}  // namespace

PaginaCespite::PaginaCespite(assets::Cespiti& cespiti, Finestre& finestre, QWidget* genitore)
    : PaginaSul(cespiti, finestre, genitore) {
  constexpr int kRigheMinime = 2;
  Usa(CreaGriglia(), kRigheMinime, new RiquadroCespite(caso_, finestre_));
  righe_->Modello().Decimali(2);
  solaLettura_->setText(tr("Cespite in modifica altrove: si può consultare, non cambiare."));
  auto* colonna = new QVBoxLayout(this);
  const int margine = Misura(Passo::Filo);
  colonna->setContentsMargins(margine, margine, margine, margine);
  colonna->setSpacing(margine);
  colonna->addWidget(CreaTestata());
  colonna->addWidget(solaLettura_);
  colonna->addWidget(CreaScheda(), 1);
  colonna->addWidget(riga_);
  colonna->addWidget(CreaPiede());
  OrdinaFuochi(testa_->Ordine() +
               QList<QWidget*>{nuovaRiga_, righe_, conferma_, elimina_, annulla_});
  AssegnaMnemoniche(QList<QAbstractButton*>{conferma_, nuovaRiga_, elimina_} + riga_->Pulsanti() +
                    QList<QAbstractButton*>{annulla_});
}

Griglia* PaginaCespite::CreaGriglia() {
  const auto chiave = [](const char* nome) { return QString::fromLatin1(nome); };
  return new Griglia(QStringLiteral("GrigliaRighe"), QStringLiteral("Cespiti"),
                     {{tr("Riga"), Tipo::Intero, 45, 2, chiave("Posi")},
                      {tr("Anno"), Tipo::Intero, 55},
                      {tr("Causale"), Tipo::Testo, 60, 2, chiave("Cau")},
                      {tr("Descrizione causale"), Tipo::Testo, 140, 2, chiave("DescrCau")},
                      {tr("Estremi"), Tipo::Testo, 220},
                      {tr("%"), Tipo::Importo, 65, 2, chiave("P")},
                      {tr("Importo"), Tipo::Importo, 110},
                      {tr("Fondo"), Tipo::Importo, 110, 2, chiave("StornoFondoDismParz")},
                      {tr("Note"), Tipo::Testo, 160}});
}

QWidget* PaginaCespite::CreaTestata() {
  auto* testata = new QWidget;
  auto* riga = new QHBoxLayout(testata);
  riga->setContentsMargins(0, 0, 0, 0);
  auto* campi = new QVBoxLayout;
  testa_ = Compila(FormaTestaCespite(), *campi);
  campi->addStretch(1);
  grafico_ = new GraficoCespite;
  riga->addLayout(campi, 3);
  riga->addWidget(grafico_, 2);
  testata->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  return testata;
}

QWidget* PaginaCespite::CreaScheda() {
  const auto chiave = [](const char* nome) { return QString::fromLatin1(nome); };
  schede_ = new QTabWidget;
  PreparaSchede(*schede_, QStringLiteral("SSTab2"));
  scheda_ = new Griglia(QStringLiteral("GrigliaScheda"), QStringLiteral("Cespiti"),
                        {{tr("Anno"), Tipo::Intero, 55},
                         {tr("Causale"), Tipo::Testo, 140, 2, chiave("DescrCau")},
                         {tr("Estremi"), Tipo::Testo, 200},
                         {tr("Importo"), Tipo::Importo, 100},
                         {tr("Costo"), Tipo::Importo, 100},
                         {tr("Fondo prec."), Tipo::Importo, 100, 2, chiave("FondoPrec")},
                         {tr("Quota anno"), Tipo::Importo, 100, 2, chiave("QuotaAnno")},
                         {tr("Accantonato"), Tipo::Importo, 100},
                         {tr("Residuo"), Tipo::Importo, 100}});
  scheda_->Segna([](const std::vector<Valore>& riga) { return !riga[4].Nullo(); });
  scheda_->QuandoVuota(tr("nessuna riga: la scheda comincia con il costo originario"));
  correlati_ =
      new Griglia(QStringLiteral("GridCespCorr"), QStringLiteral("Cespiti"),
                  {{tr("N."), Tipo::Intero, 60, 2, chiave("Ncesp")},
                   {tr("Codice"), Tipo::Testo, 100},
                   {tr("Descrizione"), Tipo::Testo, 260},
                   {tr("Categoria"), Tipo::Testo, 70, 2, chiave("Cat")},
                   {tr("Descrizione categoria"), Tipo::Testo, 220, 2, chiave("DescrCat")}});
  correlati_->QuandoVuota(tr("nessun cespite ha questo come riferimento"));
  correlati_->setToolTip(tr("doppio clic o Invio su una riga apre quel cespite"));
  const auto scegli = [this](int indice) {
    if (indice >= 0) emit CorrelatoScelto(correlati_->Modello().Riga(indice).front().Intero());
  };
  connect(correlati_, &Griglia::RigaDoppioClic, this, scegli);
  connect(correlati_, &Griglia::RigaInvio, this, scegli);
  schede_->addTab(righe_, tr("Righe"));
  schede_->addTab(scheda_, tr("Scheda"));
  schede_->addTab(correlati_, tr("Cespiti correlati"));
  // On a page of its own: the open row has notes too.
  note_ = new CampoNote(QStringLiteral("Note"), nullptr, kCaratteriNote);
  legatura_->Lega(note_);
  schede_->addTab(note_, tr("Note"));
  // The page fits small screens with a row open.
  for (auto* pagina : QList<QWidget*>{righe_, scheda_, correlati_, note_}) {
    pagina->setMinimumHeight(Cresciuta(kAltezzaMinima));
  }
  return schede_;
}

QWidget* PaginaCespite::CreaPiede() {
  auto* piede = new QWidget;
  auto* riga = new QHBoxLayout(piede);
  riga->setContentsMargins(0, 0, 0, 0);
  // What follows from the rows isn't typed.
  for (auto* stato :
       {Casella("AmmCompl", tr("ammortamento completato")), Casella("Dismesso", tr("dismesso"))}) {
    legatura_->Lega(stato);
    stato->setEnabled(false);
    riga->addWidget(stato);
  }
  riga->addStretch(1);
  for (auto* pulsante : {nuovaRiga_, conferma_, elimina_, annulla_}) riga->addWidget(pulsante);
  return piede;
}

// --- What is shown -------------------------------------------------------------------------------

void PaginaCespite::Entra() {
  schede_->setCurrentIndex(0);
  PaginaSul::Entra();
}

void PaginaCespite::Mostra() {
  const bool scrivibile = !caso_.SolaLettura();
  for (auto* pulsante : {nuovaRiga_, conferma_}) pulsante->setEnabled(scrivibile);
  elimina_->setEnabled(scrivibile && !caso_.Nuova());
  solaLettura_->setVisible(!scrivibile);
  testa_->Applica([](const std::string&) { return records::StatoCampo{}; }, !scrivibile);
  note_->setReadOnly(!scrivibile);
  legatura_->Mostra();
  MostraElencoRighe();
  MostraScheda();
  MostraGrafico();
  MostraCorrelati();
  MostraRiquadro();
}

void PaginaCespite::MostraElencoRighe() {
  const auto descrivi = assets::DescrizioniCausali(finestre_.Sessione());
  std::vector<std::vector<Valore>> righe;
  for (const assets::MovimentoCespite& riga : caso_.Righe()) {
    const auto seC = [](Importo importo) { return importo.Zero() ? Valore() : Valore(importo); };
    righe.push_back({riga.posi, riga.anno, riga.cau, descrivi(riga.cau), riga.estremi, seC(riga.p),
                     riga.importo, seC(riga.storno), riga.note});
  }
  MostraRighe(std::move(righe));
}

void PaginaCespite::MostraScheda() {
  const auto descrivi = assets::DescrizioniCausali(finestre_.Sessione());
  std::vector<std::vector<Valore>> righe;
  for (const assets::LineaScheda& linea :
       assets::LineeDi(caso_.Calcolata(), caso_.Righe(), descrivi)) {
    std::vector<Valore> celle = {linea.anno, linea.causale, linea.testo,
                                 OpzioneImporto(linea.importo)};
    if (linea.totali) {
      const assets::AnnoCespite& t = *linea.totali;
      celle.insert(celle.end(), {t.costo, t.fondoPrec, t.quota, t.accantonato, t.residuo});
    } else {
      celle.resize(9);
    }
    righe.push_back(std::move(celle));
  }
  scheda_->Modello().Righe(std::move(righe));
}

void PaginaCespite::MostraGrafico() {
  assets::Cespite cespite;
  cespite.dal = Testa().Leggi("Dal").Data();
  grafico_->Mostra(assets::PrevisioneCespite(
      cespite, caso_.Righe(), assets::LeggiAliquote(finestre_.Sessione(), Testa().Testo("Cat")),
      kAnniPrevisti));
}

void PaginaCespite::MostraCorrelati() {
  std::vector<std::vector<Valore>> righe;
  for (const assets::CespiteCorrelato& altro : caso_.Correlati()) {
    righe.push_back({altro.nCesp, altro.codice, altro.descrizione, altro.cat, altro.descrCat});
  }
  schede_->setTabText(
      2, righe.empty() ? tr("Cespiti correlati") : tr("Cespiti correlati (%1)").arg(righe.size()));
  correlati_->Modello().Righe(std::move(righe));
}

void PaginaCespite::FocoData() {
  testa_->Controllo("Codice").setFocus();
}

QList<QList<QWidget*>> PaginaCespite::OrdineTesta() const {
  return {testa_->Ordine()};
}

// --- Rows and card -------------------------------------------------------------------------------

void PaginaCespite::ApriRiga(int indice) {
  if (!legatura_->Raccogli()) return;
  if (!caso_.ApriRiga(righe_->Modello().Riga(indice).front().Intero())) return;
  riga_->Entra();
  righe_->VaiARiga(indice);
}

void PaginaCespite::NuovaRiga() {
  if (!Raccogli()) return;
  std::string campo;
  if (!caso_.PNuovaRiga(&campo)) return VaiA(campo);
  schede_->setCurrentIndex(0);
  riga_->Entra();
}

std::optional<std::int64_t> PaginaCespite::ConfermaRegistrazione() {
  std::string campo;
  if (caso_.Conferma(&campo)) return caso_.NumeroConfermato();
  Mostra();
  VaiA(campo);
  return std::nullopt;
}

bool PaginaCespite::EliminaRegistrazione() {
  if (caso_.Elimina()) return true;
  Mostra();
  return false;
}

}  // namespace fenalto::screens
