// Look-ups and the numbering lock.

#include <array>
#include <string>

#include "core/session/AmbienteInterno.h"
#include "core/sql/Criterio.h"

namespace fenalto {

namespace {

constexpr std::chrono::seconds kAttesaNumerazione{10};

/// One statement text: cut from pieces with room made once, since look-ups run in loops.
std::string Interrogazione(std::initializer_list<std::string_view> inizio,
                           const std::vector<Coppia>& condizioni) {
  constexpr std::size_t kStima = 192;
  std::string sql;
  sql.reserve(kStima);
  for (const std::string_view pezzo : inizio) sql.append(pezzo);
  const char* congiunzione = " where ";
  for (const auto& [campo, valore] : condizioni) {
    sql.append(congiunzione).append(sql::Criterio(campo, "=", valore));
    congiunzione = " and ";
  }
  return sql;
}

Valore Estremo(std::string_view funzione, std::string_view campo, std::string_view tabella,
               const std::vector<Coppia>& condizioni, Archivio& archivio) {
  return Nz(archivio.Singolo(
      Interrogazione({"select ", funzione, "(", campo, ") from ", tabella}, condizioni)));
}

}  // namespace

Valore Ambiente::Cerca(std::string_view chiave, std::string_view tabella,
                       const std::vector<Coppia>& condizioni, std::string_view campoRisultato) {
  return ArchivioDi(chiave).Singolo(
      Interrogazione({"select ", campoRisultato, " from ", tabella}, condizioni));
}

Valore Ambiente::Max(std::string_view campo, std::string_view tabella,
                     const std::vector<Coppia>& condizioni, Archivio& archivio) {
  return Estremo("max", campo, tabella, condizioni, archivio);
}

Valore Ambiente::Min(std::string_view campo, std::string_view tabella,
                     const std::vector<Coppia>& condizioni, Archivio& archivio) {
  return Estremo("min", campo, tabella, condizioni, archivio);
}

bool Ambiente::Esiste(std::string_view chiave, std::string_view tabella,
                      const std::vector<Coppia>& condizioni, std::string_view avvisa) {
  const bool esiste =
      !ArchivioDi(chiave).Singolo(Interrogazione({"select 1 from ", tabella}, condizioni)).Nullo();
  if (esiste && !avvisa.empty()) {
    std::string testo(avvisa);
    testo += " già esistente";
    for (const auto& [campo, valore] : condizioni) {
      const std::string letto =
          valore.Tipo() == Tipo::Data ? valore.Data().Testo() : valore.Neutro();
      testo.append(&campo == &condizioni.front().first ? ": " : ", ").append(letto);
    }
    Dialogo().Messaggio(testo, Icona::Avviso);
  }
  return esiste;
}

Blocco Ambiente::BloccaTabella(std::string_view tabella, bool attendi) {
  auto blocco = Basi().Blocchi().Tabella(
      tabella, attendi ? kAttesaNumerazione : std::chrono::milliseconds::zero());
  if (blocco) return std::move(blocco).Valore();
  Dialogo().Messaggio("la numerazione di " + std::string(tabella) + " è occupata " +
                          blocco.Errore().Descrizione() +
                          ": attendere che finisca la registrazione e riprovare",
                      Icona::Avviso);
  return {};
}

}  // namespace fenalto
