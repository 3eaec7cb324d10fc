#include "core/session/CampiImpostazioni.h"

#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace {

using GenereImpostazione = CampoImpostazione::Genere;

constexpr std::size_t kMassimoPercorso = 250;
constexpr int kMassimoDecimali = 4;
constexpr int kMinimoDecimaliPrezzi = 2;

bool Casella(const CampoImpostazione& campo) {
  return campo.genere == GenereImpostazione::Uno || campo.genere == GenereImpostazione::SiNo ||
         campo.genere == GenereImpostazione::SiNoMaiuscolo;
}

/// A flag as whoever reads it understands it.
bool Acceso(const std::string& testo) {
  const std::string_view rifilato = Rifila(testo);
  if (UgualeTesto(rifilato, "si") || UgualeTesto(rifilato, "true")) return true;
  const auto numero = LeggiImporto(std::string(rifilato));
  return numero && numero.Valore() != Importo();
}

}  // namespace

CampiImpostazioni::CampiImpostazioni(Ambiente& ambiente, std::vector<CampoImpostazione> campi)
    : ambiente_(ambiente), campi_(std::move(campi)) {
  for (const auto& campo : campi_) {
    dati_.Aggiungi(campo.campo, Casella(campo) ? Tipo::Booleano : Tipo::Testo);
  }
}

const CampoImpostazione* CampiImpostazioni::CampoDi(std::string_view nome) const {
  const auto trovato =
      std::ranges::find_if(campi_, [&](const auto& uno) { return UgualeTesto(uno.campo, nome); });
  return trovato == campi_.end() ? nullptr : &*trovato;
}

void CampiImpostazioni::Rileggi() {
  ambiente_.RiguardaImpostazioni();
  for (const auto& campo : campi_) {
    const std::string testo = ambiente_.Config(campo.chiave);
    letti_[campo.campo] = testo;
    const Valore valore =
        Casella(campo) ? Valore(Acceso(testo)) : Valore(testo.empty() ? campo.vuoto : testo);
    dati_.Scrivi(campo.campo, valore);
    accettati_[campo.campo] = valore;
  }
  dati_.Consolida();
}

std::string CampiImpostazioni::DaScrivere(const CampoImpostazione& campo) const {
  const Valore& valore = dati_.Leggi(campo.campo);
  switch (campo.genere) {
    case GenereImpostazione::Uno:
      return valore.Booleano() ? "1" : "0";
    case GenereImpostazione::SiNo:
      return valore.Booleano() ? "Si" : "No";
    case GenereImpostazione::SiNoMaiuscolo:
      return valore.Booleano() ? "SI" : "NO";
    case GenereImpostazione::Causale:
    case GenereImpostazione::Decimali:
    case GenereImpostazione::Percorso:
      return std::string(Rifila(valore.Testo()));
    case GenereImpostazione::Testo:
      break;
  }
  return valore.Testo();
}

std::string CampiImpostazioni::Rifiuto(const CampoImpostazione& campo) const {
  const std::string testo = DaScrivere(campo);
  if (campo.genere == GenereImpostazione::Percorso && LunghezzaTesto(testo) > kMassimoPercorso) {
    return "il percorso è più lungo di 250 caratteri";
  }
  if (campo.genere == GenereImpostazione::Causale) return RifiutoCausale(campo);
  if (campo.genere != GenereImpostazione::Decimali) return {};
  const bool prezzi = std::string_view(campo.campo) == "DecP";
  const int minimo = prezzi ? kMinimoDecimaliPrezzi : 0;
  const bool buono =
      testo.size() == 1 && testo[0] >= '0' + minimo && testo[0] <= '0' + kMassimoDecimali;
  if (buono) return {};
  return prezzi ? "decimali prezzi: inserire valore da 2 a 4"
                : "decimali quantità: inserire valore da 0 a 4";
}

/// Only one that was typed: the file may name a code that was erased since.
std::string CampiImpostazioni::RifiutoCausale(const CampoImpostazione& campo) const {
  const std::string codice = DaScrivere(campo);
  const auto letta = letti_.find(campo.campo);
  const bool stessa = letta != letti_.end() && UgualeTesto(Rifila(letta->second), codice);
  if (codice.empty() || stessa || ambiente_.Esiste("tessarc", "Causali", {{"Cod", codice}})) {
    return {};
  }
  return "causale del giro «costo a fornitore»: il codice " + codice +
         " non esiste, sceglierne uno dall'elenco (F2)";
}

bool CampiImpostazioni::CampoLasciato(std::string_view nome) {
  const CampoImpostazione* campo = CampoDi(nome);
  if (campo == nullptr) return true;
  const std::string rifiuto = Rifiuto(*campo);
  if (rifiuto.empty()) {
    accettati_[campo->campo] = dati_.Leggi(campo->campo);
    return true;
  }
  dati_.Scrivi(campo->campo, accettati_[campo->campo]);
  campoRifiutato_ = campo->campo;
  ambiente_.Dialogo().Messaggio(rifiuto, Icona::Avviso);
  return false;
}

bool CampiImpostazioni::Ammessi() {
  campoRifiutato_.clear();
  return std::ranges::all_of(campi_,
                             [this](const auto& campo) { return CampoLasciato(campo.campo); });
}

bool CampiImpostazioni::Scrivi() {
  return std::ranges::all_of(campi_, [this](const auto& campo) {
    const std::string testo = DaScrivere(campo);
    return testo == letti_[campo.campo] ||
           ambiente_.ScriviImpostazione({}, "config", campo.chiave, testo);
  });
}

}  // namespace fenalto
