// Choosing a type, beginning a document and opening one.
#include "documents/entry/FattureCli.h"

#include <algorithm>
#include <utility>

#include "core/records/Conferma.h"
#include "documents/entry/FattureCliInterno.h"

namespace fenalto::documents {
namespace {

/// Codes in a column of a document's rows that aren't in their archive.
std::string SenzaRecord(const std::string& colonna, const std::string& tabella,
                        const std::string& chiave) {
  return "select distinct FattureCli_r." + colonna + " from FattureCli_r left join " + tabella +
         " on FattureCli_r." + colonna + "=" + tabella + ".Cod where " + tabella +
         ".Cod is null and FattureCli_r." + colonna + "<>'' and " + chiave;
}

}  // namespace

std::string CodicePerduto(const std::string& campo, const std::string& codice) {
  return campo + "|" + SenzaMaiuscole(codice);
}

FattureCli::Interno::Interno(Ambiente& ambienteUsato)
    : ambiente(ambienteUsato),
      tessarc(ambienteUsato.ArchivioDi("tessarc")),
      documento(ambienteUsato),
      allegati(ambienteUsato, kTestaDocumenti, "") {
  testa = Scheda(*tessarc.Catalogo().Tabella(kTestaDocumenti));
  testa.Aggiungi(kMagDest, Tipo::Testo);
  LeggiTuttiITipi();
  const auto proposto = std::ranges::find_if(tipi, &TipoDocumento::tipoDefault);
  if (proposto != tipi.end()) {
    tipo = *proposto;
  } else if (!tipi.empty()) {
    tipo = tipi.front();
  }
}

FattureCli::FattureCli(Ambiente& ambiente) : interno_(std::make_unique<Interno>(ambiente)) {}
FattureCli::~FattureCli() = default;

std::string FattureCli::Impedimento(Ambiente& ambiente) {
  if (ambiente.Esiste("tessarc", "TipiFattureCli", {})) return {};
  return "è necessario impostare almeno un tipo di documento (dal menu 'fatture/ddt' -> 'tipi "
         "documento')";
}

// --- Type ----------------------------------------------------------------------------------------

void FattureCli::Interno::LeggiTuttiITipi() {
  tipi = LeggiTipi(ambiente);
}

bool FattureCli::Interno::RileggiTipo(const std::string& codice) {
  auto letto = LeggiTipo(ambiente, codice);
  if (!letto) {
    Avviso("il tipo documento " + codice + " non esiste più: sceglierne un altro");
    return false;
  }
  tipo = std::move(*letto);
  return true;
}

const std::vector<TipoDocumento>& FattureCli::Tipi() const {
  return interno_->tipi;
}

const TipoDocumento& FattureCli::Tipo() const {
  return interno_->tipo;
}

bool FattureCli::ScegliTipo(const std::string& codice) {
  Interno& io = *interno_;
  if (io.documento.Aperto()) return UgualeTesto(io.tipo.cod, Rifila(codice));
  auto letto = LeggiTipo(io.ambiente, std::string(Rifila(codice)));
  if (!letto) return false;
  io.tipo = std::move(*letto);
  io.LeggiTuttiITipi();
  return true;
}

std::int64_t FattureCli::ProbabileNumDoc() {
  try {
    return ProssimoNumero(interno_->ambiente, interno_->tipo, interno_->ambiente.Anno());
  } catch (const ErroreArchivio& e) {
    // A series that is at its end is told at the confirmation.
    if (e.PerQuale() != ErroreArchivio::Causa::Altro) throw;
    return 0;
  }
}

// --- New -----------------------------------------------------------------------------------------

std::optional<std::string> FattureCli::Interno::NonIniziabile() {
  if (tipo.Fatturazione() && !Livello()) return "non si hanno diritti per questo tipo documento";
  if (tipo.riva.empty()) return std::nullopt;
  const std::string conto =
      NzStr(ambiente.Cerca("tessarc", "RegistriIva", {{"Cod", tipo.riva}}, "Conto"));
  if (conto.empty()) {
    return "per emettere le fatture che vengono contabilizzate è necessario inserire il conto iva "
           "da : menu->archivi->contabilità>registri iva";
  }
  return "i documenti di tipo " + tipo.cod + " si contabilizzano sul registro iva " + tipo.riva +
         ": non si possono ancora emettere";
}

void FattureCli::Interno::TestaDalTipo() {
  testa.Svuota();
  anno = ambiente.Anno();
  testa.Scrivi("TipoDoc", tipo.cod);
  testa.Scrivi("Anno", anno);
  testa.Scrivi("Riva", tipo.riva);
  testa.Scrivi("CFP", tipo.cfp);
  testa.Scrivi("CodiceCausaleTrasporto", tipo.codiceCausaleTrasporto);
  testa.Scrivi("Trasporto", tipo.trasporto);
  testa.Scrivi("CodAspetto", tipo.codAspetto);
  testa.Scrivi("Aspetto", tipo.aspetto);
  testa.Scrivi("Porto", tipo.porto);
  testa.Scrivi("Fatturo", tipo.Bolla() && tipo.fatturo);
  testa.Scrivi("Mag", tipo.mag);
  testa.Scrivi("CausaleMag", tipo.causaleMag);
  testa.Scrivi("CS", tipo.cs);
  const Data oggi = ambiente.Ora().Oggi();
  testa.Scrivi("Dt", oggi);
  testa.Scrivi("DataOra", oggi.Testo() + " " + ambiente.Ora().Ora());
  Descrivi("CodiceCausaleTrasporto", "CodiciCausaliTrasporto", "CausaleTrasporto");
  if (tipo.tipoDocTrasferimento.empty()) return;
  const auto altro = LeggiTipo(ambiente, tipo.tipoDocTrasferimento);
  if (altro && !UgualeTesto(altro->mag, tipo.mag)) testa.Scrivi(kMagDest, altro->mag);
}

void FattureCli::Interno::AvvisaComponenti() const {
  if (!tipo.tipoDocScaricoDB.empty()) {
    ambiente.Dialogo().Annuncia(
        "si tratta di un tipo documento che scarica automaticamente la distinta base\n(verrà "
        "creato un documento di tipo " +
        tipo.tipoDocScaricoDB + ")");
  }
  if (std::ranges::any_of(tipi, [&](const TipoDocumento& altro) {
        return UgualeTesto(altro.tipoDocScaricoDB, tipo.cod);
      })) {
    ambiente.Dialogo().Annuncia(
        "si tratta di un carico correlato ad uno scarico automatico di componenti");
  }
}

bool FattureCli::Interno::IniziaNuovo(const std::string& titolo) {
  if (!RileggiTipo(tipo.cod)) return false;
  if (const auto motivo = NonIniziabile()) {
    Avviso(*motivo);
    return false;
  }
  TestaDalTipo();
  titoloNuovo = titolo;
  regola = RegolaDi(ambiente);
  allegati.Collega(0);
  AvvisaComponenti();
  documento.Inizia();
  CalcolaTotali();
  bozza.Nota("Tipo", tipo.cod);
  bozza.Inizia(anno, "", testa, righe);
  return true;
}

bool FattureCli::Nuovo() {
  Interno& io = *interno_;
  Abbandona();
  const auto comincia = [&] {
    if (!io.IniziaNuovo("Nuovo documento " + io.tipo.cod + " " + io.tipo.descrizione)) return false;
    if (io.tipo.cliFor.empty()) return true;
    io.testa.Scrivi("CliFor", io.tipo.cliFor);
    io.ParteScelta();
    io.testa.Consolida();
    io.bozza.Inizia(io.anno, "", io.testa, io.righe);
    return true;
  };
  return records::Tenta(io.ambiente, {"nuovo documento non riuscito: ", records::kNullaScritto},
                        comincia);
}

// --- Stored --------------------------------------------------------------------------------------

Rs FattureCli::Interno::TrovaTesta(const IdentitaDocumento& cercato) const {
  return tessarc.Recordset("select * from FattureCli where " +
                           records::Condizione(cercato.Chiave()));
}

void FattureCli::Interno::CaricaTesta(const Rs& record) {
  testa.Svuota();
  testa.Carica(record);
  anno = static_cast<int>(record.Fields("Anno").Intero());
  numeroRecord = record.Fields("NumDoc").Intero();
  idRecord = record.Fields("ID").Intero();
  regola = RegolaDi(ambiente);
  righe.Carica(LeggiRighe(ambiente, Identita()));
  quantitaRecord.clear();
  for (const RigaDocumento& una : righe.Tutte()) {
    if (!una.codiceRiga.empty()) quantitaRecord[SenzaMaiuscole(una.codiceRiga)] += una.quantita;
  }
  magRecord = T("Mag");
  csRecord = T("CS");
  copiateRecord = Copiate();
  LeggiCodiciPerduti();
  LeggiParte();
  LeggiLegati();
}

void FattureCli::Interno::LeggiCodiciPerduti() {
  perduti.clear();
  const std::string chiave = records::Condizione(Identita().Chiave());
  for (const auto& [colonna, tabella] :
       {std::pair("CodiceRiga", "CodiciRiga"), std::pair("CodIva", "CodiciIva"),
        std::pair("Conto", "Conti")}) {
    for (Rs rs = tessarc.Recordset(SenzaRecord(colonna, tabella, chiave)); !rs.Eof();
         rs.MoveNext()) {
      perduti.insert(CodicePerduto(colonna, rs.Fields(0).Testo()));
    }
  }
}

void FattureCli::Interno::AvvisaContabilita() const {
  if (T("Riva").empty()) return;
  const auto stampato =
      ambiente.Max("UltProtSt", "UltProtStRegIva", {{"Anno", anno}, {"Riva", T("Riva")}}, tessarc)
          .Intero();
  if (numeroRecord <= stampato) Avviso("documento già stampato su registro iva");
  const Data giornale = ambiente.Max("dt", "UltimaDataLibro", {}, tessarc).Data();
  if (D("Dt") < giornale) {
    Avviso(
        "data registrazione contabile antecedente all'ultima data già stampata su libro giornale");
  }
}

bool FattureCli::Apri(const std::string& tipoDoc, std::int64_t numDoc) {
  return Apri({tipoDoc, interno_->ambiente.Anno(), numDoc});
}

bool FattureCli::Apri(const IdentitaDocumento& cercato) {
  Interno& io = *interno_;
  if (io.TrovaTesta(cercato).Eof()) return false;
  auto letto = LeggiTipo(io.ambiente, cercato.tipoDoc);
  if (letto && letto->Fatturazione() && !io.Livello()) {
    io.Avviso("non si hanno diritti per questo tipo documento");
    return false;
  }
  Abbandona();
  auto preso = BloccaDocumento(io.ambiente, cercato);
  // Read under the lock: until now another station could still change it.
  Rs record = io.TrovaTesta(cercato);
  if (record.Eof()) return false;
  std::string motivo;
  if (letto) {
    io.tipo = std::move(*letto);
  } else {
    io.tipo = {};
    io.tipo.cod = cercato.tipoDoc;
    motivo = "il tipo documento " + cercato.tipoDoc + " non esiste più";
  }
  io.CaricaTesta(record);
  io.AvvisaComponenti();
  io.AvvisaLegati();
  io.AvvisaContabilita();
  if (!preso) {
    motivo = "il documento " + io.tipo.cod + " n. " + std::to_string(io.numeroRecord) +
             " è in modifica " + preso.Errore().Descrizione();
  } else if (io.anno != io.ambiente.Anno()) {
    motivo = "il documento è dell'anno " + std::to_string(io.anno) +
             ": per correggerlo scegliere quell'anno";
  } else if (motivo.empty() && !io.T("Riva").empty()) {
    motivo = "il documento è contabilizzato sul registro iva " + io.T("Riva");
  }
  if (!motivo.empty()) io.Avviso(motivo + ":\nsi può consultare, senza cambiarlo");
  io.allegati.Collega(io.idRecord, io.DescrizioneAllegati(io.numeroRecord));
  io.CalcolaTotali();
  io.documento.Mostra(std::move(preso), std::move(motivo));
  if (io.documento.Modificabile()) {
    io.bozza.Nota("Tipo", io.tipo.cod);
    io.bozza.Inizia(io.anno, std::to_string(io.numeroRecord), io.testa, io.righe);
  }
  io.ambiente.Ricorda({.funzione = "FattureCli",
                       .codice = std::to_string(io.numeroRecord),
                       .anno = io.anno,
                       .classe = io.tipo.cod});
  return true;
}

void FattureCli::Abbandona() {
  interno_->ChiudiRecord();
}

void FattureCli::Interno::ChiudiRecord() noexcept {
  bozza.Fine();
  documento.Chiudi();
  righe.Carica({});
  allegati.Scollega();
  numeroRecord = idRecord = 0;
  titoloNuovo.clear();
  parte = Rs();
  dataAvvisata = {};
  speseChieste = false;
  copiateRecord.clear();
  quantitaRecord.clear();
  perduti.clear();
  provenienza.clear();
  codiceVisto.clear();
  componenti.clear();
  gemello.reset();
  bloccati.clear();
  rifaComponenti = eliminaComponenti = false;
  somme = {};
  Dimentica();
}

void FattureCli::Interno::Dimentica() {
  aliquote.clear();
  costi.clear();
  noti.clear();
  accanto.reset();
}

bool FattureCli::Interno::Ferma() {
  return !documento.Aperto() || documento.RifiutaRiga(righe.InRiga()) ||
         documento.RifiutaSolaLettura();
}

}  // namespace fenalto::documents
