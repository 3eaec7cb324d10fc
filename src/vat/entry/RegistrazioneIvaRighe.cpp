// The taxable rows of a VAT registration.
#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/Testo.h"
#include "vat/entry/RegistrazioneIvaInterno.h"
#include "vat/postings/DatiIva.h"

namespace fenalto::vat {

namespace {

std::vector<RigaIva> SenzaProposte(std::vector<RigaIva> righe,
                                   const std::set<std::int64_t>& proposte) {
  std::erase_if(righe, [&](const RigaIva& r) { return proposte.contains(r.posi); });
  return righe;
}

}  // namespace

// --- Amounts -------------------------------------------------------------------------------------

std::pair<Importo, Importo> RegistrazioneIva::Interno::DividiIva(Importo iva,
                                                                 const std::string& codIva) const {
  // Who receives the invoice owes the whole of it; what can be deducted is told by the register of
  // type "05".
  if (Tipo({"04"})) return {iva, Importo()};
  const Importo percInd =
      ambiente.Cerca("tessarc", "CodiciIva", {{"Cod", codIva}}, "PercInd").Importo();
  const Importo indetraibile = IvaIndetraibile(iva, percInd, ambiente.Euro());
  return {iva - indetraibile, indetraibile};
}

std::pair<Importo, Importo> RegistrazioneIva::Interno::IvaPrevista(
    Importo imponibile, const std::string& codIva) const {
  const Importo perc = ambiente.Cerca("tessarc", "CodiciIva", {{"Cod", codIva}}, "Perc").Importo();
  return DividiIva(CalcolaIva(imponibile, perc, ambiente.Euro()), codIva);
}

void RegistrazioneIva::Interno::CalcolaIvaRiga() {
  const bool daCalcolare = riga.Leggi("Iva").Importo().Zero() &&
                           riga.Leggi("IvaInd").Importo().Zero() && !riga.Testo("CodIva").empty();
  if (!daCalcolare || tipo->ivaFacoltativa) return;
  const auto [iva, indetraibile] =
      IvaPrevista(riga.Leggi("Imponibile").Importo(), riga.Testo("CodIva"));
  riga.Scrivi("Iva", iva);
  riga.Scrivi("IvaInd", indetraibile);
}

DocumentoIva RegistrazioneIva::Interno::Documento(std::int64_t numDoc) const {
  DocumentoIva fatto = DocumentoDiRegistro(ambiente, registro.cod);
  fatto.anno = anno;
  fatto.numDoc = numDoc;
  fatto.conto = T("Contox");
  fatto.descrizione = T("Descrizionex");
  return fatto;
}

RigheComplete RegistrazioneIva::Interno::Complete(const std::vector<RigaIva>& compilate) const {
  auto complete = CreaRigheIvaCli(Documento(numeroRecord), compilate);
  return complete ? std::move(complete).Valore() : RigheComplete{};
}

std::vector<RigaIva> RegistrazioneIva::Interno::RigheCompilate() const {
  return SenzaProposte(righe.Tutte(), proposte);
}

Importo RegistrazioneIva::TotImponibile() const {
  return interno_->totali.imponibile;
}

Importo RegistrazioneIva::TotIva() const {
  return interno_->totali.iva;
}

Importo RegistrazioneIva::TotIvaInd() const {
  return interno_->totali.ivaInd;
}

Importo RegistrazioneIva::TotFat() const {
  return interno_->totali.Totale();
}

std::optional<Importo> RegistrazioneIva::DifferenzaVerifica() const {
  const Importo digitato = interno_->I("TotaleXVerifica");
  if (!VerificaTotale()) return std::nullopt;
  return digitato - TotFat();
}

std::vector<RigaIva> RegistrazioneIva::RigheContabili() const {
  if (!interno_->Aperta() || interno_->RigheCompilate().empty()) return {};
  return interno_->totali.righe;
}

// --- The open row
// ----------------------------------------------------------------------------------

const std::vector<RigaIva>& RegistrazioneIva::Righe() const {
  return interno_->righe.Tutte();
}

bool RegistrazioneIva::RigaNuova() const {
  return interno_->righe.RigaNuova();
}

Scheda& RegistrazioneIva::Riga() {
  return interno_->riga;
}

bool RegistrazioneIva::PNuovaRiga() {
  Interno& io = *interno_;
  if (StatoCorrente() != Stato::Aperta || io.documento.RifiutaSolaLettura()) return false;
  RigaIva nuova;
  nuova.posi = io.righe.ProssimaPosi(1);
  nuova.descrizione = io.T("Descrizionex");
  if (io.tipo->corrispettivi) {
    nuova.conto = io.registro.contoRicavi;
    nuova.codIva = io.Tipo({"07"}) ? std::string(kCodiceVentilazione) : io.registro.codIva;
  } else {
    nuova.conto = NzStr(io.DellaParte("ContropFatture"));
    nuova.codIva = NzStr(io.DellaParte("CodIva"));
    nuova.categoria = NzStr(io.DellaParte("Categoria"));
  }
  io.righe.Nuova(nuova);
  return true;
}

bool RegistrazioneIva::ApriRiga(std::size_t indice) {
  return StatoCorrente() == Stato::Aperta && interno_->righe.Apri(indice);
}

void RegistrazioneIva::AnnullaRiga() {
  interno_->righe.Annulla();
  interno_->Segna();
}

void RegistrazioneIva::RigaLasciata(std::string_view campo) {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || SolaLettura()) return;
  const bool codice = UgualeTesto(campo, "CodIva") && !io.riga.Leggi("Imponibile").Importo().Zero();
  if (UgualeTesto(campo, "Imponibile") || codice) io.CalcolaIvaRiga();
  io.Segna();
}

