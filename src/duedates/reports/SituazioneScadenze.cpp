#include "duedates/reports/SituazioneScadenze.h"

#include <algorithm>
#include <map>
#include <utility>

#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

/// Due dates between two signs of life.
constexpr std::int64_t kOgniScadenze = 500;
/// Months of the chart before and after that of the day.
constexpr MeseScadenze kIntorno = 6;

/// "mar"; "gen 24" where a year begins.
std::string MeseBreve(MeseScadenze mese) {
  constexpr std::size_t kLettere = 3;
  constexpr std::size_t kCifre = 2;
  const std::string nome = NomeMese(mese);
  const bool gennaio = NomeMese(mese - 1).back() != nome.back();
  return nome.substr(0, kLettere) + (gennaio ? " " + nome.substr(nome.size() - kCifre) : "");
}

}  // namespace

std::optional<int> GiorniRitardo(Data scadenza, Data alla) {
  if (scadenza.Nulla() || scadenza >= alla) return std::nullopt;
  return alla.Giorni() - scadenza.Giorni();
}

Fascia FasciaDi(Data scadenza, Data alla) {
  constexpr std::pair<int, Fascia> kLimiti[] = {
      {30, Fascia::Fino30}, {60, Fascia::Fino60}, {90, Fascia::Fino90}};
  if (scadenza.Nulla()) return Fascia::Oltre;
  const auto ritardo = GiorniRitardo(scadenza, alla);
  if (!ritardo) return Fascia::AScadere;
  for (const auto& [giorni, fascia] : kLimiti) {
    if (*ritardo <= giorni) return fascia;
  }
  return Fascia::Oltre;
}

Importo ImportiFasce::Scaduto() const {
  return Totale() - Di(Fascia::AScadere);
}

Importo ImportiFasce::Totale() const {
  Importo totale;
  for (const Importo valore : valori_) totale += valore;
  return totale;
}

std::vector<ColonnaMesi> ColonneMesi(const std::vector<MeseAperto>& mesi, Data alla) {
  const MeseScadenze primo = MeseDi(alla) - kIntorno;
  const MeseScadenze ultimo = MeseDi(alla) + kIntorno;
  std::vector<ColonnaMesi> colonne = {{"prima", {}, {}}};
  for (MeseScadenze mese = primo; mese <= ultimo; ++mese) {
    colonne.push_back({MeseBreve(mese), {}, {}});
  }
  colonne.push_back({"dopo", {}, {}});
  for (const MeseAperto& m : mesi) {
    // The first place is that of all months before `primo`, the last that of all after `ultimo`.
    const MeseScadenze posto = std::clamp(m.mese, primo - 1, ultimo + 1) - (primo - 1);
    ColonnaMesi& colonna = colonne.at(static_cast<std::size_t>(posto));
    colonna.scaduto += m.scaduto;
    colonna.aScadere += m.aScadere;
  }
  return colonne;
}

SceltaSituazione SituazioneScadenze::Proposta() const {
  return {"C", ambiente_.Ora().Oggi()};
}

bool SituazioneScadenze::Scorri(const SceltaScadenze& scelta, OrdineScadenze ordine,
                                const std::function<void(const ScadenzaStampata&)>& riga) {
  const auto avanzamento = ambiente_.Dialogo().Avvia("Situazione scadenze", 0);
  std::int64_t lette = 0;
  return ScorriScadenze(ambiente_, scelta, ordine, [&](const ScadenzaStampata& s) {
    riga(s);
    return ++lette % kOgniScadenze != 0 || avanzamento->Avanza(lette);
  });
}

std::optional<Situazione> SituazioneScadenze::Calcola(const SceltaSituazione& scelta) {
  if (scelta.alla.Nulla()) {
    ambiente_.Dialogo().Messaggio("manca la data a cui vedere la situazione", Icona::Avviso);
    return std::nullopt;
  }
  Situazione situazione;
  std::map<MeseScadenze, MeseAperto> mesi;
  const auto aggiungi = [&](const ScadenzaStampata& s) {
    if (situazione.parti.empty() || !UgualeTesto(situazione.parti.back().conto, s.conto)) {
      situazione.parti.push_back({s.conto, s.ragsoc, 0, {}});
    }
    const Fascia fascia = FasciaDi(s.dt, scelta.alla);
    ParteAperta& parte = situazione.parti.back();
    parte.importi.Somma(fascia, s.Residuo());
    ++parte.scadenze;
    MeseAperto& mese = mesi[MeseDi(s.dt)];
    (fascia == Fascia::AScadere ? mese.aScadere : mese.scaduto) += s.Residuo();
    ++mese.scadenze;
    situazione.totali.Somma(fascia, s.Residuo());
    ++situazione.scadenze;
  };
  SceltaScadenze aperte;
  aperte.cfp = scelta.cfp;
  if (!Scorri(aperte, OrdineScadenze::PerConto, aggiungi)) return std::nullopt;
  Importo progressivo;
  for (auto& [numero, mese] : mesi) {
    mese.mese = numero;
    mese.progressivo = progressivo += mese.Totale();
    situazione.mesi.push_back(mese);
  }
  return situazione;
}

std::optional<std::vector<ScadenzaStampata>> SituazioneScadenze::Aperte(
    const SceltaSituazione& scelta, const std::string& conto) {
  SceltaScadenze diParte;
  diParte.cfp = scelta.cfp;
  diParte.daCliFor = diParte.aCliFor = conto;
  std::vector<ScadenzaStampata> aperte;
  if (!Scorri(diParte, OrdineScadenze::PerData,
              [&](const ScadenzaStampata& s) { aperte.push_back(s); })) {
    return std::nullopt;
  }
  return aperte;
}

}  // namespace fenalto::duedates
