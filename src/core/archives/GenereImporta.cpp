#include "core/archives/GenereImporta.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::archives {
namespace {

auto Trovato(const std::vector<Coppia>& valori, std::string_view campo) {
  return std::find_if(valori.begin(), valori.end(),
                      [&](const Coppia& coppia) { return UgualeTesto(coppia.first, campo); });
}

}  // namespace

bool RigaImporta::Ha(std::string_view campo) const {
  return Trovato(valori, campo) != valori.end();
}

Valore RigaImporta::Leggi(std::string_view campo) const {
  const auto posto = Trovato(valori, campo);
  return posto == valori.end() ? Valore() : posto->second;
}

std::string RigaImporta::Testo(std::string_view campo) const {
  return Leggi(campo).Testo();
}

void RigaImporta::Scrivi(std::string_view campo, Valore valore) {
  const auto posto = std::find_if(valori.begin(), valori.end(), [&](const Coppia& coppia) {
    return UgualeTesto(coppia.first, campo);
  });
  if (posto == valori.end()) {
    valori.emplace_back(std::string(campo), std::move(valore));
  } else {
    posto->second = std::move(valore);
  }
}

ContestoImporta::Codici& ContestoImporta::Tavola(const std::string& tabella) {
  const auto [posto, nuova] = tavole_.try_emplace(tabella);
  if (nuova) {
    Rs codici = ambiente_.ArchivioDi("tessarc").Recordset("select Cod from " + tabella);
    for (; !codici.Eof(); codici.MoveNext()) {
      posto->second.try_emplace(SenzaMaiuscole(codici.Fields(0).Testo()));
    }
  }
  return posto->second;
}

bool ContestoImporta::Esiste(const std::string& tabella, const std::string& codice) {
  return Tavola(tabella).contains(SenzaMaiuscole(codice));
}

bool ContestoImporta::Memorizzato(const std::string& tabella, const std::string& codice) {
  const auto& tavola = Tavola(tabella);
  const auto posto = tavola.find(SenzaMaiuscole(codice));
  return posto != tavola.end() && (posto->second.linea == 0 || !posto->second.nuova);
}

Valore ContestoImporta::Campo(const std::string& tabella, const std::string& codice,
                              const std::string& campo) {
  const auto& tavola = Tavola(tabella);
  const std::string chiave = SenzaMaiuscole(codice);
  const auto posto = tavola.find(chiave);
  if (posto == tavola.end()) return {};
  if (posto->second.Ha(campo)) return posto->second.Leggi(campo);
  auto& letti = letti_[tabella + "." + campo];
  if (letti.empty()) {
    Rs righe =
        ambiente_.ArchivioDi("tessarc").Recordset("select Cod, " + campo + " from " + tabella);
    for (; !righe.Eof(); righe.MoveNext()) {
      letti.emplace(SenzaMaiuscole(righe.Fields(0).Testo()), righe.Fields(1));
    }
  }
  const auto valore = letti.find(chiave);
  return valore == letti.end() ? Valore() : valore->second;
}

std::string ContestoImporta::Proposto(const std::string& tabella, const std::string& campo,
                                      const std::string& valore) {
  const std::string criterio = sql::Criterio(campo, "=", valore);
  const auto [posto, nuovo] = proposti_.try_emplace(tabella + " " + criterio);
  if (nuovo) {
    posto->second =
        ambiente_.ArchivioDi("tessarc")
            .Singolo("select Cod from " + tabella + " where " + criterio + " order by Cod")
            .Testo();
  }
  return posto->second;
}

void ContestoImporta::Accolta(const RigaImporta& riga) {
  Tavola(riga.tabella)[SenzaMaiuscole(riga.Testo("Cod"))] = riga;
}

}  // namespace fenalto::archives
