#include "screens/duedates/reports/FinestraRapportoScadenze.h"

#include "core/archives/FonteCodici.h"

namespace fenalto::screens {
namespace {

using duedates::SceltaScadenze;
using records::Campo;
using records::DiCodice;
using records::Digitato;

constexpr int kCifreCodice = 11;
constexpr const char* kRiquadroScelta = "FrameScelta";

constexpr records::CampoRiga<SceltaScadenze> kScelta[] = {
    Campo<&SceltaScadenze::cfp>("CFPx"),
    Campo<&SceltaScadenze::daCliFor>("DaCliFor"),
    Campo<&SceltaScadenze::aCliFor>("ACliFor"),
    Campo<&SceltaScadenze::daData>("DaData"),
    Campo<&SceltaScadenze::aData>("AData"),
    Campo<&SceltaScadenze::anchePagate>("AnchePagate"),
    Campo<&SceltaScadenze::pagateDal>("PagateDal")};

}  // namespace

FinestraRapportoScadenze::FinestraRapportoScadenze(const QString& nome, const QString& titolo,
                                                   Finestre& finestre)
    : FinestraRapporto(nome, titolo, finestre) {
  Proponi(kScelta, SceltaScadenze());
  classe_ = Record().Testo("CFPx");
}

records::CampoForma FinestraRapportoScadenze::NelRiquadro(records::CampoForma&& campo) {
  return std::move(campo).In(kRiquadroScelta);
}

records::DescrizioneForma FinestraRapportoScadenze::FormaParti(const std::string& titolo) {
  return {.campi = {NelRiquadro(Digitato("CFPx", "stampo")
                                    .Di(records::GenereCampo::Elenco)
                                    .Scelte({{"C"}, {"F"}})
                                    .Aiuto("C clienti, F fornitori")),
                    NelRiquadro(DiCodice("DaCliFor", "dal codice", "clienti", kCifreCodice)
                                    .Segnaposto("dal primo")
                                    .Peso(1)),
                    NelRiquadro(DiCodice("ACliFor", "al codice", "clienti", kCifreCodice)
                                    .Segnaposto("all'ultimo")
                                    .Peso(1))},
          .riquadri = {{.nome = kRiquadroScelta, .titolo = titolo, .largo = true}}};
}

records::DescrizioneForma FinestraRapportoScadenze::FormaScadenze() {
  auto forma = FormaParti("Scadenze");
  forma.campi.push_back(NelRiquadro(Digitato("DaData", "scadenza dal")));
  forma.campi.push_back(NelRiquadro(Digitato("AData", "al").Accanto()));
  forma.campi.push_back(NelRiquadro(Digitato("AnchePagate", "anche le scadenze pagate").Accanto()));
  return forma;
}

duedates::SceltaScadenze FinestraRapportoScadenze::Scadenze() const {
  return Scelta(kScelta);
}

records::StatoCampo FinestraRapportoScadenze::Stato(const std::string& campo) {
  if (campo != "DaCliFor" && campo != "ACliFor") return {};
  return {.fonte = archives::NomeFonteConti(classe_)};
}

void FinestraRapportoScadenze::Cambiato(const std::string& campo) {
  if (campo != "CFPx" || Record().Testo("CFPx") == classe_) return;
  classe_ = Record().Testo("CFPx");
  for (const char* codice : {"DaCliFor", "ACliFor"}) Record().Scrivi(codice, Valore(std::string()));
  Mostra();
}

}  // namespace fenalto::screens
