#include "screens/assets/RiquadroCespite.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;
using records::Mostrato;

records::DescrizioneForma FormaRigaCespite() {
  constexpr int kImporto = 14;
  return {
      .campi =
          {DiCodice("Cau", "Causale", "causaliCespiti", 5).Peso(2),
           // Passing by proposes the year; of the rate it works the quota out.
           Digitato("Anno", "Anno", 6).Colonna(1).AnchePassando(),
           Digitato("P", "%", 8)
               .Accanto()
               .AnchePassando()
               .Aiuto("vuota: si propone quella della categoria"),
           Digitato("Importo", "Importo", kImporto).Colonna(2),
           Digitato("StornoFondoDismParz", "", kImporto).Nomina("DidascaliaStorno").Accanto(),
           Digitato("Estremi", "Estremi").Peso(2),
           Digitato("Note", "Note").Colonna(1).Colonne(2).Peso(2),
           Mostrato("AiutoCausale", records::GenereCampo::Sommessa).AlMargine().Colonne(3).Peso(1)},
      .stretta = true};
}

}  // namespace

RiquadroCespite::RiquadroCespite(assets::Cespiti& cespiti, Finestre& finestre, QWidget* genitore)
    : RiquadroSul(cespiti, finestre, genitore) {
  auto& colonna = Compila(FormaRigaCespite());
  if (auto* aiuto = findChild<QLabel*>(QStringLiteral("AiutoCausale"))) aiuto->setWordWrap(true);
  auto* piede = new QHBoxLayout;
  piede->addWidget(quale_);
  piede->addStretch(1);
  for (auto* pulsante : {conferma_, elimina_, annulla_}) piede->addWidget(pulsante);
  colonna.addLayout(piede);
  OrdinaFuochi(campi_->Ordine() + QList<QWidget*>{conferma_, elimina_, annulla_});
}

records::StatoCampo RiquadroCespite::Stato(const std::string& nome) const {
  if (nome == "P") return {.visibile = caso_.Riga().Testo("Cau") == assets::kQuota};
  if (nome == "StornoFondoDismParz") {
    const std::string didascalia = caso_.DidascaliaStorno();
    return {.visibile = !didascalia.empty(), .didascalia = didascalia};
  }
  if (nome == "AiutoCausale") {
    const std::string aiuto = caso_.AiutoCausale();
    return {.testo = aiuto};
  }
  return {};
}

bool RiquadroCespite::ConfermaRiga(std::string& campo) {
  return caso_.ConfermaRiga(&campo);
}

}  // namespace fenalto::screens
