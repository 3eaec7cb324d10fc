// The taxable rows of a VAT registration.
#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/Testo.h"
#include "vat/entry/RegistrazioneIvaInterno.h"
#include "vat/postings/DatiIva.h"

namespace fenalto::vat {

// --- Amounts -------------------------------------------------------------------------------------

std::pair<Importo, Importo> RegistrazioneIva::Interno::DividiIva(Importo iva,
                                                                 const std::string& codIva) const {
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
  DocumentoIva documento = DocumentoDiRegistro(ambiente, registro.cod);
  documento.anno = anno;
  documento.numDoc = numDoc;
  documento.conto = T("Contox");
  documento.descrizione = T("Descrizionex");
  return documento;
}

void RegistrazioneIva::Interno::CalcolaTotali() {
  auto complete = CreaRigheIvaCli(Documento(numeroRecord), RigheCompilate());
  totali = complete ? std::move(complete).Valore() : RigheComplete{};
}

std::vector<RigaIva> RegistrazioneIva::Interno::RigheCompilate() const {
  std::vector<RigaIva> compilate;
  for (const auto& r : righe) {
    if (!proposte.contains(r.posi)) compilate.push_back(r);
  }
  return compilate;
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
  return interno_->righe;
}

bool RegistrazioneIva::RigaNuova() const {
  return interno_->rigaNuova;
}

Scheda& RegistrazioneIva::Riga() {
  return interno_->riga;
}

void RegistrazioneIva::Interno::MostraRiga(const RigaIva& mostrata) {
  riga.Svuota();
  riga.Scrivi("Posi", mostrata.posi);
  riga.Scrivi("Conto", mostrata.conto);
  riga.Scrivi("CodIva", mostrata.codIva);
  riga.Scrivi("Descrizione", mostrata.descrizione);
  riga.Scrivi("Categoria", mostrata.categoria);
  riga.Scrivi("Commessa", mostrata.commessa);
  riga.Scrivi("Imponibile", mostrata.imponibile);
  riga.Scrivi("Iva", mostrata.iva);
  riga.Scrivi("IvaInd", mostrata.ivaInd);
  riga.Consolida();
  stato = Stato::RigaAperta;
}

RigaIva RegistrazioneIva::Interno::RigaDaScheda() const {
  RigaIva fatta = rigaNuova ? RigaIva{} : righe[indiceRiga];
  fatta.posi = riga.Leggi("Posi").Intero();
  fatta.conto = riga.Testo("Conto");
  fatta.codIva = riga.Testo("CodIva");
  fatta.descrizione = riga.Testo("Descrizione");
  fatta.categoria = riga.Testo("Categoria");
  fatta.commessa = riga.Testo("Commessa");
  fatta.imponibile = riga.Leggi("Imponibile").Importo();
  fatta.iva = riga.Leggi("Iva").Importo();
  fatta.ivaInd = riga.Leggi("IvaInd").Importo();
  fatta.tipoRiga = TipoRigaIva::Imponibile;
  fatta.cfp = "P";
  return fatta;
}

bool RegistrazioneIva::PNuovaRiga() {
  Interno& io = *interno_;
  if (io.stato != Stato::Aperta || io.RifiutaSolaLettura()) return false;
  RigaIva nuova;
  nuova.posi = io.righe.empty() ? 1 : io.righe.back().posi + 1;
  nuova.descrizione = io.T("Descrizionex");
  if (io.tipo->corrispettivi) {
    nuova.conto = io.registro.contoRicavi;
    nuova.codIva = io.Tipo({"07"}) ? std::string(kCodiceVentilazione) : io.registro.codIva;
  } else {
    nuova.conto = NzStr(io.DellaParte("ContropFatture"));
    nuova.codIva = NzStr(io.DellaParte("CodIva"));
    nuova.categoria = NzStr(io.DellaParte("Categoria"));
  }
  io.rigaNuova = true;
  io.MostraRiga(nuova);
  return true;
}

bool RegistrazioneIva::ApriRiga(std::size_t indice) {
  Interno& io = *interno_;
  if (io.stato != Stato::Aperta || indice >= io.righe.size()) return false;
  io.rigaNuova = false;
  io.indiceRiga = indice;
  io.MostraRiga(io.righe[indice]);
  return true;
}

void RegistrazioneIva::AnnullaRiga() {
  if (interno_->stato == Stato::RigaAperta) interno_->stato = Stato::Aperta;
  interno_->rigaNuova = false;
  interno_->riga.Svuota();
}

void RegistrazioneIva::RigaLasciata(std::string_view campo) {
  Interno& io = *interno_;
  if (io.stato != Stato::RigaAperta || SolaLettura()) return;
  const bool codice = UgualeTesto(campo, "CodIva") && !io.riga.Leggi("Imponibile").Importo().Zero();
  if (UgualeTesto(campo, "Imponibile") || codice) io.CalcolaIvaRiga();
}

void RegistrazioneIva::PulisciImporti() {
  Interno& io = *interno_;
  if (io.stato != Stato::RigaAperta || io.RifiutaSolaLettura() || io.tipo->ivaFacoltativa) return;
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
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaRiga() {
  const std::string codIva = riga.Testo("CodIva");
  const std::string conto = riga.Testo("Conto");
  if (codIva.empty()) return Rifiuto{"manca codice iva", "CodIva"};
  if (conto.empty()) return Rifiuto{"manca conto", "Conto"};
  if (!ambiente.Esiste("tessarc", "CodiciIva", {{"Cod", codIva}})) {
    return Rifiuto{"il codice iva " + codIva + " non esiste", "CodIva"};
  }
  const bool nelPiano =
      ambiente.Esiste("tessarc", "Conti", {{"Cod", conto}}) ||
      ambiente.Esiste("tessarc", "ContiClientiFornitori", {{"Cod", conto}, {"CFP", "P"}});
  if (!nelPiano) {
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
  if (io.stato != Stato::RigaAperta || io.RifiutaSolaLettura()) return false;
  if (const auto rifiuto = io.ControllaRiga()) {
    if (!rifiuto->messaggio.empty()) io.Avviso(rifiuto->messaggio);
    if (campo != nullptr) *campo = rifiuto->campo;
    return false;
  }
  RigaIva fatta = io.RigaDaScheda();
  const std::int64_t prima = io.rigaNuova ? 0 : io.righe[io.indiceRiga].posi;
  if (fatta.posi <= 0 || fatta.posi >= kPosiIva) {
    fatta.posi = prima != 0 ? prima : (io.righe.empty() ? 1 : io.righe.back().posi + 1);
  }
  std::vector<RigaIva> nuove = io.righe;
  if (io.rigaNuova) {
    nuove.push_back(fatta);
  } else {
    nuove[io.indiceRiga] = fatta;
  }
  std::stable_sort(nuove.begin(), nuove.end(),
                   [](const RigaIva& a, const RigaIva& b) { return a.posi < b.posi; });
  const auto precedenti = std::exchange(io.righe, std::move(nuove));
  const auto proposte = io.proposte;
  io.proposte.erase(prima);
  io.proposte.erase(fatta.posi);
  try {
    io.CalcolaTotali();
  } catch (const FuoriCampo& errore) {
    io.righe = precedenti;
    io.proposte = proposte;
    io.Avviso(std::string("totali della registrazione: ") + errore.what());
    return false;
  }
  io.righeModificate = true;
  AnnullaRiga();
  return true;
}

bool RegistrazioneIva::EliminaRiga() {
  Interno& io = *interno_;
  if (io.stato != Stato::RigaAperta || io.RifiutaSolaLettura()) return false;
  if (!io.ambiente.Dialogo().Conferma("Conferma eliminazione RIGA ?")) return false;
  if (!io.rigaNuova) {
    io.proposte.erase(io.righe[io.indiceRiga].posi);
    io.righe.erase(io.righe.begin() + static_cast<std::ptrdiff_t>(io.indiceRiga));
    io.righeModificate = true;
    io.CalcolaTotali();
  }
  AnnullaRiga();
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
  const bool adatta = nuova && stato == Stato::Aperta && righe.empty() && !tipo->corrispettivi &&
                      !T("Contox").empty();
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
  for (const auto& vecchia : vecchie) {
    RigaIva proposta;
    proposta.posi = static_cast<std::int64_t>(io.righe.size()) + 1;
    proposta.cfp = "P";
    proposta.conto = vecchia.conto;
    proposta.codIva = vecchia.codIva;
    proposta.categoria = vecchia.categoria;
    proposta.commessa = vecchia.commessa;
    proposta.descrizione = io.T("Descrizionex");
    io.proposte.insert(proposta.posi);
    io.righe.push_back(std::move(proposta));
  }
  io.righeModificate = true;
}

}  // namespace fenalto::vat
