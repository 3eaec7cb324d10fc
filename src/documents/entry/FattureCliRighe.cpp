// The open row: its checks, its confirmation and deletion, and what the rows come to.
#include <algorithm>

#include "core/session/ImpostazioneAttiva.h"
#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"
#include "documents/entry/FattureCliInterno.h"

namespace fenalto::documents {

// --- Totals --------------------------------------------------------------------------------------

FattureCli::Interno::Aliquota FattureCli::Interno::AliquotaDi(const std::string& codIva) {
  const auto nota = aliquote.find(codIva);
  if (nota != aliquote.end()) return nota->second;
  const Rs letta = tessarc.Recordset("select Perc, PercInd from CodiciIva where " +
                                     sql::Criterio("Cod", "=", codIva));
  Aliquota sua;
  if (!letta.Eof()) sua = {letta.Fields(0).Importo(), letta.Fields(1).Importo()};
  aliquote.emplace(codIva, sua);
  return sua;
}

FattureCli::Interno::Somme FattureCli::Interno::Somma(const std::vector<RigaDocumento>& date) {
  Somme fatte;
  std::vector<GruppoIva> gruppi;
  for (const RigaDocumento& una : date) {
    fatte.vivi.totRighe += una.importo;
    fatte.vivi.totQuantita += una.quantita;
    fatte.costi += una.costo.Per(una.quantita);
    if (una.importo.Zero()) continue;
    const auto suo = std::ranges::find_if(
        gruppi, [&](const GruppoIva& gruppo) { return UgualeTesto(gruppo.codIva, una.codIva); });
    if (suo == gruppi.end()) {
      gruppi.push_back({una.codIva, una.importo, AliquotaDi(una.codIva).perc});
    } else {
      suo->importo += una.importo;
    }
  }
  const TotaliDocumento totali =
      documents::CalcolaTotali(gruppi, {tipo.prezziIvati, I("ScontoCassa"), regola.euro});
  fatte.netto = totali.totImponibile;
  if (DaFatturare() && !DiFornitori()) {
    fatte.vivi.totImponibile = totali.totImponibile;
    fatte.vivi.totIva = totali.totIva;
    fatte.vivi.totFat = totali.totFat;
  } else {
    fatte.vivi.totImponibile = fatte.vivi.totRighe;
  }
  return fatte;
}

TotaliVivi FattureCli::Totali() const {
  return interno_->somme.vivi;
}

std::optional<Importo> FattureCli::Margine() const {
  const Interno& io = *interno_;
  if (!io.documento.Aperto() || !io.Livello() || !io.DiClienti()) return std::nullopt;
  return io.somme.netto - io.somme.costi;
}

std::optional<Importo> FattureCli::MarginePerc() const {
  const auto margine = Margine();
  if (!margine || interno_->somme.netto.Zero()) return std::nullopt;
  return margine->Per(Importo::DaUnita(100)).Diviso(interno_->somme.netto);
}

// --- The open row --------------------------------------------------------------------------------

const std::vector<RigaDocumento>& FattureCli::Righe() const {
  return interno_->righe.Tutte();
}

bool FattureCli::RigaNuova() const {
  return interno_->righe.RigaNuova();
}

Scheda& FattureCli::Riga() {
  return interno_->riga;
}

RigaDocumento FattureCli::Interno::RigaVuota(std::int64_t posi) {
  RigaDocumento nuova;
  nuova.posi = posi;
  nuova.codIva = tipo.codIva;
  nuova.conto = tipo.conto;
  if (DiClienti() && !T("Agente").empty()) {
    nuova.prov = Nz(ambiente.Cerca("tessarc", "Agenti", {{"Cod", T("Agente")}}, "Provv")).Importo();
  }
  return nuova;
}

void FattureCli::Interno::ApriNuova(const RigaDocumento& proposta) {
  righe.Nuova(proposta);
  codiceVisto = proposta.codiceRiga;
  quantitaVista = proposta.quantita;
  prezzoVisto = proposta.prezzo;
  provenienza.clear();
}

bool FattureCli::PNuovaRiga() {
  Interno& io = *interno_;
  if (StatoCorrente() != Stato::Aperta || io.documento.RifiutaSolaLettura()) return false;
  io.Dimentica();
  io.ApriNuova(io.RigaVuota(io.righe.ProssimaPosi(kPassoPosi)));
  return true;
}

bool FattureCli::ApriRiga(std::size_t indice) {
  Interno& io = *interno_;
  if (StatoCorrente() != Stato::Aperta || !io.righe.Apri(indice)) return false;
  io.Dimentica();
  io.codiceVisto = io.riga.Testo("CodiceRiga");
  io.quantitaVista = io.riga.Leggi("Quantita").Importo();
  io.prezzoVisto = io.riga.Leggi("Prezzo").Importo();
  io.provenienza.clear();
  return true;
}

void FattureCli::AnnullaRiga() {
  interno_->righe.Annulla();
  interno_->Segna();
}

std::string FattureCli::NotaRiga() const {
  const Interno& io = *interno_;
  if (!io.righe.InRiga()) return {};
  if (!io.provenienza.empty()) {
    return "il Prezzo e gli altri dati della riga provengono da: " + io.provenienza;
  }
  if (io.righe.RigaNuova()) return "nuova riga";
  const RigaDocumento& aperta = *io.righe.Aperta();
  if (aperta.ordine == 0 || !aperta.ordineSaldato) return {};
  return "questa riga ha scaricato un ordine: se si variano codice,q.tà, ed altri dati potrebbe "
         "essere necessario rettificare anche l'ordine";
}

std::optional<AccantoRiga> FattureCli::Accanto() const {
  Interno& io = *interno_;
  if (!io.righe.InRiga()) return std::nullopt;
  const RigaDocumento una = io.righe.Digitata();
  if (una.codiceRiga.empty()) return std::nullopt;
  const std::string quale = SenzaMaiuscole(una.codiceRiga) + "|" + io.T("Mag");
  if (!io.accanto || io.accanto->first != quale) {
    AccantoRiga letto;
    letto.esistenza =
        warehouse::CalcoloEsistenza(io.ambiente, una.codiceRiga, {.mag = io.T("Mag")});
    letto.costi = io.CostiDi(una.codiceRiga);
    io.accanto.emplace(quale, letto);
  }
  AccantoRiga visto = io.accanto->second;
  if (io.Livello() && io.DiClienti()) io.CalcolaMargine(una, visto);
  return visto;
}

void FattureCli::Interno::CalcolaMargine(const RigaDocumento& una, AccantoRiga& visto) {
  try {
    const Importo netto = tipo.prezziIvati
                              ? ScorporaImponibile(una.importo, AliquotaDi(una.codIva).perc)
                              : una.importo;
    const Importo margine = netto - una.costo.Per(una.quantita);
    if (!netto.Zero()) visto.marginePerc = margine.Per(Importo::DaUnita(100)).Diviso(netto);
    visto.margine = margine;
  } catch (const FuoriCampo&) {
    // Figures that can't be confirmed have no margin.
    visto.marginePerc.reset();
  }
}

// --- Checks --------------------------------------------------------------------------------------

Importo FattureCli::Interno::EsistenzaSenza(const std::string& prodotto) {
  const std::string mag = T("Mag");
  Importo esistenza = warehouse::CalcoloEsistenza(ambiente, prodotto, {.mag = mag}).esistenza;
  const auto scritta = quantitaRecord.find(SenzaMaiuscole(prodotto));
  if (scritta == quantitaRecord.end()) return esistenza;
  const bool stesso = mag.empty() || UgualeTesto(magRecord, mag);
  if (stesso && csRecord == "S") esistenza += scritta->second;
  return esistenza;
}

Importo FattureCli::Interno::EsistenzaDopo(const std::string& prodotto, Importo digitata,
                                           const RigaDocumento* sostituita) {
  Importo resta = EsistenzaSenza(prodotto) - digitata;
  for (const RigaDocumento& una : righe.Tutte()) {
    if (&una != sostituita && UgualeTesto(una.codiceRiga, prodotto)) resta -= una.quantita;
  }
  return resta;
}

void FattureCli::Interno::AvvisaEsistenza(const RigaDocumento& una) {
  if (!Scarico() || una.codiceRiga.empty() || !ImpostazioneAttiva(ambiente, "EsistenzaNegativa")) {
    return;
  }
  const Importo resta = EsistenzaDopo(una.codiceRiga, una.quantita, righe.Aperta());
  if (resta.Negativo()) Avviso("Esistenza " + ScriviImporto(resta, 0) + " negativa");
}

std::optional<Rifiuto> FattureCli::Interno::ControllaLotto(RigaDocumento& una) {
  const RigaDocumento* aperta = righe.Aperta();
  if (!una.lotto.empty()) {
    if (Carico() && una.dtScad.Nulla() && ImpostazioneAttiva(ambiente, "LottoDtScad")) {
      return Rifiuto{
          "impostare data scadenza lotto\n(per non gestire la data scadenza > modifica "
          "impostazioni ditta)",
          "DtScad"};
    }
    const bool stesso = aperta != nullptr && UgualeTesto(aperta->lotto, una.lotto) &&
                        UgualeTesto(aperta->codiceRiga, una.codiceRiga);
    const bool caricato =
        Carico() && !stesso &&
        ambiente.Esiste("tessarc", kRigheDocumenti,
                        {{"CodiceRiga", una.codiceRiga}, {"Lotto", una.lotto}, {"CS", "C"}});
    if (caricato && !ambiente.Dialogo().Conferma("Lotto già caricato\nproseguo ugualmente")) {
      return Rifiuto{"", "Lottox"};
    }
  }
  if (aperta != nullptr && aperta->memorizzata && !aperta->lotto.empty() && una.lotto.empty()) {
    riga.Scrivi("Lottox", aperta->lotto);
    return Rifiuto{"il lotto non si può eliminare", "Lottox"};
  }
  if (!una.lotto.empty() && una.codiceRiga.empty()) {
    return Rifiuto{"è necessario un codice prodotto se si indica il lotto", "CodiceRiga"};
  }
  return std::nullopt;
}

std::optional<Rifiuto> FattureCli::Interno::ControllaRiga(const RigaDocumento& una) {
  const bool quantita = !una.quantita.Zero();
  if (!EsistenzaIniziale() && !una.prezzo.Zero() && !quantita) {
    return Rifiuto{"se si imposta il Prezzo bisogna anche impostare la Quantita", "Quantita"};
  }
  if (!T("Riva").empty() && quantita && una.conto.empty()) return Rifiuto{"manca conto", "Conto"};
  if (tipo.Fatturazione() && quantita && una.codIva.empty()) {
    return Rifiuto{"manca codice iva", "CodIva"};
  }
  const bool indetraibile = !una.codIva.empty() && !AliquotaDi(una.codIva).percInd.Zero();
  if (indetraibile) {
    return Rifiuto{"non si possono utilizzare codici iva con iva indetraibile", "CodIva"};
  }
  if (righe.PosiOccupata(una.posi)) return Rifiuto{"posizione già esistente", "Posi"};
  return ControllaCodiciRiga(una);
}

bool FattureCli::Interno::Esiste(const char* fonte, const std::string& codice) {
  const std::string quale = fonte + ("|" + SenzaMaiuscole(codice));
  if (noti.contains(quale)) return true;
  if (archives::CodiceIgnoto(ambiente, {"", "", fonte}, codice)) return false;
  noti.insert(quale);
  return true;
}

std::optional<Rifiuto> FattureCli::Interno::ControllaCodiciRiga(const RigaDocumento& una) {
  const bool vuota = una.codiceRiga.empty() && una.descrizione.empty() && una.quantita.Zero() &&
                     una.prezzo.Zero() && una.importo.Zero();
  if (vuota)
    return Rifiuto{"la riga è vuota: scrivere un prodotto o una descrizione", "CodiceRiga"};
  struct Codice {
    const char* campo;
    const char* didascalia;
    const char* fonte;
    const std::string& codice;
    const std::string* prima;
  };
  const RigaDocumento* aperta = righe.Aperta();
  const auto codici = std::to_array<Codice>(
      {{"CodiceRiga", "Prodotto", "prodotti", una.codiceRiga,
        aperta != nullptr ? &aperta->codiceRiga : nullptr},
       {"CodIva", "Codice iva", "codiciIva", una.codIva,
        aperta != nullptr ? &aperta->codIva : nullptr},
       {"Conto", "Conto", "conti", una.conto, aperta != nullptr ? &aperta->conto : nullptr}});
  for (const Codice& c : codici) {
    // What a stored row names stays, even without its record.
    if (c.prima != nullptr && UgualeTesto(*c.prima, c.codice)) continue;
    if (Rifila(c.codice).empty() || Esiste(c.fonte, c.codice)) continue;
    return archives::CodiceIgnoto(ambiente, {c.campo, c.didascalia, c.fonte}, c.codice);
  }
  for (const auto& [campo, sconto] :
       {std::pair("Sc1", una.sc1), std::pair("Sc2", una.sc2), std::pair("Sc3", una.sc3)}) {
    if (sconto > kTutto) return Rifiuto{"lo sconto non può superare il 100 per cento", campo};
  }
  // What is sold, or will be invoiced, needs both: neither is guessed.
  if (!DiClienti() || !(DaFatturare() || tipo.Scontrino()) || una.quantita.Zero()) {
    return std::nullopt;
  }
  if (una.conto.empty()) return Rifiuto{"manca conto", "Conto"};
  if (una.codIva.empty()) return Rifiuto{"manca codice iva", "CodIva"};
  return std::nullopt;
}

std::optional<Rifiuto> FattureCli::Interno::CompletaRiga(RigaDocumento& una) {
  try {
    una.importo = ImportoDi(una, regola);
  } catch (const FuoriCampo& e) {
    return Rifiuto{std::string("riga ") + std::to_string(una.posi) + ": " + e.what(), "Quantita"};
  }
  if (!DiFornitori()) return std::nullopt;
  if (una.quantitaA.Zero()) una.quantitaA = una.quantita;
  if (una.prezzoA.Zero()) una.prezzoA = una.prezzo;
  return std::nullopt;
}

void FattureCli::Interno::Accetta(std::vector<RigaDocumento> nuove) {
  const Somme nuova = Somma(nuove);
  righe.Sostituisci(std::move(nuove));
  somme = nuova;
  provenienza.clear();
}

bool FattureCli::ConfermaRiga(std::string* campo) {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || io.documento.RifiutaSolaLettura()) return false;
  if (!UgualeTesto(io.riga.Testo("CodiceRiga"), io.codiceVisto)) io.ProdottoLasciato();
  RigaDocumento una = io.righe.Digitata();
  if (una.posi <= 0) una.posi = io.righe.ProssimaPosi(kPassoPosi);
  try {
    io.AvvisaEsistenza(una);
    if (io.documento.Rifiuta(io.ControllaLotto(una), campo) ||
        io.documento.Rifiuta(io.ControllaRiga(una), campo) ||
        io.documento.Rifiuta(io.CompletaRiga(una), campo)) {
      return false;
    }
    io.Accetta(io.righe.Con(std::move(una)));
  } catch (const FuoriCampo& e) {
    io.documento.Rifiuta(Rifiuto{e.what(), "Quantita"}, campo);
    return false;
  }
  io.Segna();
  return true;
}

// --- Deletion ------------------------------------------------------------------------------------

bool FattureCli::EliminaRiga() {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || io.documento.RifiutaSolaLettura()) return false;
  if (io.righe.RigaNuova()) {
    io.righe.Annulla();
    io.Segna();
    return true;
  }
  const RigaDocumento& aperta = *io.righe.Aperta();
  const auto legato = [&](const char* vista, const char* campo) {
    return aperta.nl1 != 0 && io.ambiente.Esiste("tessarc", vista, {{campo, aperta.nl1}});
  };
  if (legato("ZRigheDaLotto", "NL2")) {
    io.Avviso("non si può eliminare: esistono scarichi correlati al lotto");
    return false;
  }
  if (legato("ZRigheComponenti", "NL3")) {
    io.Avviso("non si può eliminare: esistono movimenti di scarico componenti correlati al lotto");
    return false;
  }
  if (aperta.nl3 != 0) io.Avviso(kAvvisoComponenti);
  if (!io.ambiente.Dialogo().Conferma("Conferma eliminazione RIGA ?")) return false;
  io.Accetta(io.righe.Senza());
  io.Segna();
  return true;
}

}  // namespace fenalto::documents
