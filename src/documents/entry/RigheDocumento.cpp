#include "documents/entry/RigheDocumento.h"

#include <algorithm>

#include "core/records/RigheInTabella.h"
#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"

namespace fenalto::documents {
namespace {

Archivio& Tessarc(Ambiente& ambiente) {
  return ambiente.ArchivioDi("tessarc");
}

constexpr const char* kSerieLotti = "NL1";

}  // namespace

Esito<Blocco, Detentore> BloccaDocumento(Ambiente& ambiente, const IdentitaDocumento& documento) {
  return ambiente.Basi().Blocchi().Record("FATTURECLI", documento.tipoDoc + "|" +
                                                            std::to_string(documento.anno) + "|" +
                                                            std::to_string(documento.numDoc));
}

std::vector<RigaDocumento> LeggiRighe(Ambiente& ambiente, const IdentitaDocumento& documento) {
  Archivio& tessarc = Tessarc(ambiente);
  const sql::TabellaCatalogo& tabella = *tessarc.Catalogo().Tabella(kRigheDocumenti);
  std::vector<RigaDocumento> righe;
  for (Rs rs = tessarc.Recordset("select * from FattureCli_r where " +
                                 records::Condizione(documento.Chiave()) + " order by Posi");
       !rs.Eof(); rs.MoveNext()) {
    RigaDocumento riga = records::LeggiRiga(rs, CampiRigaTabella());
    riga.altre = records::AltreColonne(rs, tabella, CampiRigaTabella(),
                                       {"TipoDoc", "Anno", "NumDoc", "Dt", "CliFor", "CFP",
                                        "DtDocCarico", "NumDocCarico", "CausaleMag", "CS", "Mag"});
    riga.memorizzata = true;
    righe.push_back(std::move(riga));
  }
  return righe;
}

void AggiungiRighe(Ambiente& ambiente, const IdentitaDocumento& documento,
                   const std::vector<Coppia>& copiate, const std::vector<RigaDocumento>& righe) {
  std::vector<Coppia> chiave = documento.Chiave();
  chiave.insert(chiave.end(), copiate.begin(), copiate.end());
  records::ScriviRighe(Tessarc(ambiente), kRigheDocumenti, righe, CampiRigaTabella(), chiave);
}

void TogliRighe(Ambiente& ambiente, const IdentitaDocumento& documento) {
  records::EliminaRighe(Tessarc(ambiente), kRigheDocumenti, documento.Chiave());
}

void RiportaTesta(Ambiente& ambiente, const IdentitaDocumento& documento,
                  const std::vector<Coppia>& copiate) {
  records::AggiornaRighe(Tessarc(ambiente), kRigheDocumenti, copiate, documento.Chiave());
}

void NumeraLotti(Ambiente& ambiente, std::vector<RigaDocumento>& righe) {
  const auto daNumerare = [](const RigaDocumento& riga) {
    return !riga.lotto.empty() && riga.nl1 == 0;
  };
  if (std::ranges::none_of(righe, daNumerare)) return;
  Archivio& tessarc = Tessarc(ambiente);
  const std::int64_t diSerie =
      Nz(ambiente.Cerca("tessarc", "Contatori", {{"Cod", kSerieLotti}}, "Ultimo")).Intero();
  const std::int64_t inUso = ambiente.Max("NL1", "ZRigheLotto", {}, tessarc).Intero();
  std::int64_t ultimo = std::max(diSerie, inUso);
  for (RigaDocumento& riga : righe) {
    if (daNumerare(riga)) riga.nl1 = ++ultimo;
  }
  if (records::AggiornaRighe(tessarc, "Contatori", {{"Ultimo", ultimo}}, {{"Cod", kSerieLotti}}) ==
      0) {
    tessarc.Inserisci("Contatori", {{"Cod", kSerieLotti}, {"Ultimo", ultimo}});
  }
}

RegolaImporto RegolaDi(Ambiente& ambiente) {
  return {ambiente.Euro(), ImpostazioneAttiva(ambiente, "ArrotImporto")};
}

Importo ImportoDi(const RigaDocumento& riga, const RegolaImporto& regola) {
  return ImportoRiga(riga.prezzo, riga.sc1, riga.sc2, riga.sc3, riga.quantita, regola.euro,
                     regola.arrotonda);
}

}  // namespace fenalto::documents
