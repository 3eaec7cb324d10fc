#include "duedates/reports/ConfrontaSaldi.h"

#include <map>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "duedates/schedules/Scadenza.h"
#include "ledger/accounts/SaldoConto.h"

namespace fenalto::duedates {
namespace {

/// Parties between two signs of life.
constexpr std::int64_t kOgniParti = 200;

/// No registration is later.
Data UltimaData() {
  constexpr int kUltimo = 31;
  constexpr int kDicembre = 12;
  constexpr int kAnno = 9'999;
  return Data::DaGma(kUltimo, kDicembre, kAnno).value_or(Data());
}

struct SenzaCaso {
  bool operator()(const std::string& a, const std::string& b) const {
    return ConfrontaTesto(a, b) < 0;
  }
};

struct DatiParte {
  std::string descrizione;
  Importo saldoScadenze;
};
using PartiConfrontate = std::map<std::string, DatiParte, SenzaCaso>;

/// Class and range, over a table's column of codes.
std::string CondizioneParti(const SceltaConfronto& s, const std::string& colonna) {
  std::string testo = sql::Criterio("CFP", "=", s.cfp);
  if (!s.daCliFor.empty()) testo += " AND " + sql::Criterio(colonna, ">=", s.daCliFor);
  if (!s.aCliFor.empty()) testo += " AND " + sql::Criterio(colonna, "<=", s.aCliFor);
  return testo;
}

PartiConfrontate LeggiParti(Ambiente& ambiente, const SceltaConfronto& scelta) {
  PartiConfrontate parti;
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  for (Rs r = tessarc.Recordset("SELECT Cod, Descrizione FROM ContiClientiFornitori WHERE " +
                                CondizioneParti(scelta, "Cod"));
       !r.Eof(); r.MoveNext()) {
    parti[r.Fields(0).Testo()].descrizione = NzStr(r.Fields(1));
  }
  // Who was erased may still have moved, and have something open.
  for (Rs r = tessarc.Recordset("SELECT Conto FROM Movimenti WHERE " +
                                sql::Criterio("Anno", "=", ambiente.Anno()) + " AND " +
                                CondizioneParti(scelta, "Conto") + " GROUP BY Conto");
       !r.Eof(); r.MoveNext()) {
    parti[r.Fields(0).Testo()];
  }
  for (Rs r = ambiente.ArchivioDi("scadenzario")
                  .Recordset("SELECT Conto, Sum(ImportoE), Sum(ImportoPagatoE) FROM SCADENZE "
                             "WHERE " +
                             CondizioneParti(scelta, "CONTO") + " AND " + CondizioneAperta() +
                             " GROUP BY Conto");
       !r.Eof(); r.MoveNext()) {
    parti[r.Fields(0).Testo()].saldoScadenze = r.Fields(1).Importo() - r.Fields(2).Importo();
  }
  return parti;
}

}  // namespace

bool ConfrontaSaldi(Ambiente& ambiente, const SceltaConfronto& scelta,
                    const std::function<bool(const ParteDiscorde&)>& parte) {
  const PartiConfrontate parti = LeggiParti(ambiente, scelta);
  const auto avanzamento =
      ambiente.Dialogo().Avvia("Controllo saldi", static_cast<std::int64_t>(parti.size()));
  ledger::SaldoConto saldi(ambiente.ArchivioDi("tessarc"));
  ledger::SaldoConto::Richiesta richiesta;
  richiesta.mantieniAperto = true;
  richiesta.cfp = scelta.cfp;
  // A registration belongs to its year, whatever its day.
  richiesta.anno = ambiente.Anno();
  richiesta.daData = Ambiente::DataMinima();
  richiesta.aData = UltimaData();
  const bool fornitori = UgualeTesto(scelta.cfp, "F");
  std::int64_t fatte = 0;
  for (const auto& [cod, dati] : parti) {
    if (++fatte % kOgniParti == 0 && !avanzamento->Avanza(fatte)) return false;
    richiesta.conto = cod;
    // The ledger has what is owed to a supplier in credit; a due date of his is above zero.
    const Importo finale = saldi.Calcola(richiesta).Finale();
    const Importo saldo = fornitori ? -finale : finale;
    if (saldo == dati.saldoScadenze) continue;
    if (!parte({scelta.cfp, cod, dati.descrizione, saldo, dati.saldoScadenze})) return false;
  }
  return true;
}

std::vector<ParteDiscorde> ConfrontaSaldi(Ambiente& ambiente, const SceltaConfronto& scelta) {
  std::vector<ParteDiscorde> discordi;
  ConfrontaSaldi(ambiente, scelta, [&discordi](const ParteDiscorde& parte) {
    discordi.push_back(parte);
    return true;
  });
  return discordi;
}

}  // namespace fenalto::duedates
