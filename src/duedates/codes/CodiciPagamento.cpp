#include "duedates/codes/CodiciPagamento.h"

#include <utility>

#include "duedates/codes/DescrizioneCodice.h"

namespace fenalto::duedates {

namespace {

using Controllo = archives::DescrizioneArchivio::Controllo;

constexpr const char* kVecchiaForma = "VecchiaForma";
constexpr int kNumeroScMassimo = 10;

std::string Descrizione(Ambiente& ambiente, const char* tabella, const std::string& codice) {
  return ambiente.Cerca("tessarc", tabella, {{"Cod", codice}}, "Descrizione").Testo();
}

bool Nuova(const archives::ContestoArchivio& contesto) {
  return contesto.scheda.Leggi("NuovaCodifica").Booleano();
}

/// Asked; no stops the confirmation on the record as it is.
std::optional<Rifiuto> ChiedeConferma(archives::ContestoArchivio& contesto,
                                      const std::string& testo) {
  if (contesto.ambiente.Dialogo().Conferma(testo)) return std::nullopt;
  return Rifiuto{"", "PNuovaRiga"};
}

Controllo SenzaRate(std::shared_ptr<RateCodice> rate) {
  return [rate = std::move(rate)](archives::ContestoArchivio& contesto) -> std::optional<Rifiuto> {
    if (!Nuova(contesto) || !rate->Righe().empty()) return std::nullopt;
    return ChiedeConferma(
        contesto,
        "Non è stata impostata nessuna rata di pagamento\n"
        "il programma non creerà automaticamente le scadenze\nproseguo ugualmente");
  };
}

Controllo Percentuali(std::shared_ptr<RateCodice> rate) {
  return [rate = std::move(rate)](archives::ContestoArchivio& contesto) -> std::optional<Rifiuto> {
    if (!Nuova(contesto) || rate->Righe().empty() ||
        rate->SommaPercentuali() == Importo::DaUnita(100))
      return std::nullopt;
    return ChiedeConferma(contesto,
                          "la percentuale delle rate non è uguale a 100:\n"
                          "la differenza per arrivare al 100% verrà conteggiata sull'ultima rata\n"
                          "proseguo ugualmente");
  };
}

std::optional<Rifiuto> MancaDescrizione(archives::ContestoArchivio& contesto) {
  if (!contesto.scheda.Testo("Descrizione").empty()) return std::nullopt;
  return Rifiuto{"manca descrizione", "Descrizione"};
}

/// What an account and a causal do is told; nothing is refused, even where only one of the two is
/// there.
Controllo PagamentoAutomatico(std::shared_ptr<RateCodice> rate) {
  return [rate = std::move(rate)](archives::ContestoArchivio& contesto) -> std::optional<Rifiuto> {
    const std::string conto = contesto.scheda.Testo("Conto");
    const std::string causale = contesto.scheda.Testo("Causale");
    if (conto.empty() && causale.empty()) return std::nullopt;
    Dialoghi& dialogo = contesto.ambiente.Dialogo();
    dialogo.Annuncia(
        "il programma crea automaticamente la registrazione del pagamento quando si inseriscono "
        "le fatture");
    if (!rate->Righe().empty())
      dialogo.Messaggio(
          "Se si impostano 'conto' e 'causale' per 'registrazione automatica pagamento' non "
          "bisogna impostare le rate",
          Icona::Avviso);
    std::string riepilogo =
        "registrando le fatture crea automaticamente\nla registrazione contabile del pagamento\n"
        "conto " +
        conto + " " + Descrizione(contesto.ambiente, "Conti", conto) + "\ncausale " + causale +
        " " + Descrizione(contesto.ambiente, "Causali", causale);
    const bool incompleto = conto.empty() || causale.empty();
    if (incompleto)
      riepilogo += std::string("\nATTENZIONE: manca ") +
                   (conto.empty() ? "il conto" : "la causale") +
                   ", finché non si imposta la registrazione NON viene creata";
    incompleto ? dialogo.Messaggio(riepilogo) : dialogo.Annuncia(riepilogo);
    return std::nullopt;
  };
}

std::optional<Rifiuto> NumeroScadenze(archives::ContestoArchivio& contesto) {
  const std::int64_t numero = contesto.scheda.Leggi("NumeroSc").Intero();
  if (Nuova(contesto) || (numero >= 0 && numero <= kNumeroScMassimo)) return std::nullopt;
  return Rifiuto{"numero scad: valore ammesso da 0 a 10", "NumeroSc"};
}

/// A day that no month has would move nothing.
std::optional<Rifiuto> GiorniSpostati(archives::ContestoArchivio& contesto) {
  for (const char* campo : {"ggSpost", "ggSpost2"}) {
    const std::int64_t giorno = contesto.scheda.Leggi(campo).Intero();
    if (giorno < 0 || giorno > 31)
      return Rifiuto{"giorno a cui spostare le scadenze: valore ammesso da 0 a 31", campo};
  }
  return std::nullopt;
}

void CreaDescrizione(archives::ContestoArchivio& contesto, const RateCodice& rate) {
  const auto testo = ComponiDescrizione(rate.Codice(contesto.scheda), [&](const std::string& tipo) {
    return Descrizione(contesto.ambiente, "tipipagamento", tipo);
  });
  if (testo)
    contesto.scheda.Scrivi("Descrizione", testo.Valore());
  else
    contesto.ambiente.Dialogo().Messaggio(testo.Errore().messaggio, Icona::Avviso);
}

std::vector<records::CampoForma> Finestra(const std::string& numero) {
  const std::string riquadro = "Spostamento" + numero;
  const auto campo = [&](const char* nome, const char* didascalia) {
    return records::CampoForma{
        .nome = nome + numero, .didascalia = didascalia, .caratteri = 2, .riquadro = riquadro};
  };
  return {campo("DaGG", "dal giorno"), campo("DaMM", "del mese"), campo("AaGG", "al giorno"),
          campo("AaMM", "del mese"), campo("ggSpost", "al giorno ... del mese dopo")};
}

std::vector<records::CampoForma> Campi() {
  constexpr int kDescrizione = 255;  // built from ten rates it takes this room
  std::vector<records::CampoForma> campi = {
      {.nome = "Descrizione", .didascalia = "Descrizione", .caratteri = kDescrizione},
      {.nome = "DescrizioneEstesa", .didascalia = "Descrizione estesa", .caratteri = kDescrizione},
      {.nome = "AggiornaScad", .didascalia = "crea le scadenze nello scadenzario", .elenco = true},
      {.nome = "NuovaCodifica", .didascalia = "scadenze secondo le rate"},
      {.nome = "NumeroSc",
       .didascalia = "Numero scadenze",
       .caratteri = 2,
       .riquadro = kVecchiaForma},
      {.nome = "PrimaSc",
       .didascalia = "Mesi alla prima",
       .caratteri = 2,
       .riquadro = kVecchiaForma},
      {.nome = "GiornoSc",
       .didascalia = "Giorno fisso",
       .caratteri = 2,
       .nota = "0 nessuno, 31 fine mese",
       .riquadro = kVecchiaForma},
      {.nome = "Mese", .didascalia = "Mese da saltare", .caratteri = 2, .riquadro = kVecchiaForma},
      {.nome = "Tipo",
       .didascalia = "Tipo",
       .caratteri = 2,
       .genere = records::GenereCampo::Codice,
       .fonte = "tipiPagamento",
       .riquadro = kVecchiaForma},
      {.nome = "Conto",
       .didascalia = "Conto",
       .genere = records::GenereCampo::Codice,
       .fonte = "contiTutti",
       .elenco = true,
       .riquadro = "RegistrazionePagamento"},
      {.nome = "Causale",
       .didascalia = "Causale",
       .genere = records::GenereCampo::Codice,
       .fonte = "causaliTutte",
       .riquadro = "RegistrazionePagamento"},
      {.nome = "CodPagIva",
       .didascalia = "Pagamento iva",
       .genere = records::GenereCampo::Codice,
       .fonte = "pagamenti",
       .nota = "Importo iva pagato separatamente (p.es quando si anticipa il pagamento dell'iva)"}};
  for (const char* numero : {"", "2"}) {
    for (records::CampoForma& campo : Finestra(numero)) campi.push_back(std::move(campo));
  }
  return campi;
}

/// The program's own list of leap years ends the month of February before it ends.
bool FebbraioTagliato(const CodicePagamento& codice, std::size_t indice, Data data) {
  if (data.Mese() != 2 || data.Giorno() != 28 || !Bisestile(data.Anno())) return false;
  return codice.nuovaCodifica ? codice.rate[indice].fineMese : codice.giornoSc > 28;
}

}  // namespace

archives::DescrizioneArchivio DescrizioneCodiciPagamento(const std::shared_ptr<RateCodice>& rate) {
  archives::DescrizioneArchivio codici;
  codici.finestra = "CodiciPagamento";
  codici.titolo = "Archivio Codici pagamento";
  codici.tabella = "Pagamento";
  codici.titoloNuovo = "nuovo codice pagamento";
  codici.titoloRecord = "codice pagamento ";
  codici.portaCodice = true;
  codici.campi = Campi();
  codici.riquadri = {{kVecchiaForma, "Scadenze senza rate"},
                     {"RegistrazionePagamento", "Registrazione automatica pagamento"},
                     {"Spostamento", "Scadenze spostate al mese successivo"},
                     {"Spostamento2", "Secondo periodo spostato"}};
  codici.pulsanti = {{"CreaDescrizione", "Componi descrizione", true,
                      [rate](archives::ContestoArchivio& contesto) {
                        CreaDescrizione(contesto, *rate);
                        return std::vector<std::string>();
                      }}};
  codici.aperto = [rate](archives::ContestoArchivio& contesto) {
    if (contesto.copia) {
      rate->Copiate();
      return;
    }
    rate->Leggi(contesto.codicePrima);
    if (!contesto.nuovo) return;
    contesto.scheda.Scrivi("NuovaCodifica", true);
    contesto.scheda.Scrivi("AggiornaScad", true);
  };
  codici.stato = [](const archives::ContestoArchivio& contesto, const std::string& nome) {
    return records::StatoCampo{.visibile = nome != kVecchiaForma || !Nuova(contesto)};
  };
  codici.controlli = {SenzaRate(rate),           Percentuali(rate), MancaDescrizione,
                      PagamentoAutomatico(rate), NumeroScadenze,    GiorniSpostati};
  codici.conScrittura = [rate](archives::ContestoArchivio& contesto) {
    rate->Scrivi(contesto.codicePrima, contesto.Codice());
  };
  codici.conEliminazione = [rate](archives::ContestoArchivio& contesto) {
    rate->Elimina(contesto.codicePrima);
  };
  codici.dopoConferma = [](archives::ContestoArchivio& contesto) {
    if (contesto.scheda.Leggi("AggiornaScad").Booleano()) return;
    contesto.ambiente.Dialogo().Messaggio(
        "questo codice pagamento NON aggiorna automaticamente lo scadenzario", Icona::Avviso);
  };
  return codici;
}

EsitoProva ProvaCodice(Ambiente& ambiente, const CodicePagamento& codice, Data data,
                       Importo importo) {
  EsitoProva esito;
  RateCalcolate rate = CalcolaRate(codice, data, importo, ambiente.Euro(), ambiente.Ora().Oggi());
  esito.avvisi = std::move(rate.avvisi);
  if (rate.forma.empty()) {
    esito.avvisi.emplace_back(codice.aggiornaScad
                                  ? "il codice non ha rate: non crea scadenze"
                                  : "il codice non aggiorna lo scadenzario: non crea scadenze");
    return esito;
  }
  for (std::size_t i = 0; i < kRateMassime; ++i) {
    if (rate.importi[i].Zero()) continue;
    RigaProva riga{rate.date[i], rate.importi[i], rate.tipi[i], ""};
    if (FebbraioTagliato(codice, i, riga.data))
      riga.nota = "febbraio " + std::to_string(riga.data.Anno()) +
                  " ha 29 giorni: la scadenza di fine mese cade il 28";
    esito.righe.push_back(std::move(riga));
  }
  return esito;
}

}  // namespace fenalto::duedates
