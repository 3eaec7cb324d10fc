#include "screens/vat/entry/RiquadroRigaIva.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/ledger/FontiForma.h"

namespace fenalto::screens {
namespace {

using records::CampoForma;
using Genere = records::GenereCampo;

constexpr const char* kScorpora = "PulisciImporti";

CampoForma Codice(const char* nome, const char* didascalia, int caratteri,
                  records::FonteCampo fonte, int peso) {
  return {.nome = nome,
          .didascalia = didascalia,
          .caratteri = caratteri,
          .genere = Genere::Codice,
          .fonte = std::move(fonte),
          .accanto = true,
          .peso = peso};
}

CampoForma DiImporto(const char* nome, const char* didascalia, bool accanto) {
  constexpr int kCifre = 13;
  return {.nome = nome,
          .didascalia = didascalia,
          .caratteri = kCifre,
          .decimali = records::kDecimaliMoneta,
          .accanto = accanto};
}

CampoForma Lordo() {
  CampoForma campo = DiImporto("Totale", "Lordo", false);
  campo.suggerimento = "importo iva compresa, da scorporare";
  campo.turno = 1;
  return campo;
}

records::DescrizioneForma FormaRigaIva() {
  constexpr int kConto = 11;
  constexpr int kCodice = 6;
  constexpr int kPosizione = 5;
  return {.campi = {Codice("Conto", "Conto", kConto, DaConti(), 3),
                    Codice("CodIva", "Codice iva", kCodice, DaCodiciIva(), 2),
                    {.nome = "Posi",
                     .didascalia = "Posizione",
                     .caratteri = kPosizione,
                     .accanto = true,
                     .turno = 2},
                    DiImporto("Imponibile", "Imponibile", false),
                    DiImporto("Iva", "Iva", true),
                    DiImporto("IvaInd", "Iva indetraibile", true),
                    {.nome = "Descrizione", .didascalia = "Descrizione", .peso = 3},
                    Codice("Categoria", "Categoria", kCodice, DaCategorie(), 1),
                    {.nome = "Commessa", .didascalia = "Commessa", .accanto = true, .peso = 1},
                    Lordo(),
                    {.nome = kScorpora,
                     .didascalia = "Scorpora il lordo",
                     .genere = Genere::Pulsante,
                     .accanto = true,
                     .turno = 1}},
          .stretta = true};
}

}  // namespace

RiquadroRigaIva::RiquadroRigaIva(vat::RegistrazioneIva& fatture, Finestre& finestre,
                                 QWidget* genitore)
    : RiquadroSul(fatture, finestre, genitore) {
  Compila(FormaRigaIva());
  campi_->Linea("IvaInd").addWidget(quale_);
  const QList<QWidget*> pulsanti{conferma_, elimina_, annulla_};
  for (auto* pulsante : pulsanti) campi_->Linea(kScorpora).addWidget(pulsante);
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
