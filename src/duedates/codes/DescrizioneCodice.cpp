#include "duedates/codes/DescrizioneCodice.h"

#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"

namespace fenalto::duedates {

namespace {

constexpr int kGiorniMese = 30;

/// "60GG", "60+15GG", "15GG".
std::string Distanza(const RataPagamento& rata) {
  const std::string giorni = std::to_string(rata.dopoGiorni);
  const std::string mesi = std::to_string(rata.dopoMesi * kGiorniMese);
  if (rata.dopoGiorni == 0) return mesi + "GG";
  return (rata.dopoMesi == 0 ? "" : mesi + "+") + giorni + "GG";
}

std::string DescrizioneRata(const RataPagamento& rata) {
  std::string testo =
      Arrotonda(rata.percImporto, 0, ModoArrotonda::Vicino).Testo() + "% " + Distanza(rata);
  if (rata.fineMese) testo += " FM";
  if (rata.dataFattura) testo += " DF";
  if (rata.giornoFisso) testo += " al " + std::to_string(rata.ggFisso);
  return testo;
}

std::string GiornoMese(int giorno, int mese) {
  return std::to_string(giorno) + "." + std::to_string(mese);
}

}  // namespace

Esito<std::string> ComponiDescrizione(
    const CodicePagamento& codice,
    const std::function<std::string(const std::string& tipo)>& descrizioneTipo) {
  if (codice.rate.empty())
    return Errore{
        "non posso creare automaticamente la descrizione: non è stata inserita alcuna rata"};
  std::string testo;
  for (const RataPagamento& rata : codice.rate) {
    if (!testo.empty()) testo += ", ";
    testo += DescrizioneRata(rata);
    const std::string tipo = descrizioneTipo(rata.tipo);
    if (!tipo.empty()) testo += " " + tipo;
  }
  return testo;
}

std::string TestoRata(const RataPagamento& rata, const CodicePagamento& codice) {
  std::string testo = ScriviImporto(rata.percImporto, 0) + "% ";
  testo += std::to_string(rata.dopoMesi * kGiorniMese) + "GG";
  if (rata.dopoGiorni != 0) testo += "+" + std::to_string(rata.dopoGiorni) + "GG";
  if (rata.fineMese) testo += " FINE MESE";
  if (rata.dataFattura) testo += " DATA FATT.";
  if (rata.giornoFisso) testo += " AL " + std::to_string(rata.ggFisso) + " M.SUC.";
  for (const SpostaData& finestra : codice.sposta) {
    if (finestra.ggSpost == 0) continue;
    testo += " (se " + GiornoMese(finestra.daGG, finestra.daMM) + "/" +
             GiornoMese(finestra.aaGG, finestra.aaMM) + " sposta al " +
             std::to_string(finestra.ggSpost) + " mese succ)";
  }
  return testo;
}

std::string InformazioneCodice(const CodicePagamento& codice) {
  std::string testo = "con questo codice pagamento";
  if (!codice.conto.empty() && !codice.causale.empty())
    testo += ", inserendo le fatture, viene creata la registrazione " + codice.causale +
             " sul conto " + codice.conto;
  testo += "\n";
  if (!codice.aggiornaScad) testo += "NON ";
  return testo + "viene aggiornato lo scadenzario pagamenti";
}

}  // namespace fenalto::duedates
