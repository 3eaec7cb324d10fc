// Confirming and deleting a VAT registration: the numbers, the one transaction, what is told after.
#include <algorithm>
#include <limits>
#include <utility>

#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/accounts/ContiClientiFornitori.h"
#include "ledger/registrations/TestataArticolo.h"
#include "vat/entry/RegistrazioneIvaInterno.h"
#include "vat/postings/DatiIva.h"
#include "vat/postings/StornoSospesa.h"

namespace fenalto::vat {
namespace {

/// Fields that the next registration may repeat.
constexpr const char* kRipetibili[] = {"Contox", "Pagamento", "Descrizionex", "NFat",
                                       "DtFat",  "Dt",        "NProt",        "Riva"};
/// Fields that the next registration begins with.
constexpr const char* kMantenuti[] = {"FornitoreIntra", "ContoCostiIntra", "FornitoreBollaDog",
                                      "CausaleRitAcc1", "ContoRitAcc1",    "ImportoRitAcc1",
                                      "CausaleRitAcc2", "ContoRitAcc2",    "ImportoRitAcc2"};

/// The greatest number plus 1 is no number any more after the last that can be typed.
void ControllaNumeri(std::int64_t numDoc, std::int64_t nProt, const std::string& riva) {
  constexpr std::int64_t kUltimo = std::numeric_limits<std::int32_t>::max();
  if (nProt > kUltimo) {
    throw ErroreArchivio(ErroreArchivio::Causa::Altro, "sul registro iva " + riva +
                                                           " è già usato il protocollo " +
                                                           std::to_string(kUltimo) +
                                                           ", l'ultimo possibile: scrivere il "
                                                           "numero di protocollo a mano");
  }
  if (numDoc > kUltimo) {
    throw ErroreArchivio(ErroreArchivio::Causa::Altro,
                         "è già usato l'articolo n. " + std::to_string(kUltimo) +
                             ", l'ultimo possibile: scrivere il numero dell'articolo a mano");
  }
}

}  // namespace

// --- Numbers -------------------------------------------------------------------------------------

std::int64_t RegistrazioneIva::Interno::NProtForzato() const {
  const std::string digitato(Rifila(T("NProt")));
  return digitato.empty() ? 0 : Valore(digitato).Intero();
}

bool RegistrazioneIva::Interno::NumeroOccupato() {
  const std::int64_t numero = testa.Leggi("NumDoc").Intero();
  if (numero == numeroRecord || numero == 0) return false;
  return ambiente.Esiste("tessarc", "Articoli", {{"Anno", anno}, {"NumDoc", numero}}, "articolo");
}

bool RegistrazioneIva::Interno::ProtocolloOccupato() {
  const std::int64_t nProt = NProtForzato();
  if (nProt == nProtRecord || nProt == 0) return false;
  const bool occupato = ambiente.Esiste("tessarc", "ZarticoliProtocollati",
                                        {{"Anno", anno}, {"Riva", registro.cod}, {"NProt", nProt}});
  if (!occupato) return false;
  Avviso("è stato forzato un numero di protocollo iva già esistente");
  return true;
}

int RegistrazioneIva::Interno::OrigineNuova() const {
  if (B("RitAcc")) return static_cast<int>(ledger::Origine::RitenutaAcconto);
  if (B("BollaDog")) return static_cast<int>(ledger::Origine::BollaDoganale);
  if (Tipo({"04"}) && AutomaticoIntra()) return static_cast<int>(ledger::Origine::ReverseCharge);
  return static_cast<int>(ledger::Origine::Manuale);
}

// --- What was written with it --------------------------------------------------------------------

std::string RegistrazioneIva::Interno::ScadenzeCheRestano(
    const std::vector<RegistrazioneSeguita>& trovate) {
  std::string elenco;
  const auto aggiungi = [&](std::int64_t articolo, const duedates::ParteScadenze& parte) {
    for (const std::string& scadenza : duedates::ScadenzeMosse(ambiente, anno, articolo, parte)) {
      elenco += scadenza + "\n";
    }
  };
  aggiungi(numeroRecord, parteRecord);
  for (const RegistrazioneSeguita& r : trovate) {
    if (!r.fornitore.empty()) aggiungi(r.articolo.numDoc, {"F", r.fornitore});
  }
  if (elenco.empty()) return elenco;
  return "Ci sono scadenze già pagate o presentate, che restano come sono:\n" + elenco + "\n";
}

bool RegistrazioneIva::Interno::ChiediSeguito(std::string_view cheFare, bool scadenzeToccate) {
  bloccati.clear();
  seguito.clear();
  if (documento.Nuovo()) return true;
  std::vector<RegistrazioneSeguita> trovate = TrovaSeguito(ambiente, {anno, numeroRecord});
  const std::string restano = scadenzeToccate ? ScadenzeCheRestano(trovate) : "";
  if (trovate.empty()) {
    return restano.empty() || ambiente.Dialogo().Conferma(restano + "Proseguo ugualmente ?");
  }
  std::string testo = "Con questa registrazione sono state scritte anche:\n";
  for (const RegistrazioneSeguita& r : trovate) {
    testo += r.nome + (r.ferma.empty() ? "" : " (resta com'è: " + r.ferma + ")") + "\n";
  }
  testo += "\n" + restano + "SÌ = " + std::string(cheFare) +
           " anche queste, con le loro scadenze\nNO = le lascia come sono\nANNULLA = non fa nulla";
  const Risposta risposta =
      ambiente.Dialogo().Domanda(testo, Bottoni::SiNoAnnulla, Risposta::Si, "", Icona::Avviso);
  if (risposta == Risposta::Annulla) return false;
  if (risposta == Risposta::No) return true;
  for (const RegistrazioneSeguita& r : trovate) {
    bloccati.push_back(ledger::BloccaArticolo(ambiente, anno, r.articolo.numDoc));
    if (bloccati.back()) continue;
    Avviso("la registrazione n. " + std::to_string(r.articolo.numDoc) + " è in modifica " +
           bloccati.back().Errore().Descrizione());
    bloccati.clear();
    return false;
  }
  seguito = std::move(trovate);
  return true;
}

// --- Writing -------------------------------------------------------------------------------------

void RegistrazioneIva::Interno::ScriviTesta(Scritta& scritta) {
  std::vector<Coppia> campi = {{"Anno", anno},
                               {"NumDoc", scritta.numDoc},
                               {"Dt", D("Dt")},
                               {"CFP", T("CFPx")},
                               {"Conto", T("Contox")},
                               {"Riva", registro.cod},
                               {"NProt", scritta.nProt},
                               {"DtFat", D("DtFat")},
                               {"NFat", T("NFat")},
                               {"Ep", B("Ep")},
                               {"DtIncasso", D("DtIncasso")},
                               {"Pagamento", T("Pagamento")},
                               {"NVarAnPrec", B("NVarAnPrec")}};
  if (documento.Nuovo()) {
    campi.emplace_back("CREATOINAUTOMATICO", OrigineNuova());
    tessarc.Inserisci("Articoli", campi);
    return;
  }
  ledger::AggiornaTestata(tessarc, idRecord, numeroRecord, campi);
}

void RegistrazioneIva::Interno::ScriviScadenze(Scritta& scritta, Importo daPagare) {
  duedates::RichiestaScadenze richiesta;
  richiesta.cfp = T("CFPx");
  richiesta.conto = T("Contox");
  richiesta.codPag = T("Pagamento");
  richiesta.data = D("DtFat").Nulla() ? D("Dt") : D("DtFat");
  richiesta.importo = daPagare;
  richiesta.iva = totali.iva + totali.ivaInd;
  richiesta.descrizione = T("Descrizionex");
  richiesta.dataFat = D("DtFat");
  richiesta.numFat = T("NFat");
  richiesta.numProt = scritta.nProt;
  richiesta.riva = registro.cod;
  richiesta.anno = anno;
  richiesta.articolo = scritta.numDoc;
  richiesta.programma = "fatture";
  duedates::CreaScadenze(ambiente, richiesta, scritta.log.testo, scritta.log.avvisi);
}

void RegistrazioneIva::Interno::RinumeraScadenze(const Scritta& scritta) {
  if (scritta.numDoc == numeroRecord && scritta.nProt == nProtRecord) return;
  ambiente.ArchivioDi("scadenzario")
      .Esegui("update Scadenze set " + sql::Criterio("Articolo", "=", scritta.numDoc) + "," +
              sql::Criterio("NProt", "=", scritta.nProt) + " where " +
              sql::Criterio("Anno", "=", anno) + " and " +
              sql::Criterio("Articolo", "=", numeroRecord));
}

Importo RegistrazioneIva::Interno::DaPagare() const {
  Importo daPagare = totali.Totale();
  // Of a stored registration: what its giros have already taken off.
  daPagare -= B("RitAcc") ? I("ImportoRitAcc1") + I("ImportoRitAcc2") : ritenuteRecord;
  // The customs office is owed the VAT: the goods are paid to their supplier.
  const bool conGiro = std::ranges::any_of(seguito, [](const RegistrazioneSeguita& r) {
    return r.genere == GenereSeguito::GiroDogana && r.ferma.empty();
  });
  if (B("BollaDog") || conGiro) return daPagare - totali.imponibile;
  return daPagare - doganaRecord.value_or(Importo());
}

void RegistrazioneIva::Interno::ScriviSeguito(Scritta& scritta) {
  if (Tipo({"02", "07", "04", "05", "09"})) return;
  const Importo daPagare = DaPagare();
  if (documento.Nuovo()) {
    CreaContabPagamento(ambiente,
                        {T("CFPx"),
                         T("Contox"),
                         T("Pagamento"),
                         T("Descrizionex"),
                         daPagare,
                         D("Dt"),
                         anno,
                         {anno, scritta.numDoc}},
                        scritta.log);
    ScriviScadenze(scritta, daPagare);
    return;
  }
  // A code taken away takes its due dates with it.
  if (T("Pagamento").empty() && pagamentoRecord.empty()) return;
  const bool aggiorna =
      ambiente.Cerca("tessarc", "Pagamento", {{"Cod", T("Pagamento")}}, "AggiornaScad").Booleano();
  const bool altraParte =
      !UgualeTesto(parteRecord.cfp, T("CFPx")) || !UgualeTesto(parteRecord.conto, T("Contox"));
  // Those of the party that the document had aren't owed any more, whatever the code.
  if (!aggiorna && !T("Pagamento").empty() && !altraParte) {
    const bool esistono =
        ambiente.Esiste("scadenzario", "Scadenze", {{"Anno", anno}, {"Articolo", scritta.numDoc}});
    if (esistono) {
      scritta.log.Riga(
          "queste scadenze potrebbero essere già state modificate manualmente (oppure sono "
          "pagate)");
    }
    return;
  }
  const bool libere = duedates::EliminaScadenzeFattura(ambiente, anno, scritta.numDoc,
                                                       scritta.log.testo, parteRecord);
  if (libere && aggiorna) ScriviScadenze(scritta, daPagare);
}

void RegistrazioneIva::Interno::ScriviAutomatiche(Scritta& scritta) {
  if (!documento.Nuovo()) return;
  const ArticoloOrigine origine{anno, scritta.numDoc};
  if (Tipo({"04"}) && AutomaticoIntra()) {
    RegistraIntra(ambiente, origine,
                  {T("RivaIntra"), B("NoIntraCosto_a_Forn"), T("CausaleIntra"), T("FornitoreIntra"),
                   T("ContoCostiIntra"), T("PagamentoIntra")},
                  scritta.log);
  }
  if (B("BollaDog")) {
    RegistraBollaDoganale(ambiente, origine,
                          {T("FornitoreBollaDog"), T("CausaleBollaDog"), T("PagamentoBollaDog")},
                          scritta.log);
  }
  if (!B("RitAcc")) return;
  RegistraGiroRitenuta(ambiente, origine,
                       {T("CausaleRitAcc1"), T("ContoRitAcc1"), I("ImportoRitAcc1")}, scritta.log);
  if (I("ImportoRitAcc2").Zero()) return;
  RegistraGiroRitenuta(ambiente, origine,
                       {T("CausaleRitAcc2"), T("ContoRitAcc2"), I("ImportoRitAcc2")}, scritta.log);
}

RegistrazioneIva::Interno::Scritta RegistrazioneIva::Interno::Scrivi() {
  Scritta scritta;
  scritta.descrConto = ledger::NomeConto(ambiente, T("CFPx"), T("Contox"));
  scritta.conCespite = DiCespite();
  scritta.nProt =
      NProtForzato() != 0 ? NProtForzato() : ProssimoNProt(ambiente, anno, registro.cod);
  scritta.numDoc = testa.Leggi("NumDoc").Intero();
  if (scritta.numDoc == 0) scritta.numDoc = ledger::ProssimoNumDoc(ambiente, anno);
  ControllaNumeri(scritta.numDoc, scritta.nProt, registro.cod);
  auto complete = CreaRigheIvaCli(Documento(scritta.numDoc), RigheCompilate());
  if (!complete) throw ErroreArchivio(ErroreArchivio::Causa::Altro, complete.Errore().messaggio);
  const bool stornoLibero =
      documento.Nuovo() || LevaStornoSospesa(ambiente, {anno, numeroRecord}, scritta.log);
  if (!documento.Nuovo()) {
    tessarc.Esegui("delete * from Movimenti where " + ChiaveArticolo({anno, numeroRecord}));
  }
  // The head first: the rows then take its date as they are written.
  ScriviTesta(scritta);
  for (const auto& fatta : complete.Valore().righe) ScriviRigaIva(tessarc, fatta);
  if (!complete.Valore().avviso.empty()) scritta.log.avvisi.push_back(complete.Valore().avviso);
  if (!documento.Nuovo()) RinumeraScadenze(scritta);
  ScriviSeguito(scritta);
  ScriviAutomatiche(scritta);
  CorreggiSeguito(ambiente, seguito, {anno, scritta.numDoc}, pagamentoRecord, DaPagare(),
                  scritta.log);
  if (stornoLibero) RimettiStornoSospesa(ambiente, {anno, scritta.numDoc}, scritta.log);
  return scritta;
}

// --- After ---------------------------------------------------------------------------------------

void RegistrazioneIva::Interno::Ricorda() {
  for (const char* campo : kRipetibili) ultimi[campo] = testa.Leggi(campo);
  // A stored registration shows none of them.
  if (!documento.Nuovo()) return;
  for (const char* campo : kMantenuti) ricordati[campo] = testa.Leggi(campo);
}

void RegistrazioneIva::Interno::Annuncia(const Scritta& scritta) {
  for (const auto& avviso : scritta.log.avvisi) Avviso(avviso);
  std::string testo = "Annotare il numero sul documento.\n\nRegistro iva " + registro.cod +
                      " - N.Prot.IVA " + std::to_string(scritta.nProt) + " - Articolo Contabile" +
                      std::to_string(scritta.numDoc);
  testo += "\n\nRegistrazione fatture in contabilità";
  testo += "\nRegistro iva: " + registro.cod + " " + registro.descrizione;
  testo += "\nData registrazione: " + D("Dt").Testo();
  testo += "\nConto: " + T("Contox") + " " + scritta.descrConto;
  testo += "\nData fattura: " + D("DtFat").Testo();
  testo += "\nNumero fattura: " + T("NFat");
  testo += "\nArticolo n.: " + std::to_string(scritta.numDoc);
  const std::string log = scritta.log.testo;
  ambiente.Dialogo().Annuncia(testo);
  if (!log.empty()) ambiente.Dialogo().Annuncia(log);
}

/// Whoever can't open the assets isn't asked.
bool RegistrazioneIva::Interno::DiCespite() const {
  constexpr int kLivelloCespiti = 99;
  return documento.Nuovo() && Tipo({"03"}) && ambiente.HaDiritto(kLivelloCespiti) &&
         std::ranges::any_of(righe.Tutte(), [this](const RigaIva& una) {
           return ambiente.Esiste("tessarc", "Conti", {{"Cod", una.conto}, {"Cespite", true}});
         });
}

bool RegistrazioneIva::Conferma(std::string* campo) {
  Interno& io = *interno_;
  io.cespiteChiesto = false;
  if (io.Ferma()) return false;
  io.NumeroLasciato();
  Interno::Scritta scritta;
  io.doppioAmmesso = false;
  const bool riuscita = records::Esegui(
      io.ambiente,
      {.nonRiuscita = "conferma della registrazione non riuscita: ",
       .dopoErrore = records::kAncoraSulloSchermo,
       .numerazioni = {"ARTICOLI"},
       .prima =
           [&] {
             if (io.documento.Rifiuta(io.Controlla(), campo) || io.NumeroOccupato()) return false;
             io.seguito.clear();
             return !Modificata() ||
                    io.ChiediSeguito("corregge", io.BaseScadenze() != io.scadenzeRecord);
           },
       // Another station may have taken a typed number, or erased a code, since the first look.
       .sottoBlocco =
           [&] {
             return !io.documento.Rifiuta(io.ControllaCodici(), campo) && !io.NumeroOccupato() &&
                    !io.ProtocolloOccupato();
           },
       .scrivi =
           [&] {
             io.bozza.InConferma(true);
             scritta = io.Scrivi();
             return std::string();
           }});
  io.bloccati.clear();
  if (!riuscita) {
    io.bozza.InConferma(false);
    return false;
  }
  io.bozza.Fine();
  io.testa.Scrivi("NProt", std::to_string(scritta.nProt));
  io.numeroConfermato = scritta.numDoc;
  io.ambiente.Ricorda(AlNumero("Fatture", scritta.numDoc, io.anno));
  io.Ricorda();
  io.Annuncia(scritta);
  io.cespiteChiesto =
      scritta.conCespite &&
      io.ambiente.Dialogo().Domanda(
          "E'stato utilizzato un conto relativo all'acquisto di beni ammortizzabili\n"
          "Si vuole inserire un nuovo cespite ?",
          Bottoni::SiNo, Risposta::Si) == Risposta::Si;
  io.ChiudiRecord();
  return true;
}

bool RegistrazioneIva::CespiteChiesto() const {
  return interno_->cespiteChiesto;
}

std::int64_t RegistrazioneIva::NumeroConfermato() const {
  return interno_->numeroConfermato;
}

bool RegistrazioneIva::Elimina() {
  Interno& io = *interno_;
  if (io.documento.Nuovo() || io.Ferma()) return false;
  LogContabile log;
  const auto elimina = [&] {
    LevaStornoSospesa(io.ambiente, {io.anno, io.numeroRecord}, log);
    const std::string chiave = ChiaveArticolo({io.anno, io.numeroRecord});
    io.tessarc.Esegui("delete * from Movimenti where " + chiave);
    io.tessarc.Esegui("delete * from Articoli where " + chiave);
    duedates::EliminaScadenzeFattura(io.ambiente, io.anno, io.numeroRecord, log.testo,
                                     io.parteRecord);
    EliminaSeguito(io.ambiente, io.seguito, log);
    return std::string();
  };
  const bool eliminata = records::Esegui(
      io.ambiente,
      {.nonRiuscita = "eliminazione della registrazione non riuscita: ",
       .dopoErrore = records::kAncoraSulloSchermo,
       .prima =
           [&] {
             return io.ambiente.Dialogo().Conferma("Conferma eliminazione ARTICOLO CONTABILE ?") &&
                    io.ChiediSeguito("elimina", true);
           },
       .scrivi = elimina});
  io.bloccati.clear();
  if (!eliminata) return false;
  io.bozza.Fine();
  io.ambiente.Dialogo().Annuncia("N.Prot.IVA " + std::to_string(io.nProtRecord) +
                                 " - Articolo Contabile" + std::to_string(io.numeroRecord) +
                                 " eliminato" + (log.testo.empty() ? "" : "\n" + log.testo));
  for (const std::string& avviso : log.avvisi) io.Avviso(avviso);
  io.ChiudiRecord();
  return true;
}

}  // namespace fenalto::vat
