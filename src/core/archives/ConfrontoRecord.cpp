#include "core/archives/ConfrontoRecord.h"

#include <algorithm>

#include "core/values/Testo.h"

namespace fenalto::archives {

namespace {

bool Identici(const Valore& a, const Valore& b) {
  if (a.Tipo() == Tipo::Testo && b.Tipo() == Tipo::Testo) return a.RifTesto() == b.RifTesto();
  return a == b;
}

std::string Mostrato(const Valore& valore) {
  constexpr std::size_t kMassimo = 60;
  std::string testo = valore.Tipo() == Tipo::Data ? valore.Data().Testo() : valore.Neutro();
  if (LunghezzaTesto(testo) > kMassimo) testo = Mid(testo, 1, kMassimo) + "...";
  return "«" + testo + "»";
}

}  // namespace

std::vector<Valore> ValoriDi(const Rs& riga) {
  std::vector<Valore> valori;
  const std::size_t colonne = riga.Colonne().size();
  valori.reserve(colonne);
  for (std::size_t c = 0; c < colonne; ++c) valori.push_back(riga.Fields(c));
  return valori;
}

bool RecordIdentici(const std::vector<Valore>& a, const std::vector<Valore>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), Identici);
}

std::string DomandaCambiato(const std::string& nome, const std::vector<sql::ColonnaUscita>& colonne,
                            const std::vector<Valore>& letti, const std::vector<Valore>& ora) {
  std::string cambi;
  for (std::size_t c = 0; c < ora.size() && c < letti.size() && c < colonne.size(); ++c) {
    if (Identici(ora[c], letti[c])) continue;
    cambi +=
        "\n" + colonne[c].nome + ": era " + Mostrato(letti[c]) + ", adesso " + Mostrato(ora[c]);
  }
  return nome +
         ": cambiato da un'altra stazione o da un'altra funzione dopo che lo si era aperto:" +
         cambi + "\nRegistrare lo stesso quello che è sullo schermo ?";
}

std::string TestoEliminato(const std::string& nome) {
  return nome +
         ": da un'altra parte è stato eliminato dopo che lo si era aperto.\nI dati sono ancora "
         "sullo schermo, come di un record nuovo: confermando ancora si registrano";
}

}  // namespace fenalto::archives
