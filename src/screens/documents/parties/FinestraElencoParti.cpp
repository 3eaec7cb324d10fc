#include "screens/documents/parties/FinestraElencoParti.h"

#include "core/archives/FonteCodici.h"

namespace fenalto::screens {
namespace {

using documents::SceltaParti;
using records::Campo;
using records::Digitato;

constexpr records::CampoRiga<SceltaParti> kParti[] = {
    Campo<&SceltaParti::daCod>("DaCod"),         Campo<&SceltaParti::aCod>("ACod"),
    Campo<&SceltaParti::categoria>("Categoria"), Campo<&SceltaParti::agente>("Agente"),
    Campo<&SceltaParti::perNome>("PerNome"),     Campo<&SceltaParti::dettagliato>("Forma")};

bool Clienti(const std::string& cfp) {
  return cfp == "C";
}

records::DescrizioneForma FormaElencoParti(const std::string& cfp) {
  constexpr int kCifreCodice = 11;
  constexpr const char* kScelta = "FrameScelta";
  constexpr const char* kElenco = "FrameElenco";
  const auto codice = [](const char* nome, const char* testo, const std::string& fonte,
                         const char* vuoto) {
    return records::DiCodice(nome, testo, fonte, kCifreCodice)
        .In(kScelta)
        .Segnaposto(vuoto)
        .Peso(1);
  };
  const std::string parti = archives::NomeFonteConti(cfp);
  records::DescrizioneForma forma{
      .campi = {codice("DaCod", "dal codice", parti, "dal primo"),
                codice("ACod", "al codice", parti, "all'ultimo"),
                codice("Categoria", "categoria", "categorie", "tutte")},
      .riquadri = {
          {.nome = kScelta, .titolo = Clienti(cfp) ? "Clienti" : "Fornitori", .largo = true},
          {.nome = kElenco, .titolo = "Elenco", .largo = true}}};
  if (Clienti(cfp)) forma.campi.push_back(codice("Agente", "agente", "agenti", "tutti"));
  forma.campi.push_back(
      Digitato("Forma")
          .Di(records::GenereCampo::Opzioni)
          .In(kElenco)
          .AlMargine()
          .Scelte(
              {{"False", "sintetico: codice, nome, località, telefono, partita IVA", "Sintetico"},
               {"True", "dettagliato: tutta l'anagrafica e il saldo contabile", "Dettagliato"}}));
  forma.campi.push_back(Digitato("PerNome", "in ordine di nome").In(kElenco).AlMargine());
  return forma;
}

}  // namespace

FinestraElencoParti::FinestraElencoParti(const std::string& cfp, Finestre& finestre)
    : FinestraRapporto(Clienti(cfp) ? QStringLiteral("STClienti") : QStringLiteral("STFornitori"),
                       Clienti(cfp) ? tr("Stampa anagrafica e contabile clienti")
                                    : tr("Stampa anagrafica e contabile fornitori"),
                       finestre),
      cfp_(cfp),
      elenco_(finestre.Sessione(), finestre.Uscite()) {
  Proponi(kParti, SceltaParti());
  RifiutiDi(elenco_);
  Compila(FormaElencoParti(cfp), Piede::OpzioniEFoglio);
}

documents::SceltaElencoParti FinestraElencoParti::Digitata() const {
  documents::SceltaElencoParti scelta{.parti = Scelta(kParti)};
  scelta.parti.cfp = cfp_;
  Opzioni().Prendi(scelta);
  return scelta;
}

void FinestraElencoParti::Stampa() {
  elenco_.Stampa(Digitata());
}

reports::Foglio FinestraElencoParti::Foglio() {
  return elenco_.FoglioParti(Digitata());
}

std::string FinestraElencoParti::NomeFoglio() const {
  return Clienti(cfp_) ? "elenco clienti" : "elenco fornitori";
}

}  // namespace fenalto::screens
