#include "ledger/closing/ScrittoreChiusure.h"

#include "core/sql/Criterio.h"

namespace fenalto::ledger {

namespace {

constexpr std::int64_t kPosizionePrima = 100;
constexpr std::int64_t kPosizioneSeconda = 200;

/// One registration; the identity of its head.
std::int64_t ScriviVoce(Archivio& tessarc, std::int64_t numDoc, const CorsaChiusura& corsa,
                        const VoceSaldo& voce) {
  const Importo importo = voce.saldo.Assoluto();
  const bool inDare = voce.saldo.Negativo() != (corsa.origine == Origine::Apertura);
  const Importo dare = inDare ? importo : Importo();
  const Importo avere = inDare ? Importo() : importo;
  const std::string piano = "P";
  TestaRegistrazione testa{corsa.annoScritto,   corsa.dt,     voce.cfp, voce.conto, piano,
                           corsa.contropartita, corsa.origine};
  if (!inDare) {
    std::swap(testa.cfp, testa.cfpA);
    std::swap(testa.conto, testa.contoA);
  }
  return ScriviRegistrazione(tessarc, numDoc, testa,
                             {{kPosizionePrima, corsa.causale, corsa.descrizione, voce.cfp,
                               voce.conto, dare, avere, piano, corsa.contropartita},
                              {kPosizioneSeconda, corsa.causale, corsa.descrizione, piano,
                               corsa.contropartita, avere, dare, voce.cfp, voce.conto}});
}

}  // namespace

std::optional<OperazioneAnno> ScriviCorsa(Ambiente& ambiente, Archivio& tessarc,
                                          const CorsaChiusura& corsa,
                                          const std::vector<VoceSaldo>& voci,
                                          const SuRegistrazione& avanza) {
  OperazioneAnno operazione;
  operazione.anno = corsa.annoChiuso;
  operazione.annoScritto = corsa.annoScritto;
  operazione.operazione = static_cast<int>(corsa.origine);
  operazione.definitivo = corsa.definitiva;
  operazione.dt = corsa.dt;
  operazione.sostituite = corsa.sostituite;
  std::int64_t numDoc = tessarc
                            .Singolo("select max(NumDoc) from Articoli where " +
                                     sql::Criterio("Anno", "=", corsa.annoScritto))
                            .Intero();
  for (const VoceSaldo& voce : voci) {
    const std::int64_t id = ScriviVoce(tessarc, ++numDoc, corsa, voce);
    if (operazione.quante == 0) {
      operazione.daNumDoc = numDoc;
      operazione.daId = id;
    }
    operazione.aNumDoc = numDoc;
    operazione.aId = id;
    operazione.totale += voce.saldo.Assoluto();
    if (!avanza(++operazione.quante)) return std::nullopt;
  }
  if (operazione.quante != 0) RegistraOperazione(ambiente, tessarc, operazione);
  return operazione;
}

}  // namespace fenalto::ledger
