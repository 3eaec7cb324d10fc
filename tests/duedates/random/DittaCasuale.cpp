#include "duedates/random/DittaCasuale.h"

#include <algorithm>
#include <filesystem>

#include "core/sql/Criterio.h"
#include "duedates/payments/AnticipoFattura.h"
#include "duedates/reports/ConfrontaSaldi.h"
#include "ledger/registrations/Primanota.h"
#include "vat/postings/SeguitoFattura.h"

namespace fenalto::prova {
namespace {

constexpr std::array kCodici = {"DUE", "RIBA", "", "SUBITO"};

/// Above zero what is owed, whoever owes it.
Importo Dovuto(const std::string& cfp, Importo dare, Importo avere) {
  return cfp == "C" ? dare - avere : avere - dare;
}

std::string Delle(const Parte& parte) {
  return sql::Criterio("CFP", "=", parte.first) + " and " +
         sql::Criterio("Conto", "=", parte.second);
}

std::string DellArticolo(std::int64_t numDoc) {
  return sql::Criterio("Anno", "=", 2024) + " and " + sql::Criterio("Articolo", "=", numDoc);
}

}  // namespace

DittaCasuale::DittaCasuale() {
  Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
  // A code with receipts, and one that pays at once and makes no due date.
  Tessarc().Inserisci("Pagamento",
                      {{"Cod", "RIBA"}, {"NuovaCodifica", true}, {"AggiornaScad", true}});
  for (const int rata : {1, 2, 3}) {
    Tessarc().Inserisci("Pagamento_r", {{"Cod", "RIBA"},
                                        {"Rata", "0" + std::to_string(rata)},
                                        {"PercImporto", I("33.3333")},
                                        {"DopoMesi", (rata + 1) / 2},
                                        {"FineMese", true},
                                        {"Tipo", duedates::kTipoRiba}});
  }
  Tessarc().Inserisci(
      "Pagamento",
      {{"Cod", "SUBITO"}, {"NuovaCodifica", true}, {"Conto", "100.010"}, {"Causale", "004"}});
  Scadenzario().Inserisci("Banche", {{"Cod", kBanca},
                                     {"Nome", "Banca di prova"},
                                     {"Abi", "03069"},
                                     {"CAB", "11700"},
                                     {"CodSia", "A1B2C"}});
  transazione.Conferma();
  for (const char* finestra : {"1", "2", "3", "4"}) {
    const auto config = [&](const char* chiave, const char* valore) {
      Config((std::string(chiave) + finestra).c_str(), valore);
    };
    config("CausalePagScad", "002");
    config("ContropartitaPagScad", "100.010");
    config("ContoArrotondamentiPagScad", "580.010");
  }
  Config("InvertoDAinNoteCredito", "1");
}

void DittaCasuale::Ricomincia() {
  attese_.clear();
  emesse_.clear();
  racconto_.clear();
  nFat_ = 0;
  Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
  Tessarc().Esegui("delete * from Movimenti");
  Tessarc().Esegui("delete * from Articoli");
  Scadenzario().Esegui("delete * from Scadenze");
  Scadenzario().Esegui("update Banche set NUltDistinta=0");
  transazione.Conferma();
  for (const auto& voce : std::filesystem::directory_iterator(cartella.Percorso())) {
    if (voce.path().extension() == ".rib") std::filesystem::remove(voce.path());
  }
}

void DittaCasuale::Fai(const Mossa& mossa) {
  dialoghi.messaggi.clear();
  dialoghi.domande.clear();
  using Modo = duedates::PagamentiScadenzario::Modo;
  switch (mossa.genere) {
    case Genere::Fattura:
      NuovaFattura(mossa);
      break;
    case Genere::CambiaFattura:
      CambiaFattura(mossa);
      break;
    case Genere::EliminaFattura:
      EliminaFattura(mossa);
      break;
    case Genere::PagaParte:
      Paga(mossa, Modo::SingolaParte);
      break;
    case Genere::PagaDiversi:
      Paga(mossa, Modo::PiuParti);
      break;
    case Genere::Anticipo:
      NuovoAnticipo(mossa);
      break;
    case Genere::Distinta:
      Presenta(mossa);
      break;
    case Genere::Raggruppa:
      Raggruppa(mossa);
      break;
    case Genere::Insoluto:
      NuovoInsoluto(mossa);
      break;
    case Genere::CambiaInsoluto:
      CambiaInsoluto(mossa);
      break;
    case Genere::EliminaPagamento:
      EliminaPagamento(mossa);
      break;
    case Genere::Deduci:
      Deduci(mossa);
      break;
    case Genere::Ripristina:
      Ripristina(mossa);
      break;
    case Genere::ScadenzaAMano:
      ScadenzaAMano(mossa);
      break;
    case Genere::EliminaScadenza:
      EliminaScadenza(mossa);
      break;
  }
  Controlla();
}

// --- Invoices ------------------------------------------------------------------------------------

void DittaCasuale::NuovaFattura(const Mossa& mossa) {
  const Parte parte = ParteDi(mossa);
  const std::string pagamento = kCodici.at(static_cast<std::size_t>(mossa.quale / 4 % 4));
  // A credit note isn't paid at once.
  const bool nota = Bit(mossa, 0) && Bit(mossa, 1) && pagamento != "SUBITO";
  const Importo imponibile = nota ? -ImportoDi(mossa) : ImportoDi(mossa);
  vat::RegistrazioneIva f(ambiente);
  RC_ASSERT(Digita(f, {.riva = parte.first == "C" ? "1" : "3",
                       .parte = parte.second,
                       .righe = {{parte.first == "C" ? "700.001" : "500.001", "22", imponibile}},
                       .nFat = std::to_string(++nFat_),
                       .pagamento = pagamento,
                       .dt = G(15, 3, 2024)}));
  const Importo totale = f.TotFat();
  RC_ASSERT(f.Conferma());
  emesse_[f.NumeroConfermato()] = {parte, pagamento, totale};
  Nota("art. " + std::to_string(f.NumeroConfermato()) + " fattura " + parte.first + parte.second +
       " " + pagamento + " " + totale.Testo());
  if (pagamento.empty()) Scosta(parte, totale, "Scadenze: NON create");
}

DittaCasuale::Emessa* DittaCasuale::Una(const Mossa& mossa, std::int64_t& numDoc) {
  if (emesse_.empty()) return nullptr;
  auto scelta = std::next(emesse_.begin(), mossa.quale % static_cast<int>(emesse_.size()));
  numDoc = scelta->first;
  return &scelta->second;
}

/// An erased document of that number may have left those of another party.
std::string DittaCasuale::DelDocumento(std::int64_t numDoc) const {
  return DellArticolo(numDoc) + " and (Modificata or (" + Delle(emesse_.at(numDoc).parte) + "))";
}

bool DittaCasuale::Intatta(std::int64_t numDoc) {
  return Leggi(DelDocumento(numDoc) + " and (Stato<>'00' or Modificata)").empty();
}

bool DittaCasuale::HaSeguito(std::int64_t numDoc) {
  return !vat::TrovaSeguito(ambiente, {2024, numDoc}).empty();
}

void DittaCasuale::Prosegue(std::int64_t numDoc) {
  if (HaSeguito(numDoc)) {
    dialoghi.Rispondera("sono state scritte anche", Risposta::No);
  } else if (!Leggi(DelDocumento(numDoc) + " and (Stato>='10' or ImportoPagatoE<>0)").empty()) {
    dialoghi.Rispondera("Ci sono scadenze già pagate o presentate", Risposta::Si);
  }
}

Importo DittaCasuale::SommaScadenze(std::int64_t numDoc) {
  Importo somma;
  for (const duedates::Scadenza& s : Leggi(DelDocumento(numDoc))) somma += Aperto(s);
  return somma;
}

void DittaCasuale::CambiaFattura(const Mossa& mossa) {
  std::int64_t numDoc = 0;
  Emessa* emessa = Una(mossa, numDoc);
  if (emessa == nullptr) return;
  const bool intatta = Intatta(numDoc);
  const Importo scadenze = SommaScadenze(numDoc);
  vat::RegistrazioneIva f(ambiente);
  RC_ASSERT(f.Apri(numDoc));
  RC_ASSERT(f.ApriRiga(0));
  f.Riga().Scrivi("Iva", Importo());
  f.Riga().Scrivi("IvaInd", Importo());
  f.Riga().Scrivi("Imponibile", ImportoDi(mossa));
  f.RigaLasciata("Imponibile");
  RC_ASSERT(f.ConfermaRiga());
  const Importo totale = f.TotFat();
  if (f.Modificata()) Prosegue(numDoc);
  RC_ASSERT(f.Conferma());
  const Importo prima = std::exchange(emessa->totale, totale);
  Nota("art. " + std::to_string(numDoc) + " diventa " + totale.Testo());
  const std::string& pagamento = emessa->pagamento;
  if (pagamento.empty() || pagamento == "SUBITO") {
    // What has no due dates was told when it was registered.
    Scosta(emessa->parte, totale - prima);
  } else if (intatta) {
    // Made anew: what had been out of step is in step again.
    Scosta(emessa->parte, scadenze - prima);
  } else {
    Scosta(emessa->parte, totale - prima, "impossibile eliminare/rettificare scadenze!");
  }
}

void DittaCasuale::EliminaFattura(const Mossa& mossa) {
  std::int64_t numDoc = 0;
  const Emessa* emessa = Una(mossa, numDoc);
  if (emessa == nullptr) return;
  const bool intatta = Intatta(numDoc);
  const Importo scadenze = SommaScadenze(numDoc);
  vat::RegistrazioneIva f(ambiente);
  RC_ASSERT(f.Apri(numDoc));
  dialoghi.Rispondera("Conferma eliminazione", Risposta::Si);
  Prosegue(numDoc);
  RC_ASSERT(f.Elimina());
  Nota("art. " + std::to_string(numDoc) + " eliminata");
  if (intatta) {
    Scosta(emessa->parte, scadenze - emessa->totale);
  } else {
    Scosta(emessa->parte, -emessa->totale, "impossibile eliminare/rettificare scadenze!");
  }
  emesse_.erase(numDoc);
}

// --- Payments ------------------------------------------------------------------------------------

void DittaCasuale::SceglieEDigita(duedates::PagamentiScadenzario& p, const duedates::Scadenza& s,
                                  int scelta, bool registra) {
  if (p.Scelta(s.numero)) return;
  const int come = scelta % 4;
  Importo leva = s.Residuo();
  if (come < 2) {
    RC_ASSERT(p.Scegli(s.numero, true));
  } else {
    RC_ASSERT(p.Scegli(s.numero, false));
    constexpr std::int64_t kCentesimo = Importo::kScala / 100;
    const Importo parte = Importo::DaDecimillesimi(s.Residuo().Decimillesimi() * (scelta % 130) /
                                                   100 / kCentesimo * kCentesimo);
    if (come == 2) {
      p.Riga().Scrivi("ImportoPagato", s.Residuo() - Centesimi(scelta % 100 - 50));
      p.ArrotondaDifferenza();
    } else if (parte != s.Residuo() && !parte.Zero()) {
      p.Riga().Scrivi("ImportoPagato", leva = parte);
      p.Riga().Scrivi("Saldata", false);
    }
    if (duedates::SegniContrari(p.Riga().Leggi("ImportoPagato").Importo(), s.Residuo())) {
      dialoghi.Rispondera("ha il segno contrario", Risposta::Si);
    }
    RC_ASSERT(p.ConfermaRiga());
  }
  Nota("  scad. " + std::to_string(s.numero) + " " + s.cfp + s.conto + " " + leva.Testo());
  if (!registra) Scosta({s.cfp, s.conto}, leva);
}

void DittaCasuale::Paga(const Mossa& mossa, duedates::PagamentiScadenzario::Modo modo) {
  const bool sola = modo == duedates::PagamentiScadenzario::Modo::SingolaParte;
  const Parte parte = ParteDi(mossa);
  const std::vector<duedates::Scadenza> aperte =
      Leggi((sola ? Delle(parte) : sql::Criterio("CFP", "=", parte.first)) + " and Stato<'30'");
  if (aperte.empty() || mossa.scelte.empty()) return;
  const bool registra = !sola || !Bit(mossa, 0) || !Bit(mossa, 1);
  duedates::PagamentiScadenzario p(ambiente, modo);
  RC_ASSERT(p.ScegliParte(parte.first, sola ? parte.second : ""));
  p.Testa().Scrivi("Descrizione", "pagamento");
  if (sola) p.Impostazioni().Scrivi("RegistrazioneContabilePagScad2", registra);
  RC_ASSERT(p.Nuovo());
  Nota(std::string("pagamento ") + (registra ? "" : "senza registrazione ") + parte.first);
  for (const int scelta : mossa.scelte) {
    const auto quale = static_cast<std::size_t>(scelta / 4) % aperte.size();
    SceglieEDigita(p, aperte[quale], scelta, registra);
  }
  RC_ASSERT(p.Conferma());
}

void DittaCasuale::NuovoAnticipo(const Mossa& mossa) {
  const Parte parte = ParteDi(mossa);
  const bool registra = !Bit(mossa, 0) || !Bit(mossa, 1);
  duedates::AnticipoFattura anticipo(ambiente);
  anticipo.ScegliParte(parte.first, parte.second);
  RC_ASSERT(anticipo.Nuovo());
  anticipo.Impostazioni().Scrivi("RegistrazioneContabilePagScad3", registra);
  anticipo.Dati().Scrivi("ImportoE", -ImportoDi(mossa));
  RC_ASSERT(anticipo.Conferma());
  Nota("scad. " + std::to_string(anticipo.NumeroScritto()) + " anticipo " + parte.first +
       parte.second + " " + ImportoDi(mossa).Testo() + (registra ? "" : " senza registrazione"));
  if (!registra) Scosta(parte, ImportoDi(mossa));
}

/// The payment's registration is erased, as its due dates may have been restored.
void DittaCasuale::EliminaPagamento(const Mossa& mossa) {
  std::vector<std::int64_t> numeri;
  for (Rs r = Tessarc().Recordset("select NumDoc from Articoli where CREATOINAUTOMATICO in "
                                  "(21,22,23,24) order by NumDoc");
       !r.Eof(); r.MoveNext()) {
    numeri.push_back(r.Fields("NumDoc").Intero());
  }
  if (numeri.empty()) return;
  const std::int64_t numDoc = numeri[static_cast<std::size_t>(mossa.quale) % numeri.size()];
  Dovuti tolti;
  for (Rs r = Tessarc().Recordset("select * from Movimenti where CFP<>'P' and " +
                                  sql::Criterio("NumDoc", "=", numDoc));
       !r.Eof(); r.MoveNext()) {
    const Parte parte{r.Fields("CFP").Testo(), r.Fields("Conto").Testo()};
    tolti[parte] +=
        Dovuto(parte.first, r.Fields("ImpoDare").Importo(), r.Fields("ImpoAvere").Importo());
  }
  ledger::Primanota pn(ambiente);
  RC_ASSERT(pn.Apri(numDoc));
  dialoghi.Rispondera("Attenzione all'annullamento", Risposta::Si);
  RC_ASSERT(pn.Elimina());
  Nota("art. " + std::to_string(numDoc) + " eliminato");
  for (const auto& [parte, tolto] : tolti) {
    Scosta(parte, -tolto, "registrazione creata automaticamente");
  }
}

// --- What must hold ------------------------------------------------------------------------------

void DittaCasuale::Scosta(const Parte& parte, Importo quanto, const std::string& avviso) {
  if (quanto.Zero()) return;
  attese_[parte] += quanto;
  Nota("  " + parte.first + parte.second + " si scosta di " + quanto.Testo());
  if (avviso.empty()) return;
  const auto detto = [&](const std::string& testo) {
    return testo.find(avviso) != std::string::npos;
  };
  if (std::ranges::none_of(dialoghi.messaggi, detto) &&
      std::ranges::none_of(dialoghi.domande, detto)) {
    RC_FAIL("non detto: " + avviso + Racconto());
  }
}

Dovuti DittaCasuale::Attese() const {
  Dovuti attese = attese_;
  std::erase_if(attese, [](const auto& voce) { return voce.second.Zero(); });
  return attese;
}

std::vector<duedates::Scadenza> DittaCasuale::Leggi(const std::string& condizione) {
  std::vector<duedates::Scadenza> lette;
  for (Rs r = Scadenzario().Recordset("select * from Scadenze where " + condizione +
                                      " order by Numero");
       !r.Eof(); r.MoveNext()) {
    lette.push_back(duedates::ScadenzaDi(r));
  }
  return lette;
}

std::optional<duedates::Scadenza> DittaCasuale::UnaDelle(const std::string& condizione,
                                                         const Mossa& mossa) {
  const auto trovate = Leggi(condizione);
  if (trovate.empty()) return std::nullopt;
  return trovate[static_cast<std::size_t>(mossa.quale) % trovate.size()];
}

Dovuti DittaCasuale::DelLibro() {
  Dovuti dovuti;
  for (Rs r = Tessarc().Recordset("select * from Movimenti where CFP<>'P'"); !r.Eof();
       r.MoveNext()) {
    const std::string cfp = r.Fields("CFP").Testo();
    dovuti[{cfp, r.Fields("Conto").Testo()}] +=
        Dovuto(cfp, r.Fields("ImpoDare").Importo(), r.Fields("ImpoAvere").Importo());
  }
  return dovuti;
}

Dovuti DittaCasuale::DelloScadenzario() {
  Dovuti dovuti;
  for (const duedates::Scadenza& s : Leggi("1=1")) dovuti[{s.cfp, s.conto}] += Aperto(s);
  return dovuti;
}

void DittaCasuale::ControllaRegistrazioni() {
  std::map<std::int64_t, Importo> sbilanci;
  for (Rs r = Tessarc().Recordset("select * from Movimenti"); !r.Eof(); r.MoveNext()) {
    const Importo dare = r.Fields("ImpoDare").Importo();
    const Importo avere = r.Fields("ImpoAvere").Importo();
    const std::int64_t numDoc = r.Fields("NumDoc").Intero();
    if (dare.Negativo() || avere.Negativo()) {
      RC_FAIL("importo negativo, art. " + std::to_string(numDoc) + Racconto());
    }
    sbilanci[numDoc] += dare - avere;
  }
  for (const auto& [numDoc, sbilancio] : sbilanci) {
    if (!sbilancio.Zero()) RC_FAIL("non quadra art. " + std::to_string(numDoc) + Racconto());
  }
}

void DittaCasuale::ControllaScadenze() {
  std::int64_t prima = 0;
  for (const duedates::Scadenza& s : Leggi("1=1")) {
    if (s.numero <= prima) RC_FAIL("numero doppio " + std::to_string(s.numero) + Racconto());
    prima = s.numero;
  }
}

/// The comparison names the parties that the model expects, by the balances that the rows give, and
/// no other.
void DittaCasuale::Controlla() {
  ControllaRegistrazioni();
  ControllaScadenze();
  Dovuti libro = DelLibro();
  Dovuti scadenzario = DelloScadenzario();
  Dovuti trovate;
  for (const char* cfp : {"C", "F"}) {
    for (const duedates::ParteDiscorde& p :
         duedates::ConfrontaSaldi(ambiente, {.cfp = cfp, .daCliFor = "", .aCliFor = ""})) {
      const Parte parte{p.cfp, p.cod};
      trovate[parte] += p.Differenza();
      if (p.saldoContabile != libro[parte] || p.saldoScadenze != scadenzario[parte]) {
        RC_FAIL("saldi di " + p.cfp + p.cod + " diversi dalle righe: " + p.saldoContabile.Testo() +
                " e " + p.saldoScadenze.Testo() + Racconto());
      }
    }
  }
  if (trovate == Attese()) return;
  std::string testo = "scostamenti diversi:";
  for (const auto& [parte, importo] : trovate) {
    testo += " " + parte.first + parte.second + " " + importo.Testo();
  }
  RC_FAIL(testo + Racconto());
}

}  // namespace fenalto::prova
