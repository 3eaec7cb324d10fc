#include "screens/assets/PaginaAmmortamenti.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "assets/AmmortamentoAutomatico.h"
#include "assets/CategorieCespiti.h"
#include "assets/RegistrazioneQuote.h"
#include "assets/RegistroCespiti.h"
#include "core/values/FormatoImporto.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/OpzioniGrafiche.h"
#include "screens/common/lists/EsportaGriglia.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/InCorso.h"

namespace fenalto::screens {
namespace {

using records::Campo;
using records::DiCodice;
using records::Digitato;

/// What is typed on the page.
struct SceltaPagina {
  int finoAllAnno = 0;
  std::string daCat;
  std::string aaCat;
  bool noAmmCompl = false;
  bool noDismesso = false;
  int soloAnno = 0;
  bool schede = false;
  assets::OrdineCespiti ordine = assets::OrdineCespiti::Numero;
};

constexpr records::CampoRiga<SceltaPagina> kScelta[] = {
    Campo<&SceltaPagina::finoAllAnno>("FinoAllAnno"),
    Campo<&SceltaPagina::daCat>("DaCat"),
    Campo<&SceltaPagina::aaCat>("AaCat"),
    Campo<&SceltaPagina::noAmmCompl>("NoAmmCompl"),
    Campo<&SceltaPagina::noDismesso>("NoDismesso"),
    Campo<&SceltaPagina::soloAnno>("SoloAnnoEntrInFunz"),
    Campo<&SceltaPagina::schede>("Contenuto"),
    Campo<&SceltaPagina::ordine>("Ordine")};

records::DescrizioneForma FormaAmmortamenti() {
  constexpr const char* kCategorie = "FrameCategorie";
  constexpr const char* kStampa = "FrameStampa";
  return {
      .campi =
          {Digitato("FinoAllAnno", "Anno", 6).In(kCategorie).Aiuto("delle quote e delle stampe"),
           DiCodice("DaCat", "Da categoria", "categorieCespiti", 8)
               .In(kCategorie)
               .Colonna(1)
               .Peso(1),
           DiCodice("AaCat", "a categoria", "categorieCespiti", 8)
               .In(kCategorie)
               .Colonna(2)
               .Peso(1),
           Digitato("Contenuto")
               .Di(records::GenereCampo::Opzioni)
               .In(kStampa)
               .AlMargine()
               .Scelte({{"False", "Solo i totali alla fine dell'anno", "OptSoloTotale"},
                        {"True", "Stampa la scheda storica", "OptScheda"}})
               .Aiuto("Stampa la scheda storica di ogni cespite con il dettaglio degli importi di "
                      "ogni anno"),
           Digitato("Ordine")
               .Di(records::GenereCampo::Opzioni)
               .In(kStampa)
               .AlMargine()
               .Scelte({{"0", "per numero", "OptPerNcesp"},
                        {"1", "per data", "OptPerDal"},
                        {"2", "per codice", "OptPerCod"},
                        {"3", "per descrizione", "OptPerDescr"}}),
           Digitato("NoAmmCompl", "Senza ammortamento completato").In(kStampa).AlMargine(),
           Digitato("NoDismesso", "Senza dismessi").In(kStampa).Accanto(),
           Digitato("SoloAnnoEntrInFunz", "Solo cespiti entrati in funzione nell'anno (0=tutti)", 6)
               .In(kStampa)
               .Accanto()},
      .riquadri = {{.nome = kCategorie, .titolo = "Anno e categorie", .largo = true},
                   {.nome = kStampa, .titolo = "Stampa registro", .largo = true}}};
}

}  // namespace

struct PaginaAmmortamenti::Interno {
  Interno(PaginaAmmortamenti& paginaUsata, Finestre& gestoreUsato);
  QLayout* CreaQuote();
  void Collega();
  void Proponi();
  void Con(const std::function<void()>& lavoro);

  [[nodiscard]] SceltaPagina Scelta() const {
    return records::LeggiCampi<SceltaPagina>(campi, kScelta);
  }
  [[nodiscard]] assets::SceltaAmmortamento Ammortamento() const;
  [[nodiscard]] assets::SceltaRegistro Registro() const;
  bool Libera();
  void MostraPiano(const std::vector<assets::VoceAmmortamento>& voci);
  void MostraStorno(const std::vector<assets::VoceStorno>& voci, int anno);
  void Registra();
  void Elimina();
  void Vedi();
  void Foglio();
  void ChiediRegistrazione(bool chiesta);

