#include "screens/assets/RiquadroCespite.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;

/// Makes a wrapped text as tall as it needs to be in the width that it has.
void Adatta(QLabel& testo) {
  testo.setMinimumHeight(testo.heightForWidth(testo.width()));
}

/// A wrapped text whose height the page doesn't ask for beforehand: it would be that of its
/// narrowest shape.
class EtichettaAiuto : public QLabel {
 public:
  [[nodiscard]] bool hasHeightForWidth() const override { return false; }

 protected:
  void resizeEvent(QResizeEvent* evento) override {
    QLabel::resizeEvent(evento);
    Adatta(*this);
  }
};

records::DescrizioneForma FormaRigaCespite() {
  constexpr int kImporto = 14;
  return {
      .campi = {DiCodice("Cau", "Causale", "causaliCespiti", 5).Peso(2),
                // Passing by proposes the year; of the rate it works the quota out.
                Digitato("Anno", "Anno", 6).Colonna(1).AnchePassando(),
                Digitato("P", "%", 8)
                    .Accanto()
                    .AnchePassando()
                    .Aiuto("vuota: si propone quella della categoria"),
                Digitato("Importo", "Importo", kImporto).Colonna(2),
                Digitato("StornoFondoDismParz", "", kImporto).Nomina("DidascaliaStorno").Accanto(),
                Digitato("Estremi", "Estremi").Peso(2),
                Digitato("Note", "Note").Colonna(1).Colonne(2).Peso(2)},
      .stretta = true};
}

}  // namespace

RiquadroCespite::RiquadroCespite(assets::Cespiti& cespiti, Finestre& finestre, QWidget* genitore)
    : RiquadroSul(cespiti, finestre, genitore), aiuto_(new EtichettaAiuto) {
  auto& colonna = Compila(FormaRigaCespite());
  auto* piede = new QHBoxLayout;
  aiuto_->setObjectName(QStringLiteral("AiutoCausale"));
  aiuto_->setTextFormat(Qt::PlainText);
  aiuto_->setWordWrap(true);
  aiuto_->setFont(Carattere(Grado::Nota));
  aiuto_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  quale_->setParent(this);
  quale_->hide();
  piede->addWidget(aiuto_, 1);
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
  if (nome == "Cau") {
    aiuto_->setText(QString::fromStdString(caso_.AiutoCausale()));
    Adatta(*aiuto_);
  }
  return {};
}

bool RiquadroCespite::ConfermaRiga(std::string& campo) {
  return caso_.ConfermaRiga(&campo);
}

}  // namespace fenalto::screens
