#include "documents/ArchiviParti.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/archives/Importazione.h"
#include "core/archives/Riferimenti.h"
#include "core/sql/Criterio.h"
#include "core/values/ControlloCodiceFiscale.h"
#include "core/values/ControlloPartitaIva.h"
#include "core/values/Testo.h"
#include "ledger/ContiClientiFornitori.h"

namespace fenalto {
namespace {

/// Greatest length of a party's code: the place it has on lists and in the bank's files.
constexpr int kCaratteriCodice = 10;

// Extra fields that no control shows.
constexpr const char* kContoPrima = "ContoPrima";     ///< summary account as stored
constexpr const char* kPivaPrima = "PivaPrima";       ///< VAT number as stored
constexpr const char* kPivaAmmessa = "PivaAmmessa";   ///< one the user wants though it's taken
constexpr const char* kVocePersa = "VoceNonTrovata";  ///< code that the list hadn't, to be told

/// What makes customers different from suppliers.
struct Parte {
  const char* tabella;
  const char* classe;  ///< in registrations, and of the summary accounts
  const char* titolo;
  const char* titoloNuovo;
  const char* titoloRecord;
};
constexpr Parte kClienti = {"Clienti", "C", "Archivio Clienti", "nuovo cliente", "cliente "};
constexpr Parte kFornitori = {"Fornitori", "F", "Archivio Fornitori", "nuovo fornitore",
                              "fornitore "};

std::string Rifilato(const Scheda& scheda, const char* campo) {
  return std::string(Rifila(scheda.Testo(campo)));
}

// --- Opening -------------------------------------------------------------------------------------

/// A new party is proposed the first summary account of its class.
void Aperta(ContestoArchivio& contesto, const Parte& parte) {
  Scheda& scheda = contesto.scheda;
  if (contesto.nuovo && scheda.Testo("Conto").empty()) {
    scheda.Scrivi("Conto", contesto.ambiente.ArchivioDi("tessarc")
                               .Singolo("SELECT Min(Cod) FROM Conti WHERE " +
                                        Criterio("CFP", "=", parte.classe))
                               .Testo());
  }
  scheda.Scrivi(kContoPrima, contesto.nuovo ? "" : scheda.Testo("Conto"));
  scheda.Scrivi(kPivaPrima, contesto.nuovo ? "" : scheda.Testo("piva"));
  scheda.Scrivi(kPivaAmmessa, "");
  scheda.Scrivi(kVocePersa, "");
}

// --- Tax numbers ---------------------------------------------------------------------------------

/// Begins with the letters of another state; sixteen characters are a person's Italian tax code.
bool Estero(std::string_view numero) {
  constexpr std::size_t kPersona = 16;
  const auto lettera = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  const std::string_view resto = Rifila(numero);
  return resto.size() > 2 && resto.size() != kPersona && lettera(resto[0]) && lettera(resto[1]) &&
         !UgualeTesto(resto.substr(0, 2), "IT");
}

/// Told, and the number stays.
void AvvisaPiva(ContestoArchivio& contesto) {
  const std::string piva = contesto.scheda.Testo("piva");
  const std::string_view errore = ControlloPartitaIva(piva);
  // A person may be known by the tax code alone.
  if (errore.empty() || ControlloCodiceFiscale(piva).empty()) return;
  contesto.ambiente.Dialogo().Messaggio(
      "PARTITA IVA ERRATA\n(oppure potrebbe trattarsi di codice fiscale o p.iva estera)\n" +
          std::string(errore),
      Icona::Avviso);
}

void AvvisaCodFisc(ContestoArchivio& contesto) {
  const Scheda& scheda = contesto.scheda;
  const std::string_view errore = ControlloCodiceFiscale(scheda.Testo("CodFisc"));
  if (errore.empty() || Estero(scheda.Testo("CodFisc")) || Estero(scheda.Testo("piva"))) return;
  contesto.ambiente.Dialogo().Messaggio(
      "CODICE FISCALE ERRATO\n" + std::string(errore) + ": controllare, oppure proseguire",
      Icona::Avviso);
}

/// True when no other party of the class has that VAT number, or the user wants it all the same.
bool AmmettePiva(ContestoArchivio& contesto, const Parte& parte) {
  Scheda& scheda = contesto.scheda;
  const std::string piva = Rifilato(scheda, "piva");
  if (piva.empty() || UgualeTesto(piva, scheda.Testo(kPivaAmmessa)) ||
      (!contesto.nuovo && UgualeTesto(piva, Rifilato(scheda, kPivaPrima)))) {
    return true;
  }
  std::string sql = "SELECT Min(Cod) FROM ";
  sql.append(parte.tabella).append(" WHERE ").append(Criterio("piva", "=", piva));
  if (!contesto.nuovo) sql += " AND " + Criterio("Cod", "<>", contesto.codicePrima);
  const Valore altra = contesto.ambiente.ArchivioDi("tessarc").Singolo(sql);
  if (altra.Nullo()) return true;
  if (!contesto.ambiente.Dialogo().Conferma("partita iva già esistente su cod " + altra.Testo() +
                                            "\nproseguo ugualmente")) {
    return false;
  }
  scheda.Scrivi(kPivaAmmessa, piva);
  return true;
}

void Lasciata(ContestoArchivio& contesto, const Parte& parte, const std::string& campo) {
  if (UgualeTesto(campo, "CodFisc")) return AvvisaCodFisc(contesto);
  if (!UgualeTesto(campo, "piva")) return;
  AvvisaPiva(contesto);
  if (!AmmettePiva(contesto, parte)) contesto.scheda.Scrivi("piva", "");
}

// --- Checks of a confirmation --------------------------------------------------------------------

std::optional<Rifiuto> MancaConto(ContestoArchivio& contesto, const Parte& parte) {
  Scheda& scheda = contesto.scheda;
  if (!Rifilato(scheda, "Conto").empty()) return std::nullopt;
  const std::string prima = scheda.Testo(kContoPrima);
  if (!prima.empty() && CodiceUsato(contesto.ambiente, parte.tabella, contesto.codicePrima)) {
    scheda.Scrivi("Conto", prima);
    return Rifiuto{"il conto riepilogativo non si può cancellare esistono registrazioni", "Conto"};
  }
  return Rifiuto{"manca conto riepilogativo", "Conto"};
}

std::optional<Rifiuto> ContoDiAltraClasse(ContestoArchivio& contesto, const Parte& parte) {
  const std::string conto = Rifilato(contesto.scheda, "Conto");
  const Valore classe = contesto.ambiente.Cerca("tessarc", "Conti", {{"Cod", conto}}, "CFP");
  if (UgualeTesto(classe.Testo(), parte.classe)) return std::nullopt;
  return Rifiuto{"il conto " + conto + " non è un riepilogativo di classe " + parte.classe,
                 "Conto"};
}

/// Asked here too: a copied record comes with a number that nobody typed.
std::optional<Rifiuto> PivaDiAltri(ContestoArchivio& contesto, const Parte& parte) {
  if (AmmettePiva(contesto, parte)) return std::nullopt;
  return Rifiuto{"", "piva"};
}

// --- The list that movements search --------------------------------------------------------------

void ScriviVoce(ContestoArchivio& contesto, const Parte& parte) {
  Scheda& scheda = contesto.scheda;
  Archivio& tessarc = contesto.ambiente.ArchivioDi("tessarc");
  const VoceContiClientiFornitori prima{contesto.codicePrima, parte.classe};
  const VoceContiClientiFornitori ora{contesto.Codice(), parte.classe, scheda.Testo("ragsoc1"),
                                      scheda.Testo("ragsoc2")};
  bool trovata = true;
  if (!contesto.nuovo && !contesto.CodiceCambiato()) {
    trovata = CambiaVoce(tessarc, ora);
  } else {
    if (!contesto.nuovo) trovata = TogliVoce(tessarc, prima);
    AggiungiVoce(tessarc, ora);
  }
  scheda.Scrivi(kVocePersa, trovata ? "" : contesto.codicePrima);
}

void DiVocePersa(ContestoArchivio& contesto) {
  const std::string codice = contesto.scheda.Testo(kVocePersa);
  if (codice.empty()) return;
  contesto.ambiente.Dialogo().Messaggio(VoceNonTrovata(codice), Icona::Avviso);
}

void TogliVoceDiParte(ContestoArchivio& contesto, const Parte& parte) {
  TogliVoce(contesto.ambiente.ArchivioDi("tessarc"), {contesto.codicePrima, parte.classe});
}

// --- The description -----------------------------------------------------------------------------

std::vector<CampoArchivio> Anagrafica() {
  return {{.nome = "ragsoc1", .didascalia = "Ragione sociale", .caratteri = 50},
          {.nome = "ragsoc2", .didascalia = "(seconda riga)", .caratteri = 50},
          {.nome = "indirizzo", .didascalia = "Indirizzo", .caratteri = 50},
          {.nome = "cap", .didascalia = "CAP", .caratteri = 10},
          {.nome = "localita", .didascalia = "Località", .caratteri = 50, .elenco = true},
          {.nome = "Prov",
           .didascalia = "Provincia",
           .caratteri = 4,
           .elenco = true,
           .maiuscole = true},
          {.nome = "telefono1", .didascalia = "Telefono", .caratteri = 30, .elenco = true},
          {.nome = "EMail", .didascalia = "E-mail", .caratteri = 120},
          {.nome = "piva",
           .didascalia = "Partita IVA",
           .caratteri = 16,
           .elenco = true,
           .maiuscole = true},
          {.nome = "CodFisc", .didascalia = "Codice fiscale", .caratteri = 16, .maiuscole = true}};
}

/// How invoices are accounted.
std::vector<CampoArchivio> Contabili(const Parte& parte) {
  const auto codice = [](const char* nome, const char* didascalia, const char* tabella,
                         const char* archivio, std::string filtro = "") {
    return CampoArchivio{
        .nome = nome,
        .didascalia = didascalia,
        .genere = GenereCampo::Codice,
        .fonte = {.fonte = tabella, .archivio = archivio, .filtro = std::move(filtro)},
        .riquadro = "Contabilita"};
  };
  return {
      codice("Conto", "Conto riepilogativo", "Conti", "CONTI", Criterio("CFP", "=", parte.classe)),
      codice("ContropFatture", "Contropartita fatture", "Conti", "CONTI", "CFP='P'"),
      codice("CodIva", "Codice IVA", "CodiciIva", "CODICIIVA"),
      codice("Pagamento", "Pagamento", "Pagamento", "CODICIPAGAMENTO"),
      codice("Categoria", "Categoria", "Categorie", "CATEGORIE"),
      {.nome = "Ep", .didascalia = "Sospensione IVA", .riquadro = "Contabilita"}};
}

std::vector<std::string> MostraMovimenti(ContestoArchivio& contesto, const Parte& parte) {
  if (contesto.nuovo) return {std::string(parte.titoloRecord) + "non ancora registrato"};
  if (contesto.apri) {
    contesto.apri("MovimentiConto", std::string(parte.classe) + "|" + contesto.codicePrima);
  }
  return {};
}

DescrizioneArchivio ArchivioParte(const Parte& parte) {
  DescrizioneArchivio archivio;
  archivio.finestra = parte.tabella;
  archivio.titolo = parte.titolo;
  archivio.tabella = parte.tabella;
  archivio.campoDescrizione = "ragsoc1";
  archivio.titoloNuovo = parte.titoloNuovo;
  archivio.titoloRecord = parte.titoloRecord;
  archivio.caratteriCodice = kCaratteriCodice;
  archivio.campiExtra = {{kContoPrima, Tipo::Testo},
                         {kPivaPrima, Tipo::Testo},
                         {kPivaAmmessa, Tipo::Testo},
                         {kVocePersa, Tipo::Testo}};
  archivio.campi = Anagrafica();
  archivio.riquadri = {{"Contabilita", "Contabilità"}};
  for (CampoArchivio& campo : Contabili(parte)) archivio.campi.push_back(std::move(campo));
  archivio.pulsanti = {{"movimenti", "Movimenti", true,
                        [&parte](ContestoArchivio& c) { return MostraMovimenti(c, parte); }},
                       PulsanteImporta(parte.tabella)};

  archivio.aperto = [&parte](ContestoArchivio& c) { Aperta(c, parte); };
  archivio.lasciato = [&parte](ContestoArchivio& c, const std::string& campo) {
    Lasciata(c, parte, campo);
  };
  archivio.controlli = {[&parte](ContestoArchivio& c) { return MancaConto(c, parte); },
                        [&parte](ContestoArchivio& c) { return ContoDiAltraClasse(c, parte); },
                        [&parte](ContestoArchivio& c) { return PivaDiAltri(c, parte); }};
  archivio.conScrittura = [&parte](ContestoArchivio& c) { ScriviVoce(c, parte); };
  archivio.conEliminazione = [&parte](ContestoArchivio& c) { TogliVoceDiParte(c, parte); };
  archivio.dopoConferma = DiVocePersa;
  return archivio;
}

}  // namespace

std::vector<DescrizioneArchivio> ArchiviParti() {
  return {ArchivioParte(kClienti), ArchivioParte(kFornitori)};
}

}  // namespace fenalto
