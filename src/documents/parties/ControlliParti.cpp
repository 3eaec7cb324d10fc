// Rules of customers and suppliers: what a field that was left brings with it, what stops a
// confirmation.
#include <algorithm>
#include <string_view>

#include "core/archives/Riferimenti.h"
#include "core/session/AvvisoIdFiscale.h"
#include "core/sql/Criterio.h"
#include "core/values/ControlloCodiceFiscale.h"
#include "core/values/ControlloPartitaIva.h"
#include "core/values/IdFiscale.h"
#include "core/values/Testo.h"
#include "documents/parties/CodiceParte.h"
#include "documents/parties/PartiInterno.h"
#include "duedates/codes/DescrizioneCodice.h"
#include "duedates/codes/Rate.h"

namespace fenalto::documents {
namespace {

std::string Rifilato(const Scheda& scheda, const char* campo) {
  return std::string(Rifila(scheda.Testo(campo)));
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

void AvvisaCodFisc(archives::ContestoArchivio& contesto) {
  const Scheda& scheda = contesto.scheda;
  const std::string_view errore = ControlloCodiceFiscale(scheda.Testo("CodFisc"));
  if (errore.empty() || Estero(scheda.Testo("CodFisc")) || Estero(scheda.Testo("piva"))) return;
  contesto.ambiente.Dialogo().Messaggio(
      "CODICE FISCALE ERRATO\n" + std::string(errore) + ": controllare, oppure proseguire",
      Icona::Avviso);
}

constexpr const char* kPivaAmmessa = "PivaAmmessa";  ///< one wanted though it's taken

/// True when no other party of the class has that VAT number, or the user wants it all the same.
bool AmmettePiva(archives::ContestoArchivio& contesto, const Parte& parte) {
  Scheda& scheda = contesto.scheda;
  const std::string piva = Rifilato(scheda, "piva");
  if (piva.empty() || UgualeTesto(piva, contesto.memoria[kPivaAmmessa]) ||
      (!contesto.nuovo && UgualeTesto(piva, Rifilato(contesto.prima, "piva")))) {
    return true;
  }
  std::string sql = "SELECT Min(Cod) FROM ";
  sql.append(parte.tabella).append(" WHERE ").append(sql::Criterio("piva", "=", piva));
  if (!contesto.nuovo) sql += " AND " + sql::Criterio("Cod", "<>", contesto.codicePrima);
  const Valore altra = contesto.ambiente.ArchivioDi("tessarc").Singolo(sql);
  if (altra.Nullo()) return true;
  if (!contesto.ambiente.Dialogo().Conferma("partita iva già esistente su cod " + altra.Testo() +
                                            "\nproseguo ugualmente")) {
    return false;
  }
  contesto.memoria[kPivaAmmessa] = piva;
  return true;
}

/// A number as it is copied from a letter or a site, "123 456 789 03" or "12.345.678.903", without
/// what parts its digits and, before an Italian number, without "IT". Anything else stays as it was
/// typed, as long as there is room for it: another state's number may need it. What nothing parts
/// was typed as it stands.
std::string SenzaSeparatori(const std::string& numero) {
  std::string stretto;
  for (std::string_view resto = numero; !resto.empty(); resto.remove_prefix(1)) {
    resto = Rifila(resto);
    if (!resto.empty() && resto.front() != '.') stretto += resto.front();
    if (resto.empty()) break;
  }
  if (stretto == numero) return numero;
  if (stretto.size() == 2 + kCifrePartitaIva && UgualeTesto(stretto.substr(0, 2), "IT") &&
      UndiciCifreValide(std::string_view(stretto).substr(2))) {
    return stretto.substr(2);
  }
  const bool cifre = stretto.size() == kCifrePartitaIva &&
                     stretto.find_first_not_of("0123456789") == std::string::npos;
  const bool lungo = LunghezzaTesto(Rifila(numero)) > kCaratteriFiscale;
  return cifre || lungo || IdFiscaleValido(stretto) ? stretto : numero;
}

void PivaLasciata(archives::ContestoArchivio& contesto, const Parte& parte) {
  const std::string piva = SenzaSeparatori(contesto.scheda.Testo("piva"));
  if (Rifila(piva).empty()) return;
  contesto.scheda.Scrivi("piva", piva);
  ControlloPartitaIva(contesto.ambiente.Dialogo(), piva, true);
  // Stored with blanks behind, it would be no other's number.
  contesto.scheda.Scrivi("piva", Rifilato(contesto.scheda, "piva"));
  if (AmmettePiva(contesto, parte)) return;
  contesto.scheda.Scrivi("piva", "");
  contesto.foco = "piva";
}

// --- The predefined destination ------------------------------------------------------------------

bool DellaPredefinita(const std::string& campo) {
  return std::any_of(kCampiPredefinita.begin(), kCampiPredefinita.end(),
                     [&](const char* uno) { return UgualeTesto(uno, campo); });
}

/// A customer has one predefined destination or a list of them.
void PredefinitaLasciata(archives::ContestoArchivio& contesto,
                         const DestinazioniCliente& destinazioni, const std::string& campo) {
  if (Rifila(contesto.scheda.Testo(campo)).empty() ||
      (destinazioni.Righe().empty() && !destinazioni.InRiga())) {
    return;
  }
  contesto.ambiente.Dialogo().Messaggio(
      "per inserire la 'destinazione merce predefinita' bisogna che elenco destinazioni sia vuoto",
      Icona::Avviso);
  contesto.scheda.Scrivi(campo, "");
  contesto.foco = campo;
}

// --- Checks of a confirmation --------------------------------------------------------------------

std::optional<Rifiuto> FuoriSerie(archives::ContestoArchivio& contesto, const Parte& parte) {
  if (!contesto.CodiceCambiato() || CodiceDiSerie(contesto.Codice()) ||
      !CodificaAutomatica(contesto.ambiente)) {
    return std::nullopt;
  }
  const std::string domanda =
      std::string(
          "è stato impostato un codice alfanumerico, oppure un codice numerico non di 4 "
          "caratteri:\nil programma non potrà più codificare automaticamente i prossimi ") +
      parte.plurale + " inseriti, bisognerà inserire manualmente il codice\nproseguo";
  if (contesto.ambiente.Dialogo().Conferma(domanda)) return std::nullopt;
  return Rifiuto{"", "Cod"};
}

/// The summary account was emptied on a party that the books know.
bool RiepilogativoTolto(archives::ContestoArchivio& contesto, const Parte& parte) {
  return Rifilato(contesto.scheda, "Conto").empty() && !contesto.prima.Testo("Conto").empty() &&
         archives::CodiceUsato(contesto.ambiente, parte.tabella, contesto.codicePrima);
}

std::optional<Rifiuto> MancaConto(archives::ContestoArchivio& contesto, const Parte& parte) {
  if (!Rifilato(contesto.scheda, "Conto").empty() || RiepilogativoTolto(contesto, parte)) {
    return std::nullopt;
  }
  return Rifiuto{"manca conto riepilogativo", "Conto"};
}

std::optional<Rifiuto> ContoDiAltraClasse(archives::ContestoArchivio& contesto,
                                          const Parte& parte) {
  const std::string conto = Rifilato(contesto.scheda, "Conto");
  if (conto.empty()) return std::nullopt;
  const Valore classe = contesto.ambiente.Cerca("tessarc", "Conti", {{"Cod", conto}}, "CFP");
  if (UgualeTesto(classe.Testo(), parte.classe)) return std::nullopt;
  return Rifiuto{"il conto " + conto + " non è un riepilogativo di classe " + parte.classe,
                 "Conto"};
}

std::optional<Rifiuto> Prezzi(archives::ContestoArchivio& contesto) {
  constexpr std::int64_t kPrezzi = 5;
  const std::int64_t prezzo = contesto.scheda.Leggi("Prezzi123").Intero();
  if (prezzo < 0 || prezzo > kPrezzi) {
    return Rifiuto{"prezzo dell'archivio prodotti: valore ammesso da 0 a 5", "Prezzi123"};
  }
  if (prezzo == 0 || Rifilato(contesto.scheda, "listino").empty()) return std::nullopt;
  return Rifiuto{"Bisongna inserire il Prezzo1,2,3 oppure il Listino, non entrambi", "Prezzi123"};
}

std::optional<Rifiuto> RiepilogativoCancellato(archives::ContestoArchivio& contesto,
                                               const Parte& parte) {
  if (!RiepilogativoTolto(contesto, parte)) return std::nullopt;
  contesto.scheda.Scrivi("Conto", contesto.prima.Testo("Conto"));
  return Rifiuto{"il conto riepilogativo non si può cancellare esistono registrazioni", "Conto"};
}

/// Longer than its column though nothing parts its digits; one that is stored so can stay.
std::optional<Rifiuto> PivaLunga(archives::ContestoArchivio& contesto, const Parte& /*parte*/) {
  const std::string piva = Rifilato(contesto.scheda, "piva");
  if (LunghezzaTesto(piva) <= kCaratteriFiscale || piva == Rifilato(contesto.prima, "piva")) {
    return std::nullopt;
  }
  return Rifiuto{"partita IVA: " + piva + " ha " + std::to_string(LunghezzaTesto(piva)) +
                     " caratteri, al massimo sono " + std::to_string(kCaratteriFiscale),
                 "piva"};
}

/// Asked here too: a copied record comes with a number that nobody typed.
std::optional<Rifiuto> PivaDiAltri(archives::ContestoArchivio& contesto, const Parte& parte) {
  if (AmmettePiva(contesto, parte)) return std::nullopt;
  return Rifiuto{"", "piva"};
}

using Regola = std::optional<Rifiuto> (*)(archives::ContestoArchivio&, const Parte&);

archives::DescrizioneArchivio::Controllo Di(const Parte& parte, Regola regola) {
  return [&parte, regola](archives::ContestoArchivio& contesto) { return regola(contesto, parte); };
}

}  // namespace

void MostraPagamento(archives::ContestoArchivio& contesto) {
  const auto codice =
      duedates::LeggiCodicePagamento(contesto.ambiente, Rifilato(contesto.scheda, "Pagamento"));
  contesto.scheda.Scrivi(kInfoPagamento,
                         codice ? duedates::InformazioneCodice(*codice) : std::string());
}

void ParteLasciata(archives::ContestoArchivio& contesto, const Parte& parte,
                   const DestinazioniCliente* destinazioni, const std::string& campo) {
  if (UgualeTesto(campo, "piva")) return PivaLasciata(contesto, parte);
  if (UgualeTesto(campo, "CodFisc")) return AvvisaCodFisc(contesto);
  if (UgualeTesto(campo, "Pagamento")) return MostraPagamento(contesto);
  if (destinazioni != nullptr && DellaPredefinita(campo)) {
    PredefinitaLasciata(contesto, *destinazioni, campo);
  }
}

std::vector<archives::DescrizioneArchivio::Controllo> ControlliParte(const Parte& parte) {
  std::vector<archives::DescrizioneArchivio::Controllo> controlli = {Di(parte, FuoriSerie),
                                                                     Di(parte, MancaConto)};
  if (parte.Clienti()) controlli.emplace_back(Prezzi);
  controlli.push_back(Di(parte, ContoDiAltraClasse));
  return controlli;
}

std::vector<archives::DescrizioneArchivio::Controllo> ControlliParteDopoCodice(const Parte& parte) {
  return {Di(parte, RiepilogativoCancellato), Di(parte, PivaLunga), Di(parte, PivaDiAltri)};
}

}  // namespace fenalto::documents
