#include "documents/entry/ScriviDocumento.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/records/RigheInTabella.h"
#include "core/session/Allegati.h"
#include "core/values/Testo.h"
#include "documents/entry/RigheDocumento.h"
#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::documents {
namespace {

constexpr std::int64_t kUltimoNumero = std::numeric_limits<std::int32_t>::max();

std::vector<Coppia> CampiTesta(Ambiente& ambiente, const DocumentoDaScrivere& documento) {
  const TipoDocumento& tipo = documento.tipo;
  std::vector<Coppia> campi = documento.altriCampi;
  // What `altriCampi` says isn't said again.
  const auto aggiungi = [&](const char* nome, const Valore& valore) {
    if (std::ranges::none_of(campi, [&](const Coppia& c) { return UgualeTesto(c.first, nome); })) {
      campi.emplace_back(nome, valore);
    }
  };
  for (const auto& [nome, valore] :
       IdentitaDocumento{tipo.cod, documento.anno, documento.numDoc}.Chiave()) {
    aggiungi(nome.c_str(), valore);
  }
  aggiungi("Dt", documento.dt);
  aggiungi("CFP", tipo.cfp);
  aggiungi("CliFor", documento.cliFor);
  aggiungi("Riva", tipo.riva);
  aggiungi("CausaleMag", tipo.causaleMag);
  aggiungi("CS", tipo.cs);
  aggiungi("Mag", documento.mag);
  aggiungi("Fatturo", tipo.Bolla() && tipo.fatturo);
  aggiungi("CodiceCausaleTrasporto", tipo.codiceCausaleTrasporto);
  if (!tipo.codiceCausaleTrasporto.empty()) {
    aggiungi("CausaleTrasporto",
             NzStr(ambiente.Cerca("tessarc", "CodiciCausaliTrasporto",
                                  {{"Cod", tipo.codiceCausaleTrasporto}}, "Descrizione")));
  }
  aggiungi("Trasporto", tipo.trasporto);
  aggiungi("Porto", tipo.porto);
  aggiungi("CodAspetto", tipo.codAspetto);
  aggiungi("Aspetto", tipo.aspetto);
  aggiungi("NumDocCarico", documento.numDocCarico);
  aggiungi("DtDocCarico", documento.dtDocCarico);
  aggiungi("CREATOINAUTOMATICO", static_cast<int>(documento.origine));
  aggiungi("TipoDocOrigine", documento.tipoDocOrigine);
  aggiungi("AnnoOrigine", documento.annoOrigine);
  aggiungi("NumDocOrigine", documento.numDocOrigine);
  return campi;
}

/// What rows repeat from the head.
std::vector<Coppia> Copiate(const DocumentoDaScrivere& documento) {
  return {{"Dt", documento.dt},
          {"CliFor", documento.cliFor},
          {"CFP", documento.tipo.cfp},
          {"DtDocCarico", documento.dtDocCarico},
          {"NumDocCarico", documento.numDocCarico},
          {"CausaleMag", documento.tipo.causaleMag},
          {"CS", documento.tipo.cs},
          {"Mag", documento.mag}};
}

void CompletaRighe(Ambiente& ambiente, DocumentoDaScrivere& documento) {
  constexpr std::int64_t kPasso = 100;
  const RegolaImporto regola = RegolaDi(ambiente);
  std::int64_t ultima = 0;
  for (RigaDocumento& riga : documento.righe) {
    if (riga.posi == 0) riga.posi = ultima + kPasso;
    ultima = riga.posi;
    if (riga.importo.Zero()) riga.importo = ImportoDi(riga, regola);
  }
  if (documento.tipo.cs == "C" && !UgualeTesto(documento.tipo.cod, kEsistenzaIniziale)) {
    NumeraLotti(ambiente, documento.righe);
  }
}

}  // namespace

std::int64_t ProssimoNumero(Ambiente& ambiente, const TipoDocumento& tipo, int anno) {
  const std::int64_t prossimo =
      tipo.riva.empty()
          ? ambiente.Max("NumDoc", kTestaDocumenti, {{"TipoDoc", tipo.cod}, {"Anno", anno}},
                         ambiente.ArchivioDi("tessarc"))
                    .Intero() +
                1
          : vat::ProssimoNProt(ambiente, anno, tipo.riva);
  if (prossimo > kUltimoNumero) {
    throw ErroreArchivio(ErroreArchivio::Causa::Altro,
                         "nella serie del tipo documento " + tipo.cod + " è già usato il numero " +
                             std::to_string(kUltimoNumero) +
                             ", l'ultimo possibile: scrivere il numero del documento a mano");
  }
  return prossimo;
}

std::int64_t ScriviDocumento(Ambiente& ambiente, DocumentoDaScrivere documento) {
  if (documento.numDoc == 0) {
    documento.numDoc = ProssimoNumero(ambiente, documento.tipo, documento.anno);
  }
  CompletaRighe(ambiente, documento);
  ambiente.ArchivioDi("tessarc").Inserisci(kTestaDocumenti, CampiTesta(ambiente, documento));
  AggiungiRighe(ambiente, {documento.tipo.cod, documento.anno, documento.numDoc},
                Copiate(documento), documento.righe);
  return documento.numDoc;
}

std::int64_t RiscriviDocumento(Ambiente& ambiente, DocumentoDaScrivere documento) {
  const IdentitaDocumento identita{documento.tipo.cod, documento.anno, documento.numDoc};
  CompletaRighe(ambiente, documento);
  std::vector<Coppia> campi = documento.altriCampi;
  for (const char* campo : {"Dt", "CliFor", "DtDocCarico", "NumDocCarico", "Mag"}) {
    for (const Coppia& copiata : Copiate(documento)) {
      if (copiata.first == campo) campi.push_back(copiata);
    }
  }
  if (records::AggiornaRighe(ambiente.ArchivioDi("tessarc"), kTestaDocumenti, campi,
                             identita.Chiave()) == 0) {
    throw ErroreArchivio(ErroreArchivio::Causa::Mancante,
                         "il documento " + identita.tipoDoc + " n. " +
                             std::to_string(identita.numDoc) + ", da correggere, non c'è più");
  }
  TogliRighe(ambiente, identita);
  AggiungiRighe(ambiente, identita, Copiate(documento), documento.righe);
  return documento.numDoc;
}

void CancellaDocumento(Ambiente& ambiente, const std::string& tipoDoc, int anno,
                       std::int64_t numDoc) {
  const IdentitaDocumento documento{tipoDoc, anno, numDoc};
  const std::int64_t id =
      Nz(ambiente.Cerca("tessarc", kTestaDocumenti, documento.Chiave(), "ID")).Intero();
  if (id != 0) {
    Allegati allegati(ambiente, kTestaDocumenti, "");
    allegati.Collega(id);
    allegati.EliminaRighe();
  }
  TogliRighe(ambiente, documento);
  records::EliminaRighe(ambiente.ArchivioDi("tessarc"), kTestaDocumenti, documento.Chiave());
}

}  // namespace fenalto::documents
