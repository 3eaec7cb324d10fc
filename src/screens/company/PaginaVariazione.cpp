#include "screens/company/PaginaVariazione.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPalette>
#include <QPushButton>
#include <QVBoxLayout>
#include <map>
#include <tuple>

#include "core/session/VariazioneDitta.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "screens/company/RiquadroDitta.h"

namespace fenalto::screens {
namespace {

constexpr int kLunghezzaPercorso = 1'000;  // longer than is accepted, so that it can be refused

}  // namespace

struct PaginaVariazione::Interno {
  Interno(PaginaVariazione& paginaUsata, Finestre& gestoreUsato);
  QGroupBox* CreaAnagrafica();
  QGroupBox* CreaDecimali();
  QGroupBox* CreaDocumenti();
  QGroupBox* CreaCartelle();
  QGroupBox* CreaContabilita();
  void CreaPagina();
  CampoTesto* Testo(const char* nome, int caratteri, int lunghezza = 100);
  QCheckBox* Casella(const char* nome, const QString& testo, const QString& aiuto = QString());
  void AggiungiCartella(QGridLayout* griglia, const char* nome, const QString& testo, bool file);
  void Lasciato(const QString& campo);
  void MostraAvvisi();
  void Annulla();
  void Conferma();

  PaginaVariazione& pagina;
  Finestre& gestore;
  VariazioneDitta variazione;
  Legatura* legatura;
  std::map<std::string, QLabel*> avvisi;
  QPushButton* conferma;
  QPushButton* annulla;
};

PaginaVariazione::Interno::Interno(PaginaVariazione& paginaUsata, Finestre& gestoreUsato)
    : pagina(paginaUsata),
      gestore(gestoreUsato),
      variazione(gestoreUsato.Sessione()),
      legatura(new Legatura([this]() -> fenalto::Scheda& { return variazione.Dati(); },
                            gestoreUsato.Sessione().Dialogo(), &paginaUsata)),
      conferma(
          Pulsante(QStringLiteral("Command1VariazioneDitta"), tr("Conferma"), tr("Ctrl+Invio"))),
      annulla(Pulsante(QStringLiteral("Annulla"), tr("Annulla modifiche"))) {
  CreaPagina();
  connect(legatura, &Legatura::Lasciato, &pagina, [this](const QString& campo, bool cambiato) {
    if (cambiato) Lasciato(campo);
  });
  connect(conferma, &QPushButton::clicked, &pagina, [this] { Conferma(); });
  connect(annulla, &QPushButton::clicked, &pagina, [this] { Annulla(); });
  AssegnaMnemoniche({conferma, annulla});
  legatura->Mostra();
  MostraAvvisi();
}

void PaginaVariazione::Interno::CreaPagina() {
  auto* testa = new RiquadroDitta(gestore);
  testa->puoCambiare = [this] {
    if (!pagina.InModifica()) return true;
    gestore.Sessione().Dialogo().Messaggio(
        "confermare o annullare prima le modifiche ai dati della ditta", Icona::Avviso);
    return false;
  };
  connect(testa, &RiquadroDitta::NomeCambiato, &pagina, [this] { Annulla(); });
  auto* pulsanti = new QHBoxLayout;
  pulsanti->addStretch(1);
  pulsanti->addWidget(conferma);
  pulsanti->addWidget(annulla);
  auto* sinistra = new QVBoxLayout;
  auto* destra = new QVBoxLayout;
  // Made in the order in which Enter goes through the fields.
  sinistra->addWidget(CreaAnagrafica());
  sinistra->addWidget(CreaContabilita());
  sinistra->addStretch(1);
  destra->addWidget(CreaDecimali());
  destra->addWidget(CreaDocumenti());
  destra->addWidget(CreaCartelle());
  destra->addStretch(1);
  auto* colonne = new QHBoxLayout;
  colonne->addLayout(sinistra);
  colonne->addLayout(destra);
  colonne->addStretch(1);
  auto* colonna = new QVBoxLayout(&pagina);
  colonna->addWidget(testa);
  colonna->addLayout(colonne);
  colonna->addStretch(1);
  colonna->addLayout(pulsanti);
}

CampoTesto* PaginaVariazione::Interno::Testo(const char* nome, int caratteri, int lunghezza) {
  auto* campo = new CampoTesto(QString::fromLatin1(nome), nullptr, lunghezza);
  LargoCaratteri(campo, caratteri);
  legatura->Lega(campo);
  return campo;
}

QCheckBox* PaginaVariazione::Interno::Casella(const char* nome, const QString& testo,
                                              const QString& aiuto) {
  auto* casella = new QCheckBox(testo);
  casella->setObjectName(QString::fromLatin1(nome));
  if (!aiuto.isEmpty()) casella->setToolTip(aiuto);
  legatura->Lega(casella);
  return casella;
}

QGroupBox* PaginaVariazione::Interno::CreaAnagrafica() {
  constexpr int kLargo = 42;
  constexpr int kCodice = 18;
  constexpr int kSigla = 5;
  auto* riquadro = new QGroupBox(tr("Dati anagrafici"));
  auto* griglia = new QGridLayout(riquadro);
  int riga = 0;
  const auto aggiungi = [&](const char* nome, const QString& testo, int caratteri) {
    auto* campo = Testo(nome, caratteri);
    griglia->addWidget(Didascalia(testo, campo), riga, 0);
    auto* accanto = new QHBoxLayout;
    accanto->addWidget(campo);
    auto* avviso = new QLabel;
    avviso->setObjectName(QString::fromLatin1(nome) + QStringLiteral("Avviso"));
    ColoraErrato(avviso, true);
    QPalette tavolozza = avviso->palette();
    tavolozza.setColor(QPalette::WindowText, tavolozza.color(QPalette::Text));
    avviso->setPalette(tavolozza);
    accanto->addWidget(avviso, 1);
    griglia->addLayout(accanto, riga++, 1);
    avvisi[nome] = avviso;
    return accanto;
  };
  aggiungi("ragsoc1", tr("Ragione sociale"), kLargo);
  aggiungi("ragsoc2", tr("(seconda riga)"), kLargo);
  aggiungi("indirizzo", tr("Indirizzo"), kLargo);
  aggiungi("localita", tr("CAP, località, provincia"), kLargo);
  auto* nazione = aggiungi("NAZIONE", tr("Nazione (sigla)"), kSigla);
  aggiungi("piva", tr("Partita IVA"), kCodice);
  aggiungi("codfisc", tr("Codice fiscale"), kCodice);
  auto* telefono = Testo("tel", kCodice);
  nazione->addStretch(1);
  Affianca(*nazione, tr("Telefono"), telefono);
  griglia->setColumnStretch(1, 1);
  return riquadro;
}

void PaginaVariazione::Interno::AggiungiCartella(QGridLayout* griglia, const char* nome,
                                                 const QString& testo, bool file) {
  constexpr int kLargo = 28;
  auto* campo = Testo(nome, kLargo, kLunghezzaPercorso);
  auto* scegli = Pulsante(QStringLiteral("Scegli") + QString::fromLatin1(nome), tr("Sfoglia..."));
  scegli->setFocusPolicy(Qt::ClickFocus);
  const int riga = griglia->rowCount();
  griglia->addWidget(Didascalia(testo, campo), riga, 0);
  griglia->addWidget(campo, riga, 1);
  griglia->addWidget(scegli, riga, 2);
  const std::string titolo = testo.toStdString();
  connect(scegli, &QPushButton::clicked, &pagina, [this, campo, titolo, file] {
    const auto scelto =
        gestore.Sessione().Dialogo().ScegliFile(titolo, file ? ModoFile::Apri : ModoFile::Cartella,
                                                file ? "Immagini (*.bmp *.png *.jpg *.jpeg)" : "");
    if (!scelto) return;
    variazione.Dati().Scrivi(campo->objectName().toStdString(), variazione.PercorsoBreve(*scelto));
    Lasciato(campo->objectName());
  });
}

QGroupBox* PaginaVariazione::Interno::CreaCartelle() {
  auto* riquadro = new QGroupBox(tr("Cartelle"));
  auto* griglia = new QGridLayout(riquadro);
  AggiungiCartella(griglia, "DirectoryImm", tr("Immagini"), false);
  AggiungiCartella(griglia, "DirectoryDoc", tr("Documenti"), false);
  AggiungiCartella(griglia, "LogoOrdini", tr("Logo di ordini e offerte"), true);
  griglia->setColumnStretch(1, 1);
  return riquadro;
}

QGroupBox* PaginaVariazione::Interno::CreaContabilita() {
  constexpr int kCausale = 8;
  auto* riquadro = new QGroupBox(tr("Contabilità"));
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addWidget(
      Casella("IVATRIMESTRALE", tr("IVA trimestrale nell'anno %1").arg(gestore.Sessione().Anno())));
  colonna->addWidget(Casella("InvertoDAinNoteCredito",
                             tr("Note di credito: inverto dare e avere, senza segno meno")));
  colonna->addWidget(
      Casella("RegAutoIntraCee", tr("Registro da solo le fatture intracomunitarie e in reverse "
                                    "charge anche sugli acquisti")));
  colonna->addWidget(Casella("NoIntraCosto_a_Forn", tr("... senza il giro «costo a fornitore»")));
  auto* causale = new CampoCodice(QStringLiteral("CausaleIntraCosto_a_Forn"),
                                  archives::Fonte(gestore.Sessione(), "causali"));
  legatura->Lega(causale);
  auto* riga = new QHBoxLayout;
  riga->addWidget(Didascalia(tr("... causale del giro «costo a fornitore»"), causale));
  riga->addWidget(ConDescrizione(causale, kCausale), 1);
  colonna->addLayout(riga);
  colonna->addWidget(Casella("RegAutoBolleDoganali", tr("Registro da solo le bolle doganali")));
  colonna->addWidget(Casella("RITENUTAACCONTO", tr("Gestisco le ritenute d'acconto"),
                             tr("le funzioni relative compaiono dopo Selezione Archivi")));
  return riquadro;
}

QGroupBox* PaginaVariazione::Interno::CreaDecimali() {
  constexpr int kCifra = 4;
  auto* riquadro = new QGroupBox(tr("Decimali e prezzi"));
  auto* colonna = new QVBoxLayout(riquadro);
  auto* riga = new QHBoxLayout;
  auto* prezzi = Testo("DecP", kCifra, 5);
  auto* quantita = Testo("DecQ", kCifra, 5);
  Affianca(*riga, tr("Decimali dei prezzi (2-4)"), prezzi);
  riga->addSpacing(Misura(Passo::Stacco));
  Affianca(*riga, tr("delle quantità (0-4)"), quantita);
  riga->addStretch(1);
  colonna->addLayout(riga);
  const std::tuple<const char*, QString, QString> caselle[] = {
      {"ArrotImporto", tr("Arrotondo al centesimo l'importo delle righe"),
       tr("senza spunta i decimali oltre il secondo si troncano")},
      {"PrezziDaOrdine", tr("In fatture e ddt non propongo prezzi e descrizione da ordini/offerte"),
       QString()},
      {"PrezziIvatiOrdCli", tr("Ordini clienti con prezzi ivati e scorporo"), QString()},
      {"ListinoDdtSenzaPrezzi", tr("Applico il listino anche nei ddt senza prezzi"), QString()},
      {"PropongoCostoDigitato",
       tr("Propongo il «costo digitato» in carichi, ordini fornitori, commesse"), QString()},
      {"DbCostoMedio", tr("Distinta base valorizzata al costo medio"),
       tr("senza spunta al costo ultimo")},
  };
  for (const auto& [nome, testo, aiuto] : caselle) colonna->addWidget(Casella(nome, testo, aiuto));
  return riquadro;
}

QGroupBox* PaginaVariazione::Interno::CreaDocumenti() {
  auto* riquadro = new QGroupBox(tr("Documenti e magazzino"));
  auto* colonna = new QVBoxLayout(riquadro);
  const std::pair<const char*, QString> caselle[] = {
      {"CodficaCliFor", tr("Codifica automatica di clienti e fornitori (0001, 0002, ...)")},
      {"MagObbligatorio", tr("Il codice magazzino è obbligatorio nei movimenti")},
      {"LottoDtScad", tr("Lotti con data di scadenza")},
      {"FornNonPrevisto", tr("Segnalo i carichi da un fornitore non previsto sul prodotto")},
      {"BarcodeUnivoco", tr("Controllo che i codici a barre dei prodotti siano univoci")},
  };
  for (const auto& [nome, testo] : caselle) colonna->addWidget(Casella(nome, testo));
  return riquadro;
}

void PaginaVariazione::Interno::Lasciato(const QString& campo) {
  const bool accettato = variazione.CampoLasciato(campo.toStdString());
  legatura->Mostra();
  MostraAvvisi();
  if (accettato) return;
  if (auto* controllo = pagina.findChild<QLineEdit*>(campo)) controllo->setFocus();
}

void PaginaVariazione::Interno::MostraAvvisi() {
  for (const auto& [campo, etichetta] : avvisi) etichetta->setText(Qs(variazione.Avviso(campo)));
}

void PaginaVariazione::Interno::Annulla() {
  variazione.Rileggi();
  legatura->Mostra();
  MostraAvvisi();
}

void PaginaVariazione::Interno::Conferma() {
  if (!legatura->Raccogli()) return;
  variazione.Conferma();
  legatura->Mostra();
  MostraAvvisi();
  if (const auto& rifiutato = variazione.CampoRifiutato(); !rifiutato.empty()) {
    pagina.findChild<QWidget*>(Qs(rifiutato))->setFocus(Qt::OtherFocusReason);
  }
}

PaginaVariazione::PaginaVariazione(Finestre& finestre)
    : PaginaDitta(Scheda::Variazione, finestre),
      interno_(std::make_unique<Interno>(*this, finestre)) {}

PaginaVariazione::~PaginaVariazione() = default;

bool PaginaVariazione::InModifica() const {
  return interno_->variazione.Modificata() || interno_->legatura->Pendente();
}

void PaginaVariazione::Abbandona() {
  // A company that was just deleted has nothing to be read again.
  if (Sessione().DittaAperta()) interno_->Annulla();
}

void PaginaVariazione::Aggiorna() {
  interno_->Annulla();
}

}  // namespace fenalto::screens
