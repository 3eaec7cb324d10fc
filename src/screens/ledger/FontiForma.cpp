#include "screens/ledger/FontiForma.h"

#include "core/sql/Criterio.h"

namespace fenalto::screens {
namespace {

records::FonteCampo DiClasse(const std::string& classe, const char* conti) {
  if (classe == "C") {
    return {.fonte = "ZCLIENTI", .campoDescrizione = "RAGSOC1", .archivio = "CLIENTI"};
  }
  if (classe == "F") {
    return {.fonte = "ZFORNITORI", .campoDescrizione = "RAGSOC1", .archivio = "FORNITORI"};
  }
  return {.fonte = std::string("SELECT * FROM ") + conti + " WHERE CFP='P'", .archivio = "CONTI"};
}

}  // namespace

records::FonteCampo DaConti(const std::string& classe) {
  return DiClasse(classe, "zConti");
}

records::FonteCampo DaContropartite(const std::string& classe) {
  return DiClasse(classe, "Conti");
}

records::FonteCampo DaCausali() {
  return {.fonte = "Causali",
          .archivio = "CAUSALI",
          .elencati = "select * from Causali where (cod<'1' or cod>'9zz')"};
}

records::FonteCampo DaCategorie() {
  return {.fonte = "Categorie", .archivio = "CATEGORIE"};
}

records::FonteCampo DaCodiciIva() {
  return {.fonte = "CodiciIva", .archivio = "CODICIIVA"};
}

records::FonteCampo DaPagamenti() {
  return {.fonte = "Pagamento", .archivio = "CODICIPAGAMENTO"};
}

records::FonteCampo DaRegistriIva(const std::string& tipo) {
  return {.fonte = "RegistriIva", .filtro = sql::Criterio("Tipo", "=", tipo)};
}

records::FonteCampo DaTipiPagamento() {
  return {.fonte = "tipipagamento"};
}

records::FonteCampo DaBanche() {
  return {
      .chiave = "scadenzario", .fonte = "Banche", .campoDescrizione = "Nome", .archivio = "BANCHE"};
}

}  // namespace fenalto::screens
