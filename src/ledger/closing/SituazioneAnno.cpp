#include "ledger/closing/SituazioneAnno.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "ledger/accounts/ContiClientiFornitori.h"
#include "ledger/accounts/SaldoConto.h"
#include "ledger/closing/VociDaMuovere.h"
#include "ledger/registrations/RegistrazioneAutomatica.h"

namespace fenalto::ledger {

namespace {

constexpr const char* kDaFare = "da fare";
constexpr const char* kFatta = "fatta";

/// "12 conti, saldo 1.234,00"; empty when none is left.
std::string RestanoConti(const Ambiente& ambiente, const std::vector<VoceSaldo>& voci) {
  if (voci.empty()) return "";
  Importo somma;
  for (const VoceSaldo& voce : voci) somma += voce.saldo;
  const std::string quanti = voci.size() == 1 ? "1 conto" : std::to_string(voci.size()) + " conti";
  return quanti + " non a zero, saldo " + ScriviImporto(somma, ambiente.Euro() ? 2 : 0);
}

/// When the last run of a kind was done, and by whom.
void MettiQuando(const std::vector<OperazioneAnno>& operazioni, int operazione, PassoAnno& passo) {
  const auto ultima = std::ranges::find(operazioni, operazione, &OperazioneAnno::operazione);
  if (ultima == operazioni.end()) return;
  passo.quando = ultima->giorno.Testo() + " " + ultima->ora;
  passo.utente = ultima->utente;
}

/// The registrations of a kind as the books have them, whoever wrote them.
void MettiRegistrazioni(Archivio& tessarc, PassoAnno& passo) {
  Rs rs = tessarc.Recordset(
      "select min(NumDoc) as Primo, max(NumDoc) as Ultimo, count(*) as Quante from Articoli "
      "where " +
      sql::Criterio("Anno", "=", passo.annoScritto) + " and " +
      sql::Criterio("CREATOINAUTOMATICO", "=", passo.origine));
  passo.quante = rs.Fields("Quante").Intero();
  if (passo.quante == 0) return;
  passo.daNumDoc = rs.Fields("Primo").Intero();
  passo.aNumDoc = rs.Fields("Ultimo").Intero();
}

PassoAnno PassoGiro(Ambiente& ambiente, const std::vector<OperazioneAnno>& operazioni,
                    Origine origine, const char* nome, std::string resta) {
  PassoAnno passo;
  passo.nome = nome;
  passo.annoScritto = ambiente.Anno();
  passo.origine = static_cast<int>(origine);
  MettiRegistrazioni(ambiente.ArchivioDi("tessarc"), passo);
  MettiQuando(operazioni, passo.origine, passo);
  passo.resta = std::move(resta);
  passo.fatta = passo.quante > 0 && passo.resta.empty();
  passo.stato = passo.fatta ? kFatta : passo.quante > 0 ? "da completare" : kDaFare;
  if (passo.quante == 0 && passo.resta.empty()) {
    passo.fatta = true;
    passo.stato = "niente da fare";
  }
  return passo;
}

PassoAnno PassoNuovoAnno(Ambiente& ambiente, const std::vector<OperazioneAnno>& operazioni) {
  PassoAnno passo;
  const int dopo = ambiente.Anno() + 1;
  passo.nome = "Apertura nuovo anno " + std::to_string(dopo);
  passo.fatta = ambiente.Esiste("tessarc", "Anni", {{"Anno", dopo}});
  passo.stato = passo.fatta ? kFatta : kDaFare;
  MettiQuando(operazioni, kOperazioneNuovoAnno, passo);
  return passo;
}

/// Openings of the next year that differ from what is to be transported. What the closing has taken
/// off is counted back.
std::int64_t ApertureDiverse(Archivio& tessarc, int anno, VociDaMuovere& voci,
                             const std::string& contropartita) {
  std::map<SaldiEsercizio::Chiave, Importo> differenze;
  for (const auto& voce : voci.DeiMastriPatrimoniali()) {
    differenze[SaldiEsercizio::ChiaveDi(voce.cfp, voce.conto)] += voce.saldo;
  }
  const auto somma = [&](const std::string& condizione, bool contraria) {
    Rs rs = tessarc.Recordset(
        "select Movimenti.CFP, Movimenti.Conto, Sum(Movimenti.ImpoDare), Sum(Movimenti.ImpoAvere) "
        "from Movimenti inner join Articoli on (Movimenti.Anno = Articoli.Anno) and "
        "(Movimenti.NumDoc = Articoli.NumDoc) where " +
        condizione + " group by Movimenti.CFP, Movimenti.Conto");
    for (; !rs.Eof(); rs.MoveNext()) {
      const Importo saldo = rs.Fields(2).Importo() - rs.Fields(3).Importo();
      const auto chiave =
          SaldiEsercizio::ChiaveDi(rs.Fields(std::size_t{0}).Testo(), rs.Fields(1).Testo());
      differenze[chiave] += contraria ? -saldo : saldo;
    }
  };
  const std::string chiusura =
      "Articoli.CREATOINAUTOMATICO=" + std::to_string(static_cast<int>(Origine::Chiusura)) +
      " and " + sql::Criterio("Articoli.Anno", "=", anno);
  // The closing account takes part in the closing only.
  Rs conti = tessarc.Recordset(
      "select distinct Movimenti.Conto from Movimenti inner join Articoli on (Movimenti.Anno = "
      "Articoli.Anno) and (Movimenti.NumDoc = Articoli.NumDoc) where Movimenti.Posi=200 and " +
      chiusura);
  std::vector<std::string> estranei{contropartita};
  for (; !conti.Eof(); conti.MoveNext()) estranei.push_back(conti.Fields(std::size_t{0}).Testo());
  somma(chiusura, true);
  somma(sql::Criterio("Articoli.Anno", "=", anno + 1) +
            " and (Movimenti.Causale='APE' or "
            "Movimenti.Causale='APEX')",
        true);
  for (const std::string& conto : estranei) differenze.erase(SaldiEsercizio::ChiaveDi("P", conto));
  return std::ranges::count_if(differenze, [](const auto& d) { return !d.second.Zero(); });
}

PassoAnno PassoTrasporto(Ambiente& ambiente, const std::vector<OperazioneAnno>& operazioni,
                         VociDaMuovere& voci) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  PassoAnno passo;
  passo.annoScritto = ambiente.Anno() + 1;
  passo.origine = static_cast<int>(Origine::Apertura);
  passo.nome = "Trasporto saldi sul " + std::to_string(passo.annoScritto);
  MettiRegistrazioni(tessarc, passo);
  MettiQuando(operazioni, passo.origine, passo);
  const auto aperte = [&](std::string_view causale) {
    return ambiente.Esiste("tessarc", "Movimenti",
                           {{"Anno", passo.annoScritto}, {"Causale", causale}});
  };
  const bool definitiva = aperte(kCausaleApertura);
  const bool provvisoria = aperte(kCausaleAperturaProvvisoria);
  passo.stato = definitiva && provvisoria ? "definitiva e provvisoria insieme"
                : definitiva              ? "fatta, definitiva"
                : provvisoria             ? "fatta, provvisoria"
                                          : kDaFare;
  if (definitiva || provvisoria) {
    const std::int64_t diverse =
        ApertureDiverse(tessarc, ambiente.Anno(), voci, ambiente.Config("ContropartitaApertura"));
    if (diverse > 0) {
      passo.resta = std::to_string(diverse) + " conti con un'apertura diversa dal saldo finale";
    }
  }
  passo.fatta = definitiva && !provvisoria && passo.resta.empty();
  return passo;
}

/// The order proposed: provisional openings as soon as the new year is there, the definitive ones
/// once the result is known.
std::string Prossimo(int anno, const std::vector<PassoAnno>& passi) {
  const PassoAnno& trasporto = passi[1];
  if (!passi[0].fatta) return "Da fare adesso: " + passi[0].nome;
  if (trasporto.stato == kDaFare) return "Da fare adesso: " + trasporto.nome + ", provvisorio";
  for (const std::size_t giro : {2U, 3U}) {
    if (!passi[giro].fatta) return "Da fare adesso: " + passi[giro].nome;
  }
  if (!trasporto.fatta) return "Da fare adesso: " + trasporto.nome + ", definitivo";
  if (!passi[4].fatta) return "Da fare adesso: " + passi[4].nome;
  return "L'anno " + std::to_string(anno) + " è chiuso e i saldi sono aperti sul nuovo";
}

std::vector<RegistrazioneAnno> LeggiRegistrazioni(Ambiente& ambiente, const std::string& criterio) {
  std::vector<RegistrazioneAnno> registrazioni;
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "select Articoli.NumDoc, Articoli.Dt, Movimenti.CFP, Movimenti.Conto, Movimenti.ImpoDare, "
      "Movimenti.ImpoAvere, ContiClientiFornitori.Descrizione from (Articoli inner join Movimenti "
      "on (Articoli.Anno = Movimenti.Anno) and (Articoli.NumDoc = Movimenti.NumDoc)) left join "
      "ContiClientiFornitori on (Movimenti.Conto = ContiClientiFornitori.Cod) and (Movimenti.CFP = "
      "ContiClientiFornitori.CFP) where Movimenti.Posi=100 and " +
      criterio + " order by Articoli.NumDoc");
  for (; !rs.Eof(); rs.MoveNext()) {
    registrazioni.push_back({rs.Fields(std::size_t{0}).Intero(), rs.Fields(1).Data(),
                             rs.Fields(2).Testo(), rs.Fields(3).Testo(), NzStr(rs.Fields(6)),
                             rs.Fields(4).Importo(), rs.Fields(5).Importo()});
  }
  return registrazioni;
}

}  // namespace

