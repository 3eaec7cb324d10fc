#include "screens/ledger/closing/PaginaGiri.h"

#include <QVBoxLayout>

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;
using records::GenereCampo;
using records::Mostrato;

constexpr int kCifreConto = 10;
constexpr int kCifreCausale = 6;

records::DescrizioneForma FormaGiri(int anno) {
  constexpr const char* kEconomici = "FrameEconomici";
  constexpr const char* kUtile = "FrameUtile";
  constexpr const char* kChiusura = "FrameChiusura";
  const auto conto = [](const char* nome, const char* didascalia, const char* riquadro) {
    return DiCodice(nome, didascalia, "contropartite", kCifreConto).In(riquadro).Peso(1);
  };
  const auto causale = [](const char* nome, const char* riquadro) {
    return DiCodice(nome, "causale", "causali", kCifreCausale).In(riquadro).Peso(1);
  };
  const auto pulsante = [](const char* nome, const char* testo, const char* riquadro) {
    return Mostrato(nome, GenereCampo::Pulsante, testo).In(riquadro);
  };
  return {.campi = {Digitato("DtGiroEcon", "data registrazione").In(kEconomici),
                    conto("C_ProfittiPerdite", "conto profitti e perdite", kEconomici),
                    causale("Cau_ProfittiPerdite", kEconomici),
                    pulsante("pConfermaEconomici", "Conferma giro economici", kEconomici),
                    conto("C_UtilePerdita", "conto utile/perdita", kUtile),
                    causale("Cau_UtilePerdita", kUtile),
                    pulsante("pConfermaUtile", "Conferma giro utile/perdita", kUtile),
                    Digitato("DtGiroPatr", "data registrazione").In(kChiusura),
                    conto("C_Chiusura", "conto di chiusura", kChiusura),
                    causale("Cau_Chiusura", kChiusura),
                    pulsante("pConfermaChiusura", "Conferma chiusura conti", kChiusura)},
          .riquadri = {{.nome = kEconomici,
                        .titolo = "1. Giro dei conti economici " + std::to_string(anno) +
                                  " a profitti e perdite",
                        .largo = true},
                       {.nome = kUtile,
                        .titolo = "2. Giro dell'utile o della perdita allo stato patrimoniale",
                        .largo = true},
                       {.nome = kChiusura,
                        .titolo = "3. Chiusura dei conti patrimoniali " + std::to_string(anno) +
                                  " (dopo il trasporto dei saldi)",
                        .largo = true}}};
}

}  // namespace

PaginaGiri::PaginaGiri(Finestre& finestre)
    : PaginaGiri(finestre, std::make_unique<ledger::Chiusure>(finestre.Sessione())) {}

PaginaGiri::PaginaGiri(Finestre& finestre, std::unique_ptr<ledger::Chiusure> chiusure)
    : PaginaDiForma(finestre, chiusure->Dati()), chiusure_(std::move(chiusure)) {
  auto* colonna = new QVBoxLayout(this);
  auto* riquadri = new QVBoxLayout;
  colonna->addLayout(riquadri);
  colonna->addStretch(1);
  Compila(FormaGiri(finestre.Sessione().Anno()), *riquadri);
  const auto rifiutato = [this] { return chiusure_->CampoRifiutato(); };
  Premuto("pConfermaEconomici", [this] { return chiusure_->ConfermaEconomici(); }, rifiutato);
  Premuto("pConfermaUtile", [this] { return chiusure_->ConfermaUtile(); }, rifiutato);
  Premuto("pConfermaChiusura", [this] { return chiusure_->ConfermaChiusura(); }, rifiutato);
  Mostra();
}

}  // namespace fenalto::screens
