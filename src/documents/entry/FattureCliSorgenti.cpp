// Rows that aren't typed: the one way in for sources of rows, and scanners.
#include <algorithm>

#include "core/session/ImpostazioneAttiva.h"
#include "core/values/FormatoImporto.h"
#include "documents/entry/FattureCliInterno.h"

namespace fenalto::documents {
namespace {

constexpr Importo kUno = Importo::DaDecimillesimi(Importo::kScala);

Errore RigaRifiutata(std::size_t quale, const std::string& codice, const std::string& perche) {
  return {"riga " + std::to_string(quale) + " (" + codice + "): " + perche};
}

template <class T>
void Prendi(T& membro, const std::optional<T>& dato) {
  if (dato) membro = *dato;
}

}  // namespace

void FattureCli::Interno::Sovrascrivi(RigaDocumento& una, const ValoriRiga& valori) const {
  Prendi(una.descrizione, valori.descrizione);
  Prendi(una.um, valori.um);
  Prendi(una.quantita, valori.quantita);
  Prendi(una.prezzo, valori.prezzo);
  Prendi(una.sc1, valori.sc1);
  Prendi(una.sc2, valori.sc2);
  Prendi(una.sc3, valori.sc3);
  Prendi(una.prov, valori.prov);
  una.ordine = valori.ordine;
  una.posiOrdine = valori.posiOrdine;
  una.ordineSaldato = valori.ordineSaldato;
  una.commessa = valori.commessa;
  una.posiCommessa = valori.posiCommessa;
  una.nl2 = valori.nl2;
  una.quantitaA = una.quantita;
  una.prezzoA = una.prezzo;
}

RigaDocumento FattureCli::Interno::RigaDaValori(const ValoriRiga& valori, std::int64_t posi,
                                                Proposta& proposta) {
  RigaDocumento una = RigaVuota(posi);
  una.codiceRiga = valori.codiceRiga;
  if (!una.codiceRiga.empty()) {
    if (const auto trovato = warehouse::TrovaProdotto(ambiente, una.codiceRiga)) {
      una.codiceRiga = *trovato;
    }
    Proponi(una, proposta);
  }
  Sovrascrivi(una, valori);
  return una;
}

bool FattureCli::Interno::CediRiga() {
  if (!righe.InRiga()) return true;
  const RigaDocumento una = righe.Digitata();
  const bool soloCodice = righe.RigaNuova() && una.quantita.Zero() && una.prezzo.Zero() &&
                          (una.codiceRiga.empty() ? una.descrizione.empty() : true);
  if (!soloCodice) return !documento.RifiutaRiga(true);
  righe.Annulla();
  return true;
}

bool FattureCli::RigaDa(const ValoriRiga& valori) {
  Interno& io = *interno_;
  if (!io.documento.Aperto() || io.documento.RifiutaSolaLettura() || !io.CediRiga()) return false;
  io.Dimentica();
  Interno::Proposta proposta;
  RigaDocumento una = io.RigaDaValori(valori, io.righe.ProssimaPosi(kPassoPosi), proposta);
  for (const std::string& avviso : proposta.avvisi) io.Avviso(avviso);
  if (proposta.haDistinta && !valori.prezzo) io.ChiediDistinta(una);
  io.ApriNuova(una);
  io.provenienza = valori.provenienza;
  io.CalcolaImportoRiga("");
  io.Segna();
  return true;
}

void FattureCli::Interno::AvvisaEsistenze(const std::vector<RigaDocumento>& aggiunte) {
  if (!Scarico() || !ImpostazioneAttiva(ambiente, "EsistenzaNegativa")) return;
  std::map<std::string, std::pair<std::string, Importo>> quantita;
  for (const RigaDocumento& una : aggiunte) {
    if (una.codiceRiga.empty()) continue;
    auto& [codice, sua] = quantita[SenzaMaiuscole(una.codiceRiga)];
    codice = una.codiceRiga;
    sua += una.quantita;
  }
  for (const RigaDocumento& una : righe.Tutte()) {
    const auto trovata = quantita.find(SenzaMaiuscole(una.codiceRiga));
    if (trovata != quantita.end()) trovata->second.second += una.quantita;
  }
  std::string testo;
  for (const auto& [chiave, voce] : quantita) {
    const Importo resta = EsistenzaSenza(voce.first) - voce.second;
    if (!resta.Negativo()) continue;
    testo.append(testo.empty() ? "" : "\n")
        .append(voce.first)
        .append(": Esistenza ")
        .append(ScriviImporto(resta, 0))
        .append(" negativa");
  }
  if (!testo.empty()) Avviso(testo);
}

std::optional<Errore> FattureCli::RigheDa(const std::vector<ValoriRiga>& date) {
  Interno& io = *interno_;
  if (!io.documento.Aperto()) return Errore{"aprire prima un documento"};
  if (io.documento.SolaLettura()) return Errore{io.documento.Motivo()};
  if (io.righe.InRiga()) return Errore{"confermare o annullare prima la riga"};
  io.Dimentica();
  Interno::Proposta proposta;
  std::vector<RigaDocumento> nuove;
  nuove.reserve(date.size());
  std::int64_t posi = io.righe.ProssimaPosi(0);
  for (const ValoriRiga& valori : date) {
    posi += kPassoPosi;
    RigaDocumento una = io.RigaDaValori(valori, posi, proposta);
    auto rifiuto = io.ControllaRiga(una);
    if (!rifiuto) rifiuto = io.CompletaRiga(una);
    if (rifiuto) {
      return RigaRifiutata(nuove.size() + 1, valori.codiceRiga, rifiuto->messaggio);
    }
    nuove.push_back(std::move(una));
  }
  std::vector<RigaDocumento> tutte = io.righe.Tutte();
  tutte.insert(tutte.end(), nuove.begin(), nuove.end());
  try {
    io.AvvisaEsistenze(nuove);
    io.Accetta(std::move(tutte));
  } catch (const FuoriCampo& e) {
    return Errore{e.what()};
  }
  std::string avvisi;
  for (const std::string& avviso : proposta.avvisi) {
    avvisi.append(avvisi.empty() ? "" : "\n").append(avviso);
  }
  if (!avvisi.empty()) io.Avviso(avvisi);
  io.Segna();
  return std::nullopt;
}

bool FattureCli::Letto(const std::string& codice, bool veloce) {
  Interno& io = *interno_;
  if (!io.documento.Aperto() || io.documento.RifiutaSolaLettura()) return false;
  const auto prodotto = warehouse::TrovaProdotto(io.ambiente, std::string(Rifila(codice)));
  if (!prodotto) {
    io.Avviso("nessun prodotto con codice o codice a barre «" + std::string(Rifila(codice)) + "»");
    return false;
  }
  if (!io.CediRiga()) return false;
  if (!veloce) return RigaDa({.codiceRiga = *prodotto, .quantita = kUno});
  const auto sua = std::ranges::find_if(io.righe.Tutte(), [&](const RigaDocumento& una) {
    return UgualeTesto(una.codiceRiga, *prodotto) && una.nl2 == 0 && una.lotto.empty();
  });
  if (sua == io.righe.Tutte().end()) {
    return RigaDa({.codiceRiga = *prodotto, .quantita = kUno}) && ConfermaRiga();
  }
  io.righe.Apri(static_cast<std::size_t>(std::distance(io.righe.Tutte().begin(), sua)));
  io.codiceVisto = io.riga.Testo("CodiceRiga");
  io.quantitaVista = io.riga.Leggi("Quantita").Importo();
  io.prezzoVisto = io.riga.Leggi("Prezzo").Importo();
  io.riga.Scrivi("Quantita", io.quantitaVista + kUno);
  io.CalcolaImportoRiga("Quantita");
  return ConfermaRiga();
}

}  // namespace fenalto::documents
