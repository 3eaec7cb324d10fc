#include "screens/common/lists/EsportaGriglia.h"

namespace fenalto::screens {
namespace {

/// Reads the pages of rows still missing; false when the user gave up.
bool LeggiTutte(ModelloGriglia& modello, Dialoghi& dialoghi) {
  if (!modello.canFetchMore({})) return true;
  const auto lavoro = dialoghi.Avvia("Lettura delle righe da esportare", 0);
  while (modello.canFetchMore({})) {
    modello.fetchMore({});
    if (!lavoro->Avanza(modello.rowCount())) return false;
  }
  return true;
}

Esito<bool> Scrivi(const reports::Foglio& foglio, const SceltaUscita& scelta) {
  return scelta.destinazione == Destinazione::Csv ? reports::EsportaCsv(foglio, scelta.file)
                                                  : reports::EsportaXlsx(foglio, scelta.file);
}

}  // namespace

reports::Foglio FoglioDi(Griglia& griglia, Ambiente& ambiente, const std::string& titolo) {
  const auto& modello = griglia.Modello();
  reports::Foglio foglio;
  foglio.premessa = {{"anno " + std::to_string(ambiente.Anno()), "ditta " + ambiente.Ditta(),
                      "data stampa " + ambiente.Ora().Oggi().Testo()},
                     {titolo}};
  std::vector<std::size_t> mostrate;
  for (std::size_t i = 0; i < modello.Colonne().size(); ++i) {
    if (griglia.isColumnHidden(static_cast<int>(i))) continue;
    const auto& colonna = modello.Colonne()[i];
    mostrate.push_back(i);
    foglio.colonne.push_back({colonna.titolo.toStdString(), colonna.tipo, colonna.decimali});
  }
  const int righe = modello.rowCount();
  foglio.righe.reserve(static_cast<std::size_t>(righe));
  for (int riga = 0; riga < righe; ++riga) {
    const auto& valori = modello.Riga(riga);
    auto& celle = foglio.righe.emplace_back();
    celle.reserve(mostrate.size());
    for (const auto i : mostrate) celle.push_back(valori[i].Come(modello.Colonne()[i].tipo));
  }
  return foglio;
}

bool EsportaGriglia(Griglia& griglia, Ambiente& ambiente, const std::string& titolo) {
  auto& dialoghi = ambiente.Dialogo();
  const auto scelta = dialoghi.ScegliUscita(titolo, true);
  if (!scelta || !LeggiTutte(griglia.Modello(), dialoghi)) return false;
  const auto esito = Scrivi(FoglioDi(griglia, ambiente, titolo), *scelta);
  if (!esito) dialoghi.Messaggio(esito.Errore().messaggio, Icona::Errore);
  return esito.Riuscito();
}

void ScriviFoglio(const reports::Foglio& foglio, const SceltaUscita& scelta, Dialoghi& dialoghi) {
  if (const auto esito = Scrivi(foglio, scelta); !esito) {
    return dialoghi.Messaggio(esito.Errore().messaggio, Icona::Errore);
  }
  dialoghi.Annuncia("esportato in " + scelta.file.string());
}

}  // namespace fenalto::screens
