#include "screens/documents/entry/RiquadroRigaDocumento.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "screens/documents/entry/AccantoDocumento.h"
#include "screens/documents/entry/FormaDocumento.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::screens {

RiquadroRigaDocumento::RiquadroRigaDocumento(documents::FattureCli& documento, Finestre& finestre,
                                             QWidget* genitore)
    : RiquadroSul(documento, finestre, genitore), accanto_(new AccantoDocumento(finestre)) {
  auto& sessione = finestre.Sessione();
  setTitle(QString());
  auto& colonna = Compila(FormaRigaDocumento(warehouse::DecimaliQuantita(sessione),
                                             warehouse::DecimaliPrezzo(sessione)));
  // Without a title the frame begins where its fields would.
  QMargins margini = colonna.contentsMargins();
  margini.setTop(margini.top() + Misura(Passo::Vicino));
  colonna.setContentsMargins(margini);
  auto& testo = campi_->Controllo("Descrizione");
  constexpr int kRighe = 2;
  testo.setFixedHeight(kRighe * testo.fontMetrics().lineSpacing() + Misura(Passo::Gruppo));
  const QList<QWidget*> pulsanti{conferma_, elimina_, annulla_};
  auto* sotto = new QHBoxLayout;
  sotto->addWidget(quale_);
  sotto->addWidget(accanto_, 1);
  for (auto* pulsante : pulsanti) sotto->addWidget(pulsante);
  colonna.addLayout(sotto);
  OrdinaFuochi(campi_->Ordine() + campi_->Ordine(1) + pulsanti + campi_->Ordine(2));
  legatura_->Rinuncia(annulla_);
}

CampoCodice& RiquadroRigaDocumento::Prodotto() const {
  return campi_->Codice("CodiceRiga");
}

bool RiquadroRigaDocumento::Intatta() const {
  return RigaAperta() && RigaNuova() && !Digitata();
}

bool RiquadroRigaDocumento::VaiA(const std::string& campo) {
  return campi_->DaiFoco(Qs(campo));
}

bool RiquadroRigaDocumento::ConfermaRiga(std::string& campo) {
  const bool nuova = caso_.RigaNuova();
  const bool riuscita = caso_.ConfermaRiga(&campo);
  confermataNuova_ = riuscita && nuova;
  return riuscita;
}

records::StatoCampo RiquadroRigaDocumento::Stato(const std::string& nome) const {
  if (nome != "NotaRiga") return caso_.StatoRiga(nome);
  // Whenever the fields are shown anew, so is what stands beside them.
  accanto_->Mostra(caso_.Accanto());
  const std::string nota = caso_.NotaRiga();
  return {.testo = Qs(nota) == quale_->text() ? "" : nota};
}

std::string RiquadroRigaDocumento::PrimoCampo() const {
  const auto& riga = caso_.Riga();
  const bool vuota = riga.Testo("CodiceRiga").empty() && riga.Testo("Descrizione").empty();
  return vuota ? "CodiceRiga" : "Quantita";
}

}  // namespace fenalto::screens
