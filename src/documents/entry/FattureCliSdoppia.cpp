// A document that begins as another one: a copy, or one that a stopped program left behind.
#include <algorithm>

#include "core/records/Conferma.h"
#include "documents/entry/FattureCliInterno.h"

namespace fenalto::documents {
namespace {

bool FraQuesti(const std::string& nome, std::initializer_list<std::string_view> nomi) {
  return std::ranges::any_of(nomi, [&](std::string_view n) { return UgualeTesto(n, nome); });
}

/// What a copy keeps of a row; the rest ties the other document to orders, jobs and lots.
RigaDocumento Copiata(const RigaDocumento& una, bool diFornitori) {
  RigaDocumento copia;
  copia.posi = una.posi;
  copia.codiceRiga = una.codiceRiga;
  copia.descrizione = una.descrizione;
  copia.um = una.um;
  copia.quantita = una.quantita;
  copia.prezzo = una.prezzo;
  copia.sc1 = una.sc1;
  copia.sc2 = una.sc2;
  copia.sc3 = una.sc3;
  copia.importo = una.importo;
  copia.codIva = una.codIva;
  copia.conto = una.conto;
  copia.prov = una.prov;
  copia.costo = una.costo;
  if (diFornitori) {
    copia.quantitaA = una.quantita;
    copia.prezzoA = una.prezzo;
  }
  return copia;
}

}  // namespace

// --- Copies --------------------------------------------------------------------------------------

void FattureCli::Interno::CopiaTesta(const Rs& origine) {
  const bool stessoTipo = UgualeTesto(origine.Fields("TipoDoc").Testo(), tipo.cod);
  const bool stessaParte = UgualeTesto(origine.Fields("CFP").Testo(), tipo.cfp);
  for (const sql::ColonnaCatalogo& colonna : tessarc.Catalogo().Tabella(kTestaDocumenti)->colonne) {
    const std::string& nome = colonna.nome;
    if (colonna.nascosta || colonna.contatore) continue;
    // Its own: key, what its type decides, its day, what became of the other one, its references.
    if (FraQuesti(nome,
                  {"TipoDoc", "Anno", "NumDoc", "Riva", "CFP", "CausaleMag", "CS", "Dt", "DataOra",
                   "Fattura", "DtIncasso", "ScadPag", "NumDocCarico", "DtDocCarico",
                   "CREATOINAUTOMATICO", "TipoDocOrigine", "AnnoOrigine", "NumDocOrigine"})) {
      continue;
    }
    if (!stessoTipo && FraQuesti(nome, {"Mag", "Fatturo", "EscludoFatAuto"})) continue;
    if (!stessaParte && FraQuesti(nome, {"CliFor", "Destinazione", "RagSoc1Dest", "ragsoc2Dest",
                                         "indirizzodest", "capdest", "localitadest", "provdest",
                                         "Pagamento", "Agente", "ScontoCassa"})) {
      continue;
    }
    if (tipo.prezziIvati && FraQuesti(nome, {"ScontoCassa"})) continue;
    testa.Scrivi(nome, origine.Fields(nome));
  }
  LeggiParte();
}

bool FattureCli::Sdoppia(const IdentitaDocumento& origine) {
  Interno& io = *interno_;
  const Rs record = io.TrovaTesta(origine);
  const auto tipoOrigine = LeggiTipo(io.ambiente, origine.tipoDoc);
  if (record.Eof()) {
    io.Avviso("il documento " + origine.tipoDoc + " n. " + std::to_string(origine.numDoc) +
              " del " + std::to_string(origine.anno) + " non esiste");
    return false;
  }
  if (tipoOrigine && tipoOrigine->Fatturazione() && !io.Livello()) {
    io.Avviso("non si hanno diritti per questo tipo documento");
    return false;
  }
  const bool conRighe = io.ambiente.Dialogo().Domanda("Copio anche le righe", Bottoni::SiNo,
                                                      Risposta::Si) == Risposta::Si;
  std::vector<RigaDocumento> copiate;
  if (conRighe) {
    for (const RigaDocumento& una : LeggiRighe(io.ambiente, origine)) {
      if (una.nl1 != 0 || una.nl3 != 0) {
        io.Avviso("non si può sdoppiare una riga gestita a lotti");
        return false;
      }
      copiate.push_back(Copiata(una, io.tipo.cfp == "F"));
    }
  }
  Abbandona();
  return records::Tenta(io.ambiente, {"copia del documento non riuscita: ", records::kNullaScritto},
                        [&] {
                          if (!io.IniziaNuovo("Nuovo documento da sdoppiamento di altro "
                                              "esistente")) {
                            return false;
                          }
                          io.CopiaTesta(record);
                          io.Accetta(std::move(copiate));
                          io.Segna();
                          return true;
                        });
}

// --- Drafts --------------------------------------------------------------------------------------

void FattureCli::Interno::Segna() noexcept {
  try {
    bozza.Segna(testa, righe);
  } catch (const std::exception&) {
    // Whoever can't keep a draft can work all the same.
    return;
  }
}

bool FattureCli::Riprendi() {
  Interno& io = *interno_;
  const auto lasciata = io.bozza.Offri({"un documento non confermato", "lo"});
  if (!lasciata) return false;
  const std::string codice = lasciata->Nota("Tipo");
  if (!ScegliTipo(codice)) {
    return io.bozza.NonRipresa("il tipo documento " + codice + " non esiste più");
  }
  const std::int64_t numero = lasciata->record.empty() ? 0 : Valore(lasciata->record).Intero();
  if (numero == 0 ? !Nuovo() : !Apri(codice, numero)) {
    return io.bozza.NonRipresa(numero == 0 ? "il documento non si può iniziare"
                                           : "il documento non c'è più");
  }
  if (numero != 0 && SolaLettura()) {
    const std::string motivo = MotivoSolaLettura();
    Abbandona();
    return io.bozza.NonRipresa(motivo, true);
  }
  if (numero != 0 && !io.bozza.Concorda(*lasciata)) {
    Abbandona();
    return io.bozza.NonRipresa("il documento è stato cambiato nel frattempo");
  }
  io.bozza.RiempiTesta(*lasciata, io.testa);
  io.LeggiParte();
  io.Accetta(io.bozza.RigheDi(*lasciata, io.righe));
  io.bozza.RiempiRiga(*lasciata, io.righe);
  io.codiceVisto = io.righe.InRiga() ? io.riga.Testo("CodiceRiga") : std::string();
  return io.bozza.Ripresa(io.testa, io.righe);
}

}  // namespace fenalto::documents
