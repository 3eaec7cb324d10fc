#include "screens/duedates/reports/FinestraEstrattoConto.h"

namespace fenalto::screens {
namespace {

using duedates::SceltaEstrattoConto;

constexpr records::CampoRiga<SceltaEstrattoConto> kLettera[] = {
    records::Campo<&SceltaEstrattoConto::alla>("AllaData")};

}  // namespace

FinestraEstrattoConto::FinestraEstrattoConto(Finestre& finestre)
    : FinestraRapportoScadenze(QStringLiteral("STEstrattoConto"), tr("Stampa Estratto Conto"),
                               finestre),
      estratto_(finestre.Sessione(), finestre.Uscite()) {
  constexpr const char* kRiquadro = "FrameLettera";
  Proponi(kLettera, estratto_.Proposta());
  auto forma = FormaScadenze();
  forma.riquadri.push_back({.nome = kRiquadro, .titolo = "Estratto conto", .largo = true});
  forma.campi.push_back(records::Digitato("AllaData", "alla data del")
                            .In(kRiquadro)
                            .Aiuto("le scadenze anteriori a questa data sono date per scadute"));
  forma.campi.push_back(records::Digitato("PagateDal", "le pagate, dal")
                            .In(kRiquadro)
                            .Accanto()
                            .Aiuto("vuota: tutte le scadenze pagate"));
  RifiutiDi(estratto_);
  Compila(std::move(forma), Piede::Opzioni);
}

records::StatoCampo FinestraEstrattoConto::Stato(const std::string& campo) {
  if (campo == "PagateDal") return {.attivo = Record().Leggi("AnchePagate").Booleano()};
  return FinestraRapportoScadenze::Stato(campo);
}

void FinestraEstrattoConto::Stampa() {
  SceltaEstrattoConto scelta = Scelta(kLettera);
  scelta.scadenze = Scadenze();
  estratto_.Stampa(scelta);
}

}  // namespace fenalto::screens