void RegistrazioneIva::PulisciImporti() {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || io.documento.RifiutaSolaLettura() || io.tipo->ivaFacoltativa) return;
  const std::string codIva = io.riga.Testo("CodIva");
  if (codIva.empty()) {
    io.Avviso("manca codice iva");
    return;
  }
  const Importo lordo = io.riga.Leggi("Totale").Importo();
  const Importo perc =
      io.ambiente.Cerca("tessarc", "CodiciIva", {{"Cod", codIva}}, "Perc").Importo();
  const Importo imponibile = ScorporaImponibile(lordo, perc);
  const auto [iva, indetraibile] = io.DividiIva(lordo - imponibile, codIva);
  io.riga.Scrivi("Imponibile", imponibile);
  io.riga.Scrivi("Iva", iva);
  io.riga.Scrivi("IvaInd", indetraibile);
  io.Segna();
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaRiga() {
  const std::string codIva = riga.Testo("CodIva");
  const std::string conto = riga.Testo("Conto");
  if (codIva.empty()) return Rifiuto{"manca codice iva", "CodIva"};
  if (conto.empty()) return Rifiuto{"manca conto", "Conto"};
  if (!ambiente.Esiste("tessarc", "CodiciIva", {{"Cod", codIva}})) {
    return Rifiuto{"il codice iva " + codIva + " non esiste", "CodIva"};
  }
  if (!EsisteConto(conto)) {
    return Rifiuto{"il conto " + conto + " non esiste nel piano dei conti", "Conto"};
  }
  const bool ventilazione = UgualeTesto(codIva, kCodiceVentilazione);
  if (Tipo({"07"}) && !ventilazione) {
    return Rifiuto{"sui corrispettivi da ventilare si deve usare il codice iva 'ZCOR'", "CodIva"};
  }
  if (!Tipo({"07"}) && ventilazione) {
    return Rifiuto{"il codice iva 'ZCOR' è riservato ai corrispettivi da ventilare", "CodIva"};
  }
  if (tipo->ivaFacoltativa) return std::nullopt;
  const auto [iva, indetraibile] = IvaPrevista(riga.Leggi("Imponibile").Importo(), codIva);
  const bool torna =
      riga.Leggi("Iva").Importo() == iva && riga.Leggi("IvaInd").Importo() == indetraibile;
  if (!torna && !ambiente.Dialogo().Conferma("importo IVA errato, proseguo ugualmente ?")) {
    return Rifiuto{"", "Iva"};
  }
  return std::nullopt;
}