  PaginaAmmortamenti& pagina;
  Finestre& gestore;
  assets::AmmortamentoAutomatico automatico;
  assets::RegistroCespiti registro;
  Scheda campi;
  Legatura* legatura;
  OpzioniGrafiche* opzioni;
  std::unique_ptr<CampiForma> forma;
  Griglia* griglia;
  QLabel* totale = new QLabel;
  QPushButton* mostra;
  QPushButton* registra;
  QPushButton* elimina;
  QPushButton* contabile;
  QPushButton* stampa;
  QPushButton* foglio;
  bool occupata = false;
};

PaginaAmmortamenti::Interno::Interno(PaginaAmmortamenti& paginaUsata, Finestre& gestoreUsato)
    : pagina(paginaUsata),
      gestore(gestoreUsato),
      automatico(gestoreUsato.Sessione(), gestoreUsato.Uscite()),
      registro(gestoreUsato.Sessione(), gestoreUsato.Uscite()),
      legatura(new Legatura([this]() -> Scheda& { return campi; },
                            gestoreUsato.Sessione().Dialogo(), &paginaUsata)),
      griglia(new Griglia(QStringLiteral("GrigliaQuote"), QStringLiteral("Cespiti"),
                          {{tr("N."), Tipo::Intero, 60, 2, QStringLiteral("NCesp")},
                           {tr("Cespite"), Tipo::Testo, 220, 2, QStringLiteral("Descrizione")},
                           {tr("Categoria"), Tipo::Testo, 70, 2, QStringLiteral("Cat")},
                           {tr("Costo"), Tipo::Importo, 100},
                           {tr("Residuo"), Tipo::Importo, 100},
                           {tr("%"), Tipo::Importo, 60, 2, QStringLiteral("P")},
                           {tr("Quota"), Tipo::Importo, 100, 2, QStringLiteral("Importo")},
                           {tr("Esito"), Tipo::Testo, 260}})),
      mostra(Pulsante(QStringLiteral("MostraQuote"), tr("Mostra le quote"))),
      registra(Pulsante(QStringLiteral("AmmortAutomatico"),
                        tr("Calcolo automatico quote  e test ammortamenti"))),
      elimina(
          Pulsante(QStringLiteral("ElimAmmortAutomatico"), tr("Eliminazione automatica quote"))),
      contabile(Pulsante(QStringLiteral("RegistraQuote"), tr("Registrazione contabile"))),
      stampa(Pulsante(QStringLiteral("Stampa"), tr("Stampa"))),
      foglio(Pulsante(QStringLiteral("XlsEsp"), tr("Esporta in foglio"))) {
  records::AggiungiCampi<SceltaPagina>(campi, kScelta);
  opzioni = new OpzioniGrafiche(QStringLiteral("Cespiti"), gestore.Sessione(), campi, *legatura);
  auto* colonna = new QVBoxLayout(&pagina);
  auto* sopra = new QVBoxLayout;
  colonna->addLayout(sopra);
  forma = std::make_unique<CampiForma>(gestore.Sessione(), FormaAmmortamenti(), QList{legatura},
                                       *sopra);
  auto* stampe = opzioni->Riga();
  stampe->addWidget(foglio);
  stampe->addWidget(stampa);
  colonna->addLayout(stampe);
  colonna->addLayout(CreaQuote(), 1);
  registra->setToolTip(
      tr("Il calcolo automatico effettua automaticamente l'operaziione sui cespiti dove non è "
         "stato effettuata manualmente."));
  elimina->setToolTip(
      tr("L'eliminazione automatica cancella tutte le rige delle quote ammortamento dell'anno dei "
         "cespiti non dismessi"));
  mostra->setToolTip(tr("che cosa scriverebbe il calcolo automatico, senza scriverlo"));
  contabile->setToolTip(tr(
      "propone in primanota le quote dell'anno, categoria per categoria, non ancora registrate"));
  AssegnaMnemoniche({registra, elimina, mostra, contabile, stampa, foglio});
  Collega();
  Proponi();
}

QLayout* PaginaAmmortamenti::Interno::CreaQuote() {
  auto* colonna = new QVBoxLayout;
  auto* fila = new QHBoxLayout;
  totale->setObjectName(QStringLiteral("TotaleQuote"));
  InGrassetto(*totale);
  for (auto* pulsante : {registra, elimina, mostra, contabile}) fila->addWidget(pulsante);
  fila->addStretch(1);
  fila->addWidget(totale);
  griglia->QuandoVuota(
      tr("\"Mostra le quote\" fa vedere qui che cosa scriverebbe il calcolo "
         "automatico"));
  griglia->setToolTip(tr("doppio clic o Invio su una riga apre il cespite"));
  colonna->addLayout(fila);
  colonna->addWidget(griglia, 1);
  return colonna;
}

void PaginaAmmortamenti::Interno::Collega() {
  const auto premuto = [this](QPushButton* pulsante, void (Interno::*lavoro)()) {
    connect(pulsante, &QPushButton::clicked, &pagina,
            [this, lavoro] { Con([this, lavoro] { (this->*lavoro)(); }); });
  };
  premuto(mostra, &Interno::Vedi);
  premuto(registra, &Interno::Registra);
  premuto(elimina, &Interno::Elimina);
  premuto(foglio, &Interno::Foglio);
  connect(stampa, &QPushButton::clicked, &pagina,
          [this] { Con([this] { registro.Stampa(Registro()); }); });
  connect(contabile, &QPushButton::clicked, &pagina,
          [this] { Con([this] { ChiediRegistrazione(true); }); });
  const auto scegli = [this](int indice) {
    if (indice >= 0) {
      emit pagina.CespiteScelto(griglia->Modello().Riga(indice).front().Intero());
    }
  };
  connect(griglia, &Griglia::RigaDoppioClic, &pagina, scegli);
  connect(griglia, &Griglia::RigaInvio, &pagina, scegli);
}

void PaginaAmmortamenti::Interno::Con(const std::function<void()>& lavoro) {
  if (occupata || !legatura->Raccogli()) return;
  const InCorso uno(occupata);
  lavoro();
}

void PaginaAmmortamenti::Interno::Proponi() {
  const assets::IntervalloCategorie tutte = assets::TutteLeCategorie(gestore.Sessione());
  SceltaPagina scelta;
  scelta.finoAllAnno = gestore.Sessione().Anno();
  scelta.daCat = tutte.da;
  scelta.aaCat = tutte.a;
  records::MostraCampi<SceltaPagina>(campi, kScelta, scelta);
  legatura->Mostra();
  forma->Applica([](const std::string&) { return records::StatoCampo{}; }, false);
}

assets::SceltaAmmortamento PaginaAmmortamenti::Interno::Ammortamento() const {
  const SceltaPagina scelta = Scelta();
  assets::SceltaAmmortamento ammortamento{scelta.finoAllAnno, {scelta.daCat, scelta.aaCat}};
  opzioni->Prendi(ammortamento);
  return ammortamento;
}

assets::SceltaRegistro PaginaAmmortamenti::Interno::Registro() const {
  const SceltaPagina scelta = Scelta();
  assets::SceltaRegistro stampato;
  stampato.finoAllAnno = scelta.finoAllAnno;
  stampato.categorie = {scelta.daCat, scelta.aaCat};
  stampato.noAmmCompl = scelta.noAmmCompl;
  stampato.noDismesso = scelta.noDismesso;
  stampato.soloAnnoEntrInFunz = scelta.soloAnno;
  stampato.schede = scelta.schede;
  stampato.ordine = scelta.ordine;
  opzioni->Prendi(stampato);
  return stampato;
}

bool PaginaAmmortamenti::Interno::Libera() {
  bool libera = true;
  emit pagina.LiberaChiesto(libera);
  return libera;
}

void PaginaAmmortamenti::Interno::MostraPiano(const std::vector<assets::VoceAmmortamento>& voci) {
  std::vector<std::vector<Valore>> righe;
  Importo somma;
  for (const assets::VoceAmmortamento& voce : voci) {
    const bool quota = voce.quota.esito == assets::EsitoQuota::Quota;
    std::vector<Valore> celle = {voce.nCesp, voce.descrizione, voce.cat, {}, {}, {}, {}};
    if (quota) {
      celle[3] = voce.quota.costo;
      celle[4] = voce.quota.residuo;
      celle[5] = voce.quota.aliquota;
      celle[6] = voce.quota.importo;
      somma += voce.quota.importo;
    }
    celle.emplace_back(!quota                ? voce.quota.Testo()
                       : voce.quota.completa ? "Ammortamento completato"
                                             : "");
    righe.push_back(std::move(celle));
  }
  griglia->Modello().Righe(std::move(righe));
  totale->setText(tr("cespiti: %1, quote per %2")
                      .arg(voci.size())
                      .arg(QString::fromStdString(ScriviImporto(somma, 2))));
}

void PaginaAmmortamenti::Interno::MostraStorno(const std::vector<assets::VoceStorno>& voci,
                                               int anno) {
  std::vector<std::vector<Valore>> righe;
  Importo somma;
  for (const assets::VoceStorno& voce : voci) {
    righe.push_back({voce.nCesp,
                     voce.descrizione,
                     voce.cat,
                     {},
                     {},
                     {},
                     voce.righe == 0 ? Valore() : Valore(voce.importo),
                     voce.Testo(anno)});
    somma += voce.importo;
  }
  griglia->Modello().Righe(std::move(righe));
  totale->setText(tr("cespiti: %1, quote da eliminare per %2")
                      .arg(voci.size())
                      .arg(QString::fromStdString(ScriviImporto(somma, 2))));
}

void PaginaAmmortamenti::Interno::Vedi() {
  if (const auto piano = automatico.Piano(Ammortamento())) MostraPiano(*piano);
}

void PaginaAmmortamenti::Interno::Registra() {
  if (!Libera()) return;
  const bool scritte = automatico.Registra(
      Ammortamento(),
      [this](const std::vector<assets::VoceAmmortamento>& voci) { MostraPiano(voci); });
  if (!scritte) return;
  emit pagina.Cambiati();
  ChiediRegistrazione(false);
}

void PaginaAmmortamenti::Interno::Elimina() {
  if (!Libera()) return;
  const assets::SceltaAmmortamento scelta = Ammortamento();
  if (automatico.Elimina(scelta, [&](const std::vector<assets::VoceStorno>& voci) {
        MostraStorno(voci, scelta.anno);
      })) {
    emit pagina.Cambiati();
  }
}

void PaginaAmmortamenti::Interno::Foglio() {
  const reports::Foglio composto = registro.Foglio(Registro());
  if (composto.colonne.empty()) return;
  Dialoghi& dialogo = gestore.Sessione().Dialogo();
  if (const auto uscita = dialogo.ScegliUscita("registro cespiti", true)) {
    ScriviFoglio(composto, *uscita, dialogo);
  }
}

/// At the end of the run only what there is to register is asked about; a press of the button is
/// always answered.
void PaginaAmmortamenti::Interno::ChiediRegistrazione(bool chiesta) {
  Ambiente& sessione = gestore.Sessione();
  const int anno = Scelta().finoAllAnno;
  if (anno != sessione.Anno()) {
    if (chiesta) {
      sessione.Dialogo().Messaggio("selezionare l'anno " + std::to_string(anno), Icona::Avviso);
    }
    return;
  }
  const assets::PropostaQuote proposta = assets::ProponiQuote(sessione, anno);
  std::string senza;
  for (const std::string& cat : proposta.senzaConti) senza += (senza.empty() ? "" : ", ") + cat;
  if (proposta.registrazione.righe.empty()) {
    if (chiesta) {
      sessione.Dialogo().Annuncia(
          "nessuna quota da registrare per l'anno " + std::to_string(anno) +
          (senza.empty() ? "" : "\ncategorie senza i conti della registrazione: " + senza));
    }
    return;
  }
  std::string domanda = "Si vuole registrare in contabilità le quote dell'anno " +
                        std::to_string(anno) +
                        " ?\n(la registrazione si apre in primanota, da "
                        "confermare)";
  if (!senza.empty()) {
    domanda += "\nrestano fuori le categorie senza i conti della registrazione: " + senza;
  }
  if (!chiesta && !sessione.Dialogo().Conferma(domanda)) return;
  emit pagina.RegistrazioneProposta(proposta.registrazione);
}

PaginaAmmortamenti::PaginaAmmortamenti(Finestre& finestre, QWidget* genitore)
    : QWidget(genitore), interno_(std::make_unique<Interno>(*this, finestre)) {}

PaginaAmmortamenti::~PaginaAmmortamenti() = default;

}  // namespace fenalto::screens