SituazioneAnno LeggiSituazioneAnno(Ambiente& ambiente) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  SituazioneAnno situazione;
  situazione.operazioni = LeggiOperazioni(ambiente, ambiente.Anno());
  VociDaMuovere voci(tessarc, ambiente.Anno());
  const std::string economico = ambiente.Config("C_ProfittiPerdite");
  const std::string chiusura = ambiente.Config("C_Chiusura");
  const auto& operazioni = situazione.operazioni;
  auto& passi = situazione.passi;
  passi.push_back(PassoNuovoAnno(ambiente, operazioni));
  passi.push_back(PassoTrasporto(ambiente, operazioni, voci));
  passi.push_back(PassoGiro(ambiente, operazioni, Origine::GiroEconomico, "Giro conti economici",
                            RestanoConti(ambiente, voci.Conti(kEconomico, {economico, chiusura}))));
  const Importo utile = voci.Saldi().Di("P", economico);
  passi.push_back(PassoGiro(
      ambiente, operazioni, Origine::GiroUtile, "Giro utile/perdita",
      utile.Zero() ? ""
                   : "conto " + economico + " a " + ScriviImporto(utile, ambiente.Euro() ? 2 : 0)));
  passi.push_back(PassoGiro(ambiente, operazioni, Origine::Chiusura, "Chiusura conti patrimoniali",
                            RestanoConti(ambiente, voci.Conti(kPatrimoniale))));
  situazione.prossimo = Prossimo(ambiente.Anno(), passi);
  return situazione;
}

std::vector<RegistrazioneAnno> RegistrazioniDelPasso(Ambiente& ambiente, const PassoAnno& passo) {
  if (passo.origine == 0) return {};
  return LeggiRegistrazioni(ambiente,
                            sql::Criterio("Articoli.Anno", "=", passo.annoScritto) + " and " +
                                sql::Criterio("Articoli.CREATOINAUTOMATICO", "=", passo.origine));
}

std::vector<RegistrazioneAnno> RegistrazioniDellOperazione(Ambiente& ambiente,
                                                           const OperazioneAnno& operazione) {
  if (operazione.operazione == kOperazioneNuovoAnno) return {};
  return LeggiRegistrazioni(
      ambiente, sql::Criterio("Articoli.Anno", "=", operazione.annoScritto) +
                    " and Articoli.ID>=" + std::to_string(operazione.daId) +
                    " and Articoli.ID<=" + std::to_string(operazione.aId) + " and " +
                    sql::Criterio("Articoli.CREATOINAUTOMATICO", "=", operazione.operazione));
}

}  // namespace fenalto::ledger
