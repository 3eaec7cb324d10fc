#include "screens/common/reports/FinestraRapporto.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/EsportaGriglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/InCorso.h"

namespace fenalto::screens {

FinestraRapporto::FinestraRapporto(const QString& nome, const QString& titolo, Finestre& finestre)
    : FinestraFunzione(nome, titolo, finestre),
      legatura_(new Legatura([this]() -> Scheda& { return scheda_; }, finestre.Sessione().Dialogo(),
                             this)) {}

FinestraRapporto::~FinestraRapporto() {
  hide();  // nothing is read from its fields any more
}

OpzioniGrafiche& FinestraRapporto::CreaOpzioni() {
  opzioni_ = new OpzioniGrafiche(Nome(), Sessione(), scheda_, *legatura_);
  return *opzioni_;
}

QVBoxLayout& FinestraRapporto::Compila(records::DescrizioneForma forma, Piede piede) {
  constexpr int kLarghezzaMinima = 560;
  auto* colonna = new QVBoxLayout(this);
  auto* pagina = new QVBoxLayout;
  colonna->addLayout(pagina);
  Compila(std::move(forma), [pagina](const std::string&) -> QVBoxLayout& { return *pagina; });
  colonna->addLayout(CreaPiede(piede));
  colonna->addStretch(1);
  // Never narrower than what stands in it, as a minimum width of the window would let it be.
  colonna->addStrut(Cresciuta(kLarghezzaMinima));
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
  Mostra();
  return *pagina;
}

void FinestraRapporto::Compila(records::DescrizioneForma forma, const CampiForma::Pagine& pagine) {
  campi_ = std::make_unique<CampiForma>(Sessione(), std::move(forma), QList{legatura_}, pagine);
  connect(legatura_, &Legatura::Lasciato, this, [this](const QString& campo, bool cambiato) {
    if (!cambiato) return;
    Cambiato(campo.toStdString());
    MostraStati();
  });
}

QHBoxLayout* FinestraRapporto::CreaPiede(Piede piede) {
  auto* riga = piede == Piede::SoloStampa ? new QHBoxLayout : CreaOpzioni().Riga();
  if (piede == Piede::SoloStampa) riga->addStretch(1);
  auto* stampa = Pulsante(QStringLiteral("Stampa"), tr("Stampa"));
  connect(stampa, &QPushButton::clicked, this, [this] { Raccolto([this] { Stampa(); }); });
  QList<QAbstractButton*> pulsanti{stampa};
  if (piede == Piede::OpzioniEFoglio) {
    auto* foglio = Pulsante(QStringLiteral("XlsEsp"), tr("Esporta in foglio"));
    connect(foglio, &QPushButton::clicked, this, [this] { Raccolto([this] { EsportaFoglio(); }); });
    riga->addWidget(foglio);
    pulsanti << foglio;
  }
  riga->addWidget(stampa);
  AssegnaMnemoniche(pulsanti);
  return riga;
}

void FinestraRapporto::Mostra() {
  legatura_->Mostra();
  MostraStati();
}

void FinestraRapporto::MostraStati() {
  campi_->Applica([this](const std::string& campo) { return Stato(campo); }, false);
}

void FinestraRapporto::InLettura(const std::function<void()>& lavoro) {
  const InCorso lettura(leggendo_);
  lavoro();
}

void FinestraRapporto::Raccolto(const std::function<void()>& lavoro) {
  if (leggendo_ || !Raccogli()) return;
  InLettura(lavoro);
  if (caso_ != nullptr && !caso_->CampoRifiutato().empty()) {
    campi_->DaiFoco(QString::fromStdString(caso_->CampoRifiutato()));
  }
}

void FinestraRapporto::EsportaFoglio() {
  const reports::Foglio composto = Foglio();
  if (composto.colonne.empty()) return;  // nothing found, or stopped by the user
  if (const auto uscita = Dialogo().ScegliUscita(NomeFoglio(), true)) {
    ScriviFoglio(composto, *uscita, Dialogo());
  }
}

}  // namespace fenalto::screens
