#include "screens/documents/entry/PaginaSceltaDocumento.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/CampoGiorno.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/ElencoCercato.h"
#include "screens/common/lists/EsportaGriglia.h"
#include "screens/common/lists/SelettoreArticolo.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/FunzioniCorrelate.h"

namespace fenalto::screens {
namespace {

constexpr int kCorrelatePerRiga = 6;
constexpr int kTipo = 7;

constexpr FunzioneCorrelata kCorrelate[] = {
    {"FunzCor01", "prodotti", "CodiciRiga"},
    {"FunzCor02", "esistenze e stampe di magazzino", "StProdotti"},
    {"FunzCor03", "clienti", "Clienti"},
    {"FunzCor04", "fornitori", "Fornitori"},
    {"FunzCor05", "situazione cliente/fornitore", "InterrCliFor"},
    {"FunzCor06", "tipi documento", "TipiFattureCli"},
    {"FunzCor07", "ordini clienti", "OrdiniCli"},
    {"FunzCor08", "ordini fornitori", "OrdiniFor"},
    {"FunzCor09", "elenco documenti per tipo", "StMovxTipo"},
    {"FunzCor10", "file FilConad", "CreaFilConad"},
};

/// In the order of GenereElenco.
constexpr const char* kGeneri[] = {"del tipo scelto", "tutti", "ddt", "fatture e scontrini",
                                   "movimenti di magazzino"};

}  // namespace

PaginaSceltaDocumento::PaginaSceltaDocumento(documents::FattureCli& documento, Finestre& finestre,
                                             QWidget* genitore)
    : QWidget(genitore), documento_(documento), finestre_(finestre), lettore_(finestre.Sessione()) {
  auto* griglia = new QGridLayout(this);
  griglia->addWidget(CreaSopra(), 0, 0, 1, 2);
  riquadroElenco_ = CreaElenco();
  griglia->addWidget(riquadroElenco_, 1, 0);
  auto* destra = new QVBoxLayout;
  destra->setContentsMargins(0, 0, 0, 0);
  destra->addWidget(CreaNuovo());
  auto* sdoppia = CreaSdoppia();
  destra->addWidget(sdoppia);
  destra->addStretch(1);
  constexpr int kLargo = 250;
  auto* lato = new QWidget;
  lato->setLayout(destra);
  lato->setFixedWidth(std::max(Cresciuta(kLargo), sdoppia->minimumSizeHint().width()));
  griglia->addWidget(lato, 1, 1);
  pulsanti_ << esporta_;
  griglia->addWidget(RiquadroCorrelate(finestre_, kCorrelate, kCorrelatePerRiga, pulsanti_), 2, 0,
                     1, 2);
  griglia->setColumnStretch(0, 1);
  griglia->setRowStretch(1, 1);
  AssegnaMnemoniche(pulsanti_);
  yTipoDoc_->Mostra(Valore(documento_.Tipo().cod));
  yAnno_->Mostra(Valore(finestre_.Sessione().Anno()));
  Mostra();
}

// --- Controls -----------------------------------------------------------------------------------

QWidget* PaginaSceltaDocumento::CreaSopra() {
  tipo_ = new CampoCodice(QStringLiteral("xTipoDoc"),
                          archives::Fonte(finestre_.Sessione(), "tipiDocumento"));
  connect(tipo_, &CampoCodice::Scelto, this, &PaginaSceltaDocumento::TipoLasciato);
  connect(tipo_, &QLineEdit::editingFinished, this, &PaginaSceltaDocumento::TipoLasciato);
  selettore_ = new SelettoreArticolo(
      [this](std::int64_t numero) {
        const auto& tipo = documento_.Tipo().cod;
        const QString testo = Qs(lettore_.Testo(tipo, numero));
        return testo.isEmpty() ? tr("nel %1 non c'è un documento %2 con questo numero")
                                     .arg(finestre_.Sessione().Anno())
                                     .arg(Qs(tipo))
                               : testo;
      },
      this);
  selettore_->Descrizione().setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  connect(selettore_, &SelettoreArticolo::ApriChiesto, this,
          [this](qint64 numero) { emit ApriChiesto(Qs(documento_.Tipo().cod), numero); });
  auto* riga = new QWidget;
  auto* disposizione = new QHBoxLayout(riga);
  disposizione->setContentsMargins(0, 0, 0, 0);
  disposizione->addWidget(Didascalia(tr("Tipo documento"), tipo_));
  disposizione->addWidget(ConDescrizione(tipo_, kTipo), 2);
  constexpr int kPesoDescrizione = 3;
  selettore_->Disponi(*disposizione, kPesoDescrizione, tr("Numero"));
  pulsanti_ << selettore_->PulsanteApri();
  return riga;
}

QWidget* PaginaSceltaDocumento::CreaFiltri() {
  genere_ = new QComboBox;
  genere_->setObjectName(QStringLiteral("xGenere"));
  for (const char* uno : kGeneri) genere_->addItem(QString::fromUtf8(uno));
  da_ = CampoGiornoLibero("DaDt", finestre_.Sessione());
  a_ = CampoGiornoLibero("ADt", finestre_.Sessione());
  totali_ = new QLabel;
  totali_->setObjectName(QStringLiteral("TotaliElenco"));
  totali_->setForegroundRole(QPalette::PlaceholderText);
  auto* somma = Pulsante(QStringLiteral("SommaElenco"), tr("Totali"));
  somma->setToolTip(tr("quanti sono i documenti trovati, e quanto fanno le loro righe"));
  auto* insieme = new QWidget;
  auto* riga = new QHBoxLayout(insieme);
  riga->setContentsMargins(0, 0, 0, 0);
  Affianca(*riga, tr("Documenti"), genere_);
  Affianca(*riga, tr("dal"), da_);
  Affianca(*riga, tr("al"), a_);
  riga->addStretch(1);
  riga->addWidget(totali_);
  riga->addWidget(somma);
  pulsanti_ << somma;
  connect(genere_, &QComboBox::activated, this, &PaginaSceltaDocumento::Filtra);
  connect(da_, &QLineEdit::editingFinished, this, &PaginaSceltaDocumento::Filtra);
  connect(a_, &QLineEdit::editingFinished, this, &PaginaSceltaDocumento::Filtra);
  connect(somma, &QPushButton::clicked, this, &PaginaSceltaDocumento::MostraTotali);
  return insieme;
}

QGroupBox* PaginaSceltaDocumento::CreaElenco() {
  auto* riquadro = new QGroupBox;
  FormaElenco forma{
      .finestra = QStringLiteral("FattureCli"),
      .griglia = QStringLiteral("ElencoDocumenti"),
      .cerca = QStringLiteral("CercaDocumenti"),
      .stato = QStringLiteral("StatoRicerca"),
      .segnaposto = tr("numero, data, cliente o fornitore"),
      .colonne = {{tr("Tipo"), Tipo::Testo, 50, 2, QStringLiteral("TipoDoc")},
                  {tr("Numero"), Tipo::Intero, 65, 2, QStringLiteral("NumDoc")},
                  {tr("Data"), Tipo::Data, 80, 2, QStringLiteral("Dt")},
                  {tr("Codice"), Tipo::Testo, 70, 2, QStringLiteral("CliFor")},
                  {tr("Cliente/fornitore"), Tipo::Testo, 180, 2, QStringLiteral("RagSoc")},
                  {tr("Mag."), Tipo::Testo, 40, 2, QStringLiteral("Mag")},
                  {tr("Importo"), Tipo::Importo, 90},
                  {tr("Note"), Tipo::Testo, 120}},
      .testo = {},
      .chiave = documents::ElencoDocumenti::kChiave,
      .ordinabile = true};
  forma.testo = [](const FormaElenco::Letti& letti) {
    return letti.righe == 0 ? tr("nessun documento") : QString();
  };
  elenco_ = new ElencoCercato(std::move(forma), lettore_);
  elenco_->Griglia().Modello().Decimali(finestre_.Sessione().Euro() ? 2 : 0);
  elenco_->Cerca().setToolTip(
      tr("numero, data, codice o parte del nome, numero del documento del mittente, chiave"));
  esporta_ = Pulsante(QStringLiteral("XlsEsp"), tr("Esporta..."));
  elenco_->Aggiungi(esporta_);
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addWidget(CreaFiltri());
  colonna->addWidget(elenco_, 1);
  connect(esporta_, &QPushButton::clicked, this, &PaginaSceltaDocumento::Esporta);
  connect(elenco_, &ElencoCercato::Letto, this, [this](int righe) {
    esporta_->setEnabled(righe > 0);
    totali_->clear();
  });
  const auto vai = [this](const QString& chiave) {
    const auto quale = lettore_.DallaChiave(chiave.toStdString());
    if (documento_.ScegliTipo(quale.tipoDoc)) MostraTipo();
    Seleziona(quale.numDoc);
    return quale;
  };
  connect(elenco_, &ElencoCercato::Indicato, this, vai);
  connect(elenco_, &ElencoCercato::Scelto, this, [this, vai](const QString& chiave) {
    const auto quale = vai(chiave);
    emit ApriChiesto(Qs(quale.tipoDoc), quale.numDoc);
  });
  return riquadro;
}

QGroupBox* PaginaSceltaDocumento::CreaNuovo() {
  auto* riquadro = new QGroupBox(tr("Nuovo documento"));
  informazioni_ = new QLabel;
  informazioni_->setObjectName(QStringLiteral("InfoTipo"));
  informazioni_->setTextFormat(Qt::PlainText);
  informazioni_->setWordWrap(true);
  nuovo_ = Pulsante(QStringLiteral("Nuovo"), tr("Nuovo documento"), tr("Ins"));
  pulsanti_ << nuovo_;
  auto* colonna = new QVBoxLayout(riquadro);
  fatto_ = new QLabel;
  fatto_->setObjectName(QStringLiteral("UltimoDocumento"));
  fatto_->setTextFormat(Qt::PlainText);
  fatto_->setWordWrap(true);
  colonna->addWidget(informazioni_);
  colonna->addWidget(nuovo_);
  colonna->addWidget(fatto_);
  connect(nuovo_, &QPushButton::clicked, this, &PaginaSceltaDocumento::NuovoChiesto);
  return riquadro;
}

QGroupBox* PaginaSceltaDocumento::CreaSdoppia() {
  auto* riquadro = new QGroupBox(tr("Nuovo da un altro documento"));
  yTipoDoc_ = new CampoCodice(QStringLiteral("yTipoDoc"),
                              archives::Fonte(finestre_.Sessione(), "tipiDocumento"), false);
  yAnno_ = new CampoNumero(QStringLiteral("yAnno"));
  yNumDoc_ = new CampoNumero(QStringLiteral("yNumDoc"));
  auto* sdoppia = Pulsante(QStringLiteral("Sdoppia"), tr("Sdoppia"));
  constexpr int kCifre = 8;
  constexpr int kAnno = 5;
  LargoCaratteri(yNumDoc_, kCifre);
  LargoCaratteri(yAnno_, kAnno);
  auto* sotto = new QHBoxLayout;
  Affianca(*sotto, tr("Anno"), yAnno_);
  Affianca(*sotto, tr("Numero"), yNumDoc_, 1);
  auto* sopra = new QHBoxLayout;
  sopra->addWidget(Didascalia(tr("Tipo"), yTipoDoc_));
  sopra->addWidget(ConDescrizione(yTipoDoc_, kTipo), 1);
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addLayout(sopra);
  colonna->addLayout(sotto);
  colonna->addWidget(sdoppia);
  pulsanti_ << sdoppia;
  connect(sdoppia, &QPushButton::clicked, this, &PaginaSceltaDocumento::Sdoppia);
  return riquadro;
}

// --- The type -----------------------------------------------------------------------------------

bool PaginaSceltaDocumento::ScegliTipo(const std::string& codice) {
  if (codice == documento_.Tipo().cod) return true;
  if (!documento_.ScegliTipo(codice)) {
    finestre_.Sessione().Dialogo().Messaggio(
        "non c'è un tipo documento " + codice + " che si possa usare", Icona::Avviso);
    MostraTipo();
    return false;
  }
  Seleziona(0);
  Mostra();
  emit TipoCambiato();
  return true;
}

void PaginaSceltaDocumento::TipoLasciato() {
  const std::string codice = tipo_->Codice();
  // A code that was refused gives way to the type that is still chosen.
  if (codice.empty() || !tipo_->Esiste()) return MostraTipo();
  if (!ScegliTipo(codice)) tipo_->setFocus();
}

void PaginaSceltaDocumento::MostraTipo() {
  tipo_->Mostra(Valore(documento_.Tipo().cod));
  QStringList righe;
  for (const std::string& riga : documento_.InformazioniTipo()) righe << Qs(riga);
  informazioni_->setText(righe.join(QLatin1Char('\n')));
  QStringList fatto;
  for (const std::string& riga : documento_.Fatto()) fatto << Qs(riga);
  fatto_->setText(fatto.join(QLatin1Char('\n')));
}

void PaginaSceltaDocumento::Mostra() {
  MostraTipo();
  if (!Filtra()) elenco_->Rileggi();
  selettore_->Descrivi();
}

// --- The list -----------------------------------------------------------------------------------

bool PaginaSceltaDocumento::Filtra() {
  const auto giorno = [](const CampoData* campo) {
    const auto letto = campo->Letto();
    return letto ? letto.Valore().Data() : Data();
  };
  const auto genere = static_cast<documents::GenereElenco>(genere_->currentIndex());
  const auto& tipo = documento_.Tipo();
  const bool delTipo = genere == documents::GenereElenco::DelTipo;
  riquadroElenco_->setTitle(delTipo ? tr("%1 %2: documenti del %3")
                                          .arg(Qs(tipo.cod), Qs(tipo.descrizione))
                                          .arg(finestre_.Sessione().Anno())
                                    : tr("Documenti del %1: %2")
                                          .arg(finestre_.Sessione().Anno())
                                          .arg(genere_->currentText()));
  // The type is the same on every row.
  elenco_->Griglia().setColumnHidden(0, delTipo);
  if (!lettore_.Scegli({genere, tipo.cod, giorno(da_), giorno(a_)})) return false;
  elenco_->Ricarica();
  return true;
}

void PaginaSceltaDocumento::MostraTotali() {
  const auto somma = lettore_.Somma();
  totali_->setText(tr("%1 documenti, righe %2")
                       .arg(somma.documenti)
                       .arg(Qs(ScriviImporto(somma.righe, finestre_.Sessione().Euro() ? 2 : 0))));
}

void PaginaSceltaDocumento::Esporta() {
  EsportaGriglia(elenco_->Griglia(), finestre_.Sessione(), riquadroElenco_->title().toStdString());
}

void PaginaSceltaDocumento::Seleziona(std::int64_t numero) {
  selettore_->Seleziona(numero);
}

bool PaginaSceltaDocumento::Invio(QWidget& campo) {
  return elenco_->InvioInRicerca(&campo);
}

bool PaginaSceltaDocumento::SvuotaRicerca() {
  return elenco_->SvuotaRicerca();
}

// --- Copies -------------------------------------------------------------------------------------

void PaginaSceltaDocumento::Sdoppia() {
  const auto anno = yAnno_->Letto();
  const auto numero = yNumDoc_->Letto();
  if (!anno || !numero) {
    finestre_.Sessione().Dialogo().Messaggio((anno ? numero : anno).Errore().messaggio,
                                             Icona::Avviso);
    (anno ? yNumDoc_ : yAnno_)->setFocus();
    return;
  }
  if (numero.Valore().Intero() == 0) {
    yNumDoc_->setFocus();
    return;
  }
  emit SdoppiaChiesto(Qs(yTipoDoc_->Codice()), static_cast<int>(anno.Valore().Intero()),
                      numero.Valore().Intero());
}

void PaginaSceltaDocumento::FocoTipo() {
  tipo_->setFocus();
}

void PaginaSceltaDocumento::FocoSelettore() {
  selettore_->Foco();
}

void PaginaSceltaDocumento::FocoNuovo() {
  FocoInVista(nuovo_);
}

}  // namespace fenalto::screens