bool RegistrazioneIva::ConfermaRiga(std::string* campo) {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || io.documento.RifiutaSolaLettura()) return false;
  if (io.documento.Rifiuta(io.ControllaRiga(), campo)) return false;
  RigaIva fatta = io.righe.Digitata();
  fatta.tipoRiga = TipoRigaIva::Imponibile;
  fatta.cfp = "P";
  if (io.documento.Rifiuta(io.CodiceIgnotoDellaRiga(fatta), campo)) return false;
  const std::int64_t prima = io.righe.RigaNuova() ? 0 : io.righe.Aperta()->posi;
  if (fatta.posi <= 0 || fatta.posi >= kPosiIva) {
    fatta.posi = prima != 0 ? prima : io.righe.ProssimaPosi(1);
  }
  std::set<std::int64_t> proposte = io.proposte;
  proposte.erase(prima);
  proposte.erase(fatta.posi);
  std::vector<RigaIva> nuove = io.righe.Con(std::move(fatta));
  try {
    io.totali = io.Complete(SenzaProposte(nuove, proposte));
  } catch (const FuoriCampo& errore) {
    io.Avviso(std::string("totali della registrazione: ") + errore.what());
    return false;
  }
  io.proposte = std::move(proposte);
  io.righe.Sostituisci(std::move(nuove));
  io.Segna();
  return true;
}

bool RegistrazioneIva::EliminaRiga() {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || io.documento.RifiutaSolaLettura()) return false;
  if (!io.ambiente.Dialogo().Conferma("Conferma eliminazione RIGA ?")) return false;
  if (io.righe.RigaNuova()) {
    AnnullaRiga();
    return true;
  }
  io.proposte.erase(io.righe.Aperta()->posi);
  io.righe.Sostituisci(io.righe.Senza());
  io.CalcolaTotali();
  io.Segna();
  return true;
}

// --- Rows of the last registration
// -----------------------------------------------------------------

namespace {

std::vector<RigaIva> UltimeRighe(Archivio& tessarc, int anno, const std::string& riva,
                                 const std::string& cfp, const std::string& conto) {
  for (const int cercato : {anno, anno - 1}) {
    Rs ultima = tessarc.Recordset(
        "select top 1 NumDoc from ZarticoliFatture where " + sql::Criterio("Anno", "=", cercato) +
        " and " + sql::Criterio("Riva", "=", riva) + " and " + sql::Criterio("CFP", "=", cfp) +
        " and " + sql::Criterio("Conto", "=", conto) + " order by NumDoc desc");
    if (ultima.Eof()) continue;
    auto righe = LeggiRigheIva(tessarc, cercato, ultima.Fields(0).Intero());
    std::erase_if(righe, [](const RigaIva& r) { return r.tipoRiga != TipoRigaIva::Imponibile; });
    return righe;
  }
  return {};
}

}  // namespace

std::vector<RigaIva> RegistrazioneIva::Interno::RigheDellUltima() const {
  const bool adatta = documento.Nuovo() && !righe.InRiga() && righe.Tutte().empty() &&
                      !tipo->corrispettivi && !T("Contox").empty();
  if (!adatta) return {};
  return UltimeRighe(tessarc, anno, registro.cod, T("CFPx"), T("Contox"));
}

std::size_t RegistrazioneIva::RigheProponibili() const {
  return interno_->RigheDellUltima().size();
}

void RegistrazioneIva::ProponiRighe() {
  Interno& io = *interno_;
  const auto vecchie = io.RigheDellUltima();
  if (vecchie.empty()) return;
  std::vector<RigaIva> righe;
  for (const auto& vecchia : vecchie) {
    RigaIva proposta;
    proposta.posi = static_cast<std::int64_t>(righe.size()) + 1;
    proposta.cfp = "P";
    proposta.conto = vecchia.conto;
    proposta.codIva = vecchia.codIva;
    proposta.categoria = vecchia.categoria;
    proposta.commessa = vecchia.commessa;
    proposta.descrizione = io.T("Descrizionex");
    io.proposte.insert(proposta.posi);
    righe.push_back(std::move(proposta));
  }
  io.righe.Sostituisci(std::move(righe));
  io.Segna();
}

}  // namespace fenalto::vat
