#include "screens/common/archive/PaginaSceltaArchivio.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/archives/FonteCodici.h"
#include "core/values/Testo.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/ElencoCercato.h"

namespace fenalto::screens {
namespace {

Tipo TipoColonna(Ambiente& ambiente, const archives::DescrizioneArchivio& descrizione,
                 const std::string& campo) {
  const auto* tabella =
      ambiente.ArchivioDi(descrizione.chiave).Catalogo().Tabella(descrizione.tabella);
  const auto* colonna = tabella != nullptr ? tabella->Colonna(campo) : nullptr;
  return colonna != nullptr ? colonna->tipo : Tipo::Testo;
}

std::vector<ColonnaGriglia> ColonneGriglia(Ambiente& ambiente,
                                           const archives::DescrizioneArchivio& descrizione) {
  constexpr int kCarattere = 8;
  constexpr int kMinima = 70;
  constexpr int kMassima = 160;
  constexpr int kDescrizione = 240;  // the page's width beside a code and a short column
  std::vector<ColonnaGriglia> colonne;
  for (const auto& campo : archives::ColonneElenco(descrizione)) {
    QString titolo = Qs(campo.didascalia);
    titolo.replace(0, 1, titolo.left(1).toUpper());
    const int caratteri = std::max(campo.caratteri + 2, static_cast<int>(titolo.size()) + 2);
    const int larga = UgualeTesto(campo.nome, descrizione.campoDescrizione)
                          ? kDescrizione
                          : std::clamp(caratteri * kCarattere, kMinima, kMassima);
    colonne.push_back({titolo, TipoColonna(ambiente, descrizione, campo.nome), larga,
                       campo.decimali, Qs(campo.nome)});
  }
  return colonne;
}

QString DiQuanti(const FormaElenco::Letti& letti) {
  if (!letti.finito) return QObject::tr("i primi %1 codici").arg(letti.righe);
  if (letti.righe == 0) {
    return letti.cercato ? QObject::tr("nessun codice con questo testo")
                         : QObject::tr("nessun codice: Ins per il primo");
  }
  return letti.righe == 1 ? QObject::tr("1 codice") : QObject::tr("%1 codici").arg(letti.righe);
}

}  // namespace

PaginaSceltaArchivio::PaginaSceltaArchivio(Ambiente& ambiente,
                                           const archives::DescrizioneArchivio& descrizione)
    : ambiente_(ambiente), elenco_(ambiente, descrizione) {
  CreaSelettore(descrizione);
  CreaElenco(descrizione);
  Disponi();
  Collega();
  lista_->Ricarica();
}

void PaginaSceltaArchivio::CreaSelettore(const archives::DescrizioneArchivio& descrizione) {
  constexpr int kMinimi = 8;
  constexpr int kMassimi = 20;
  auto fonte = archives::Fonte(
      ambiente_,
      {.nome = {},
       .tabella = descrizione.tabella,
       .condizione = descrizione.filtro,
       .descrizione = descrizione.campoDescrizione.empty() ? "Cod" : descrizione.campoDescrizione,
       .chiave = descrizione.chiave});
  selettore_ = new CampoCodice(QStringLiteral("Rt1"), std::move(fonte));
  LargoCaratteri(selettore_, std::clamp(descrizione.caratteriCodice + 2, kMinimi, kMassimi));
  apri_ = Pulsante(QStringLiteral("Apri"), tr("Apri"), tr("Invio nel codice"));
  nuovo_ = Pulsante(QStringLiteral("Nuovo"), tr("Nuovo"), tr("Ins"));
  stampa_ = Pulsante(QStringLiteral("Stampa"), tr("Stampa"));
  esporta_ = Pulsante(QStringLiteral("XlsEsp"), tr("Esporto in Excel"));
  pulsanti_ = {apri_, nuovo_, stampa_, esporta_};
}

void PaginaSceltaArchivio::CreaElenco(const archives::DescrizioneArchivio& descrizione) {
  std::vector<std::string> filtri;
  for (const auto& campo : archives::ColonneElenco(descrizione)) filtri.push_back(campo.nome);
  lista_ = new ElencoCercato({.finestra = Qs(descrizione.finestra),
                              .griglia = QStringLiteral("GrigliaArchivio"),
                              .cerca = QStringLiteral("Cerca"),
                              .stato = QStringLiteral("StatoElenco"),
                              .segnaposto = tr("codice o parte del testo"),
                              .colonne = ColonneGriglia(ambiente_, descrizione),
                              .testo = DiQuanti,
                              .ordinabile = true,
                              .statoSotto = true,
                              .filtri = std::move(filtri)},
                             elenco_);
}

void PaginaSceltaArchivio::Disponi() {
  auto* scelta = new QHBoxLayout;
  Affianca(*scelta, tr("Codice"), selettore_);
  scelta->addWidget(apri_);
  scelta->addWidget(nuovo_);
  scelta->addStretch(1);
  fila_ = new QGridLayout;
  fila_->addWidget(stampa_, 0, 0);
  fila_->addWidget(esporta_, 0, 1);
  richiesta_ = new QLabel;
  richiesta_->setObjectName(QStringLiteral("RichiestaCampo"));
  richiesta_->setTextFormat(Qt::PlainText);
  richiesta_->setWordWrap(true);
  richiesta_->hide();
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(richiesta_);
  colonna->addLayout(scelta);
  // Below the code, since a description is as long as it likes and the page is narrow.
  colonna->addWidget(selettore_->Etichetta());
  selettore_->Etichetta()->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  colonna->addWidget(lista_, 1);
  colonna->addLayout(fila_);
}

QString PaginaSceltaArchivio::Indicato() const {
  selettore_->Risolvi();
  return selettore_->Esiste() ? Codice() : lista_->Indicata();
}

void PaginaSceltaArchivio::MostraRichiesta(const QString& testo) {
  richiesta_->setText(testo);
  richiesta_->show();
}

void PaginaSceltaArchivio::MostraNuovo(bool visibile) {
  nuovo_->setVisible(visibile);
}

void PaginaSceltaArchivio::AggiungiPulsante(QPushButton* pulsante) {
  const auto posto = fila_->count();
  fila_->addWidget(pulsante, posto / 2, posto % 2);
  pulsanti_ << pulsante;
}

void PaginaSceltaArchivio::Collega() {
  connect(lista_, &ElencoCercato::Scelto, this, &PaginaSceltaArchivio::Scelto);
  connect(lista_, &ElencoCercato::Indicato, this, &PaginaSceltaArchivio::MostraCodice);
  connect(apri_, &QPushButton::clicked, this, [this] { emit Scelto(Codice()); });
  connect(nuovo_, &QPushButton::clicked, this, &PaginaSceltaArchivio::Nuovo);
  connect(stampa_, &QPushButton::clicked, this, &PaginaSceltaArchivio::Stampa);
  connect(esporta_, &QPushButton::clicked, this, &PaginaSceltaArchivio::Esporta);
}

archives::FiltroElenco PaginaSceltaArchivio::Filtro() const {
  return lista_->Filtro();
}

screens::Griglia& PaginaSceltaArchivio::Griglia() {
  return lista_->Griglia();
}

void PaginaSceltaArchivio::Ricarica() {
  lista_->Rileggi();
}

void PaginaSceltaArchivio::Indica(const QString& codice) {
  lista_->Indica(codice);
}

void PaginaSceltaArchivio::Pronta() {
  MostraCodice({});
  selettore_->setFocus(Qt::OtherFocusReason);
}

bool PaginaSceltaArchivio::Esiste(const QString& codice) {
  MostraCodice(codice);
  return selettore_->Esiste();
}

void PaginaSceltaArchivio::MostraCodice(const QString& codice) {
  selettore_->Mostra(Valore(codice.toStdString()));
}

QString PaginaSceltaArchivio::Codice() const {
  return selettore_->text().trimmed();
}

bool PaginaSceltaArchivio::SvuotaRicerca() {
  return lista_->SvuotaRicerca();
}

bool PaginaSceltaArchivio::InvioInRicerca(const QObject* controllo) {
  return lista_->InvioInRicerca(controllo);
}

void PaginaSceltaArchivio::OrdinaFoco() {
  std::vector<QWidget*> inOrdine{selettore_, apri_, nuovo_};
  for (auto* controllo : lista_->Controlli()) inOrdine.push_back(controllo);
  for (auto* pulsante : pulsanti_) {
    if (pulsante != apri_ && pulsante != nuovo_) inOrdine.push_back(pulsante);
  }
  for (std::size_t i = 1; i < inOrdine.size(); ++i) {
    QWidget::setTabOrder(inOrdine[i - 1], inOrdine[i]);
  }
}

}  // namespace fenalto::screens
