#include "screens/documents/parties/PannelloFoglia.h"

#include <QLabel>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

enum Pagina { kNulla, kScadenza, kRegistrazione, kDocumento };

QLabel* Scritta(const char* nome) {
  auto* scritta = new QLabel;
  scritta->setObjectName(QString::fromLatin1(nome));
  scritta->setTextInteractionFlags(Qt::TextSelectableByMouse);
  scritta->setTextFormat(Qt::PlainText);
  scritta->setWordWrap(true);
  return scritta;
}

/// Nothing where the amount is zero, as in books.
Valore SeNonZero(Importo importo) {
  return importo.Zero() ? Valore() : Valore(importo);
}

}  // namespace

PannelloFoglia::PannelloFoglia(const QString& finestra, QWidget* genitore)
    : QWidget(genitore),
      finestra_(finestra),
      titolo_(Scritta("Titolo")),
      pagine_(new QStackedWidget),
      invito_(Scritta("Invito")),
      scadenza_(new Griglia(QStringLiteral("GrigliaScadenza"), finestra,
                            {{tr("Campo"), Tipo::Testo, 130}, {tr("Valore"), Tipo::Testo, 300}})),
      movimenti_(new Griglia(QStringLiteral("GrigliaMovimenti"), finestra,
                             {{tr("Conto"), Tipo::Testo, 75},
                              {tr("Descrizione conto"), Tipo::Testo, 165},
                              {tr("Causale"), Tipo::Testo, 55},
                              {tr("Descrizione"), Tipo::Testo, 165},
                              {tr("Dare"), Tipo::Importo, 90},
                              {tr("Avere"), Tipo::Importo, 90}})),
      scritte_(Scritta("Scritte")) {
  InGrassetto(*titolo_);
  invito_->setAlignment(Qt::AlignCenter);
  for (Griglia* griglia : {scadenza_, movimenti_}) griglia->setSortingEnabled(false);
  pagine_->addWidget(invito_);
  pagine_->addWidget(scadenza_);
  pagine_->addWidget(movimenti_);
  pagine_->addWidget(CreaDocumento());
  movimenti_->Elastica(3);
  scadenza_->Elastica(1);
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addWidget(titolo_);
  colonna->addWidget(pagine_, 1);
}

QWidget* PannelloFoglia::CreaDocumento() {
  constexpr int kAltezzaIva = 130;
  righe_ = new Griglia(QStringLiteral("GrigliaRighe"), finestra_,
                       {{tr("Codice"), Tipo::Testo, 65},
                        {tr("Descrizione"), Tipo::Testo, 170},
                        {tr("UM"), Tipo::Testo, 30},
                        {tr("Quantità"), Tipo::Importo, 65},
                        {tr("Prezzo"), Tipo::Importo, 65},
                        {tr("Sconti"), Tipo::Testo, 50},
                        {tr("Importo"), Tipo::Importo, 80},
                        {tr("IVA"), Tipo::Testo, 30},
                        {tr("Conto"), Tipo::Testo, 60},
                        {tr("Descrizione conto"), Tipo::Testo, 105}});
  iva_ = new Griglia(QStringLiteral("GrigliaIva"), finestra_,
                     {{tr("IVA"), Tipo::Testo, 50},
                      {tr("Descrizione"), Tipo::Testo, 170},
                      {tr("Aliquota"), Tipo::Importo, 70},
                      {tr("Imponibile"), Tipo::Importo, 100},
                      {tr("Imposta"), Tipo::Importo, 100},
                      {tr("Totale"), Tipo::Importo, 105}});
  for (Griglia* griglia : {righe_, iva_}) {
    griglia->setSortingEnabled(false);
    griglia->Elastica(1);
  }
  iva_->setMaximumHeight(Cresciuta(kAltezzaIva));
  auto* pagina = new QWidget;
  auto* colonna = new QVBoxLayout(pagina);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addWidget(scritte_);
  colonna->addWidget(righe_, 1);
  colonna->addWidget(iva_);
  return pagina;
}

void PannelloFoglia::Svuota(const QString& invito) {
  titolo_->clear();
  invito_->setText(invito);
  pagine_->setCurrentIndex(kNulla);
}

void PannelloFoglia::Sparita() {
  Svuota(tr("non c'è più: è stata eliminata nel frattempo\nF5 rilegge"));
}

void PannelloFoglia::Mostra(documents::InterrogazioneParte& parte,
                            const documents::FogliaParte& foglia) {
  switch (foglia.genere) {
    case documents::GenereFoglia::Scadenza:
      return MostraScadenza(parte, foglia);
    case documents::GenereFoglia::Movimento:
      return MostraRegistrazione(parte, foglia);
    case documents::GenereFoglia::Documento:
      return MostraDocumento(parte, foglia);
  }
}

void PannelloFoglia::MostraScadenza(documents::InterrogazioneParte& parte,
                                    const documents::FogliaParte& foglia) {
  std::vector<std::vector<Valore>> righe;
  for (const auto& [nome, valore] : parte.Scadenza(foglia.numero)) {
    righe.push_back({nome, valore});
  }
  if (righe.empty()) return Sparita();
  titolo_->setText(tr("Scadenza"));
  scadenza_->Modello().Righe(std::move(righe));
  pagine_->setCurrentIndex(kScadenza);
}

void PannelloFoglia::MostraRegistrazione(documents::InterrogazioneParte& parte,
                                         const documents::FogliaParte& foglia) {
  std::vector<std::vector<Valore>> righe;
  for (const documents::RigaRegistrazione& r : parte.Registrazione(foglia.anno, foglia.numero)) {
    righe.push_back(
        {r.conto, r.descrConto, r.causale, r.descrizione, SeNonZero(r.dare), SeNonZero(r.avere)});
  }
  if (righe.empty()) return Sparita();
  titolo_->setText(tr("Registrazione n. %1 anno %2").arg(foglia.numero).arg(foglia.anno));
  movimenti_->Modello().Decimali(parte.DecimaliDi(foglia.anno));
  movimenti_->Modello().Righe(std::move(righe));
  pagine_->setCurrentIndex(kRegistrazione);
}

void PannelloFoglia::MostraDocumento(documents::InterrogazioneParte& parte,
                                     const documents::FogliaParte& foglia) {
  const documents::DocumentoParte documento = parte.Documento(foglia);
  if (documento.titolo.empty()) return Sparita();
  titolo_->setText(Qs(documento.titolo));
  QStringList scritte;
  for (const std::string& scritta : documento.scritte) scritte << Qs(scritta);
  scritte_->setText(scritte.join(QLatin1Char('\n')));
  scritte_->setHidden(scritte.isEmpty());
  std::vector<std::vector<Valore>> righe;
  for (const documents::RigaDocumentoParte& r : documento.righe) {
    righe.push_back({r.codice, r.descrizione, r.um, SeNonZero(r.quantita), SeNonZero(r.prezzo),
                     r.sconti, SeNonZero(r.importo), r.codIva, r.conto, r.descrConto});
  }
  righe_->Modello().Righe(std::move(righe));
  righe.clear();
  for (const documents::TotaleIvaDocumento& t : documento.totali) {
    righe.push_back({t.codIva, t.descrizione, t.perc, t.imponibile, t.iva, t.imponibile + t.iva});
  }
  iva_->Modello().Decimali(parte.DecimaliDi(foglia.anno));
  iva_->Modello().Righe(std::move(righe));
  pagine_->setCurrentIndex(kDocumento);
}

}  // namespace fenalto::screens
