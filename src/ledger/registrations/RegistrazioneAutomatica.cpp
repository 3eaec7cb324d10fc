#include "ledger/registrations/RegistrazioneAutomatica.h"

#include "core/values/Testo.h"

namespace fenalto::ledger {

namespace {

constexpr std::size_t kCaratteriDescrizione = 255;

}  // namespace

std::int64_t ProssimoNumDoc(Ambiente& ambiente, int anno) {
  return ambiente.Max("NumDoc", "Articoli", {{"Anno", anno}}, ambiente.ArchivioDi("tessarc"))
             .Intero() +
         1;
}

std::int64_t ScriviRegistrazione(Archivio& tessarc, std::int64_t numDoc,
                                 const TestaRegistrazione& testa,
                                 const std::vector<RigaRegistrazione>& righe) {
  // The head first: the rows then take its date as they are written.
  const std::int64_t id =
      tessarc.Inserisci("Articoli", {{"Anno", testa.anno},
                                     {"NumDoc", numDoc},
                                     {"Dt", testa.dt},
                                     {"CFP", testa.cfp},
                                     {"Conto", testa.conto},
                                     {"CfpA", testa.cfpA},
                                     {"ContoA", testa.contoA},
                                     {"CREATOINAUTOMATICO", static_cast<int>(testa.origine)},
                                     {"DtFat", testa.dtFat},
                                     {"NFat", testa.nFat},
                                     {"AnnoOrigine", testa.seguitoDi.anno},
                                     {"NumDocOrigine", testa.seguitoDi.numDoc}});
  for (const RigaRegistrazione& riga : righe) {
    tessarc.Inserisci("Movimenti",
                      {{"Anno", testa.anno},
                       {"NumDoc", numDoc},
                       {"Posi", riga.posi},
                       {"Causale", riga.causale},
                       {"Descrizione", Mid(riga.descrizione, 1, kCaratteriDescrizione)},
                       {"CFP", riga.cfp},
                       {"Conto", riga.conto},
                       {"ImpoDare", riga.dare},
                       {"ImpoAvere", riga.avere},
                       {"CFPControp", riga.cfpControp},
                       {"ContoControp", riga.contoControp},
                       {"TIPORIGA", 0}});
  }
  return id;
}

std::int64_t ScriviRegistrazione(Ambiente& ambiente, const TestaRegistrazione& testa,
                                 const std::vector<RigaRegistrazione>& righe) {
  const std::int64_t numDoc = ProssimoNumDoc(ambiente, testa.anno);
  ScriviRegistrazione(ambiente.ArchivioDi("tessarc"), numDoc, testa, righe);
  return numDoc;
}

std::int64_t ScriviDueRighe(Ambiente& ambiente, const RegistrazioneDueRighe& r) {
  const TestaRegistrazione testa{r.anno,        r.dt,      r.testaCfp, r.testaConto, r.testaCfpA,
                                 r.testaContoA, r.origine, r.dtFat,    r.nFat,       r.seguitoDi};
  const auto riga = [&r](std::int64_t posi, const std::string& cfp, const std::string& conto,
                         Importo dare, Importo avere, const std::string& cfpA,
                         const std::string& contoA) {
    return RigaRegistrazione{posi, r.causale, r.descrizione, cfp, conto, dare, avere, cfpA, contoA};
  };
  return ScriviRegistrazione(ambiente, testa,
                             {riga(r.posi1, r.cfp, r.conto, r.dare, r.avere, r.cfpA, r.contoA),
                              riga(r.posi2, r.cfpA, r.contoA, r.avere, r.dare, r.cfp, r.conto)});
}

}  // namespace fenalto::ledger
