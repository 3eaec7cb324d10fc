#include "screens/vat/entry/RiquadroRigaIva.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;
using records::DiMoneta;

constexpr const char* kScorpora = "PulisciImporti";

records::DescrizioneForma FormaRigaIva() {
  constexpr int kCodice = 6;
  constexpr int kImporto = 12;
  return {.campi = {DiCodice("Conto", "Conto", "conti", 11).Peso(3),
                    DiCodice("CodIva", "Codice iva", "codiciIva", kCodice).Accanto().Peso(2),
                    Digitato("Posi", "Posizione", 5).Accanto().Turno(2),
                    DiMoneta("Imponibile", "Imponibile", kImporto),
                    DiMoneta("Iva", "Iva", kImporto).Accanto(),
                    DiMoneta("IvaInd", "Iva indetraibile", kImporto).Accanto(),
                    Digitato("Descrizione", "Descrizione").Peso(3),
                    DiCodice("Categoria", "Categoria", "categorie", kCodice).Accanto().Peso(1),
                    Digitato("Commessa", "Commessa").Accanto().Peso(1),
                    DiMoneta("Totale", "Lordo", kImporto)
                        .Aiuto("importo iva compresa, da scorporare")
                        .Turno(1),
                    Digitato(kScorpora, "Scorpora il lordo")
                        .Di(records::GenereCampo::Pulsante)
                        .Accanto()
                        .Turno(1)},
          .stretta = true};
}

}  // namespace

RiquadroRigaIva::RiquadroRigaIva(vat::RegistrazioneIva& fatture, Finestre& finestre,
                                 QWidget* genitore)
    : RiquadroSul(fatture, finestre, genitore) {
  auto& colonna = Compila(FormaRigaIva());
  const QList<QWidget*> pulsanti{conferma_, elimina_, annulla_};
  auto* sotto = new QHBoxLayout;
  sotto->addWidget(quale_);
  sotto->addStretch(1);
  for (auto* pulsante : pulsanti) sotto->addWidget(pulsante);
  colonna.addLayout(sotto);
  OrdinaFuochi(campi_->Ordine() + pulsanti + campi_->Ordine(1) + campi_->Ordine(2));
  legatura_->Rinuncia(annulla_);
  connect(&campi_->Pulsante(kScorpora), &QAbstractButton::clicked, this,
          &RiquadroRigaIva::Scorpora);
}

QList<QAbstractButton*> RiquadroRigaIva::Pulsanti() const {
  return RiquadroDiRiga::Pulsanti() << &campi_->Pulsante(kScorpora);
}

std::string RiquadroRigaIva::PrimoCampo() const {
  const auto& riga = caso_.Riga();
  for (const char* codice : {"Conto", "CodIva"}) {
    if (riga.Testo(codice).empty()) return codice;
  }
  return riga.Leggi("Imponibile").Importo().Zero() ? "Imponibile" : "";
}

void RiquadroRigaIva::Scorpora() {
  if (!legatura_->Raccogli()) return;
  caso_.PulisciImporti();
  legatura_->Mostra();
  auto& codIva = campi_->Codice("CodIva");
  if (codIva.text().isEmpty()) {
    codIva.setFocus();
  } else {
    PrendiFoco();
  }
}

}  // namespace fenalto::screens
