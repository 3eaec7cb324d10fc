#include <iterator>
#include <utility>

#include "core/sql/Criterio.h"
#include "ledger/accounts/ContiClientiFornitori.h"
#include "ledger/accounts/GeneriImporta.h"

namespace fenalto::ledger {
namespace {

using Motivi = std::vector<archives::MotivoImporta>;
using Campi = std::vector<archives::CampoImporta>;

constexpr std::size_t kLunghezzaCodice = 10;
constexpr std::size_t kLunghezzaNote = 4'000;
constexpr std::pair<int, int> kPercento{0, 100};

/// Letter of the class: "C" or "F".
std::string ClasseDi(const std::string& tabella) {
  return tabella == "Clienti" ? "C" : "F";
}

Campi Identita(const std::string& chi) {
  return {
      {.nome = "Cod",
       .didascalia = "Codice",
       .sinonimi = {"Codice " + chi, "Cod. " + chi, chi, "Id", "Numero", "Conto " + chi},
       .obbligatorio = true,
       .lunghezza = kLunghezzaCodice},
      {.nome = "ragsoc1",
       .didascalia = "Ragione sociale",
       .sinonimi = {"Rag. soc.", "Ragione sociale 1", "Denominazione", "Nome", "Nominativo",
                    "Intestazione", "Azienda", "Descrizione", "Nome azienda"},
       .obbligatorio = true},
      {.nome = "ragsoc2",
       .didascalia = "Ragione sociale (seconda riga)",
       .sinonimi = {"Ragione sociale 2", "Rag. soc. 2", "Cognome e nome"}},
      {.nome = "Pseudonimo",
       .didascalia = "Pseudonimo",
       .sinonimi = {"Nome breve", "Alias", "Sigla"}},
      {.nome = "indirizzo",
       .didascalia = "Indirizzo",
       .sinonimi = {"Via", "Indirizzo sede", "Sede"}},
      {.nome = "cap",
       .didascalia = "CAP",
       .sinonimi = {"C.A.P.", "Codice postale", "Cod. avv. postale"},
       .lunghezza = 10},
      {.nome = "localita",
       .didascalia = "Località",
       .sinonimi = {"Città", "Comune", "Citta", "Paese"}},
      {.nome = "Prov",
       .didascalia = "Provincia",
       .sinonimi = {"Pr", "Sigla provincia", "PV"},
       .lunghezza = 4},
      {.nome = "Nazione", .didascalia = "Nazione", .sinonimi = {"Stato", "Codice nazione"}},
      {.nome = "telefono1",
       .didascalia = "Telefono",
       .sinonimi = {"Tel", "Telefono 1", "Tel. 1", "N. telefono"}},
      {.nome = "telefono2",
       .didascalia = "Telefono 2",
       .sinonimi = {"Tel. 2", "Cellulare", "Cell", "Mobile"}},
      {.nome = "Fax", .didascalia = "Fax", .sinonimi = {"Telefax"}},
      {.nome = "EMail",
       .didascalia = "E-mail",
       .sinonimi = {"Mail", "Posta elettronica", "Indirizzo e-mail", "PEC"},
       .lunghezza = 120},
      {.nome = "Internet",
       .didascalia = "Sito internet",
       .sinonimi = {"Sito", "Sito web", "Web", "Www"},
       .lunghezza = 120},
      {.nome = "piva",
       .didascalia = "Partita IVA",
       .sinonimi = {"P.IVA", "P. Iva", "Part. IVA", "Partita I.V.A.", "VAT"},
       .lunghezza = 16},
      {.nome = "CodFisc",
       .didascalia = "Codice fiscale",
       .sinonimi = {"C.F.", "Cod. fiscale", "Cod. Fisc.", "C. fiscale"},
       .lunghezza = 16},
  };
}

Campi Contabili() {
  return {
      {.nome = "Conto",
       .didascalia = "Conto riepilogativo",
       .sinonimi = {"Riepilogativo", "Conto contabile", "Mastrino", "Conto pdc"},
       .riferimento = "Conti"},
      {.nome = "ContropFatture",
       .didascalia = "Contropartita fatture",
       .sinonimi = {"Contropartita", "Conto costi", "Conto ricavi"},
       .riferimento = "Conti"},
      {.nome = "CodIva",
       .didascalia = "Codice IVA",
       .sinonimi = {"Cod. IVA", "Aliquota IVA", "IVA"},
       .riferimento = "CodiciIva"},
      {.nome = "Pagamento",
       .didascalia = "Codice pagamento",
       .sinonimi = {"Cod. pagamento", "Condizioni di pagamento", "Modalità di pagamento"},
       .riferimento = "Pagamento"},
      {.nome = "Categoria", .didascalia = "Categoria", .riferimento = "Categorie"},
      {.nome = "Banca", .didascalia = "Banca", .sinonimi = {"Banca d'appoggio", "Istituto"}},
      {.nome = "Agenzia", .didascalia = "Agenzia", .sinonimi = {"Filiale", "Sportello"}},
      {.nome = "CinInt", .didascalia = "Stato e CIN internazionale", .lunghezza = 4},
      {.nome = "Cin", .didascalia = "CIN", .lunghezza = 1},
      {.nome = "Abi", .didascalia = "ABI", .sinonimi = {"Codice ABI"}, .lunghezza = 5},
      {.nome = "CAB", .didascalia = "CAB", .sinonimi = {"Codice CAB"}, .lunghezza = 5},
      {.nome = "ContoBanca",
       .didascalia = "Conto corrente",
       .sinonimi = {"C/C", "Numero conto", "Conto bancario"},
       .lunghezza = 12},
      {.nome = "Bic", .didascalia = "BIC", .sinonimi = {"Swift", "Bic/Swift"}, .lunghezza = 11},
      {.nome = "Elenco", .didascalia = "Va negli elenchi", .sinonimi = {"Elenchi"}},
      {.nome = "Privacy", .didascalia = "Privacy", .sinonimi = {"Consenso privacy"}},
      {.nome = "Note",
       .didascalia = "Note",
       .sinonimi = {"Annotazioni", "Osservazioni"},
       .lunghezza = kLunghezzaNote},
  };
}

Campi SoloClienti() {
  return {
      {.nome = "EsenzioneIva",
       .didascalia = "Esenzione IVA",
       .sinonimi = {"Cod. esenzione"},
       .riferimento = "CodiciIva"},
      {.nome = "Fido", .didascalia = "Fido", .sinonimi = {"Limite di credito", "Fido concesso"}},
      {.nome = "Agente",
       .didascalia = "Agente",
       .sinonimi = {"Cod. agente", "Rappresentante"},
       .riferimento = "Agenti"},
      {.nome = "Vettore",
       .didascalia = "Vettore",
       .sinonimi = {"Corriere", "Cod. vettore"},
       .riferimento = "Vettori"},
      {.nome = "Sc1", .didascalia = "Sconto 1", .sinonimi = {"Sconto"}, .limiti = kPercento},
      {.nome = "Sc2", .didascalia = "Sconto 2", .limiti = kPercento},
      {.nome = "Sc3", .didascalia = "Sconto 3", .limiti = kPercento},
      {.nome = "Prezzi123",
       .didascalia = "Prezzo (0-5)",
       .sinonimi = {"Numero listino", "Prezzo", "Fascia prezzo"},
       .limiti = std::pair{0, 5}},
      {.nome = "listino",
       .didascalia = "Listino proprio",
       .sinonimi = {"Codice listino", "Listino"},
       .riferimento = "Listini"},
      {.nome = "ConsumatoreFin", .didascalia = "Consumatore finale", .sinonimi = {"Privato"}},
  };
}

Campi SoloFornitori() {
  return {
      {.nome = "DataNascita", .didascalia = "Data di nascita", .sinonimi = {"Nato il"}},
      {.nome = "LuogoNascita",
       .didascalia = "Luogo di nascita",
       .sinonimi = {"Nato a", "Comune di nascita"}},
  };
}

/// The summary account: given or, for a new party, the first one of its class in the chart.
Motivi ControllaRiepilogativo(archives::ContestoImporta& contesto, archives::RigaImporta& riga,
                              const std::string& classe) {
  if (riga.nuova && riga.Testo("Conto").empty()) {
    riga.Scrivi("Conto", contesto.Proposto("Conti", "CFP", classe));
  }
  if (!riga.nuova && !riga.Ha("Conto")) return {};
  const std::string conto = riga.Testo("Conto");
  if (conto.empty()) return {{"Conto", "manca conto riepilogativo"}};
  if (contesto.Campo("Conti", conto, "CFP") != Valore(classe)) {
    return {{"Conto", "il conto " + conto + " non è un riepilogativo di classe " + classe}};
  }
  return {};
}

/// A customer has the prices of the products or a list of its own; a new one starts with price 1.
Motivi ControllaPrezzi(archives::ContestoImporta& contesto, archives::RigaImporta& riga) {
  if (riga.nuova && !riga.Ha("Prezzi123") && riga.Testo("listino").empty()) {
    riga.Scrivi("Prezzi123", 1);
  }
  const std::string codice = riga.Testo("Cod");
  const auto resta = [&](const char* campo) {
    return riga.Ha(campo) || riga.nuova ? riga.Leggi(campo)
                                        : contesto.Campo("Clienti", codice, campo);
  };
  if (resta("Prezzi123").Intero() != 0 && !resta("listino").Testo().empty()) {
    return {{riga.Ha("listino") ? "listino" : "Prezzi123",
             "Bisongna inserire il Prezzo1,2,3 oppure il Listino, non entrambi"}};
  }
  return {};
}

void TieneElencoParti(Ambiente& ambiente, const archives::RigaImporta& riga) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const Rs parte = tessarc.Recordset("select Cod, ragsoc1, ragsoc2 from " + riga.tabella +
                                     " where " + sql::Criterio("Cod", "=", riga.Leggi("Cod")));
  AggiungiVoce(tessarc, {parte.Fields("Cod").Testo(), ClasseDi(riga.tabella),
                         parte.Fields("ragsoc1").Testo(), parte.Fields("ragsoc2").Testo()});
}

}  // namespace

archives::GenereImporta GenereParti(const std::string& tabella) {
  const bool clienti = tabella == "Clienti";
  archives::GenereImporta parti;
  parti.nome = tabella;
  parti.titolo = clienti ? "clienti" : "fornitori";
  parti.tabelle = {tabella};
  parti.campi = Identita(clienti ? "Cliente" : "Fornitore");
  for (auto&& altri : {Contabili(), clienti ? SoloClienti() : SoloFornitori()}) {
    parti.campi.insert(parti.campi.end(), altri.begin(), altri.end());
  }
  parti.controlla = [clienti](archives::ContestoImporta& contesto, archives::RigaImporta& riga) {
    Motivi motivi = ControllaRiepilogativo(contesto, riga, ClasseDi(riga.tabella));
    if (clienti) {
      auto prezzi = ControllaPrezzi(contesto, riga);
      motivi.insert(motivi.end(), std::make_move_iterator(prezzi.begin()),
                    std::make_move_iterator(prezzi.end()));
    }
    return motivi;
  };
  parti.conScrittura = TieneElencoParti;
  return parti;
}

}  // namespace fenalto::ledger
