#include "vat/register/RegistroIvaStampa.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/journal/GiornaleInterno.h"
#include "vat/codes/TipiRegistro.h"
#include "vat/register/RegistroIvaTesto.h"
#include "vat/settlement/TotaliInterno.h"

namespace fenalto::vat {
namespace {

/// Registrations between two signs of life.
constexpr std::int64_t kOgni = 200;
/// Characters of a party's name in the graphic form; capitals take half as much again.
constexpr std::size_t kNomeModello = 36;
constexpr std::size_t kNomeModelloMaiuscolo = 29;
/// Characters of a VAT code's description in the graphic form.
constexpr std::size_t kIvaModello = 19;
constexpr std::size_t kNumeroModello = 12;

/// Parties known by heart: enough for a year of most firms, little enough for any.
constexpr std::size_t kMassimoParti = 20'000;

std::size_t LargoModello(const std::string& testo) {
  const auto maiuscole = std::ranges::count_if(testo, [](char c) { return c >= 'A' && c <= 'Z'; });
  return static_cast<std::size_t>(maiuscole) * 3 > testo.size() ? kNomeModelloMaiuscolo
                                                                : kNomeModello;
}

constexpr const char* kColonneLette =
    "SELECT Articoli.NProt, Articoli.NumDoc, Articoli.Anno, Articoli.Dt, Articoli.CFP, "
    "Articoli.Conto, Articoli.DtFat, Articoli.NFat, Articoli.Ep, Articoli.DtIncasso, "
    "Movimenti.CodIva, Movimenti.Imponibile, Movimenti.Iva, Movimenti.IvaInd FROM ";
constexpr const char* kGiunzione =
    " INNER JOIN Movimenti ON (Articoli.Anno = Movimenti.Anno) AND (Articoli.NumDoc = "
    "Movimenti.NumDoc) WHERE ";

/// What all rows of a registration share; the rest is left empty.
RigaRegistro LeggiTesta(const Rs& rs) {
  RigaRegistro riga;
  riga.nProt = rs.Fields(0).Intero();
  riga.numDoc = rs.Fields(1).Intero();
  riga.anno = static_cast<int>(rs.Fields(2).Intero());
  riga.dt = rs.Fields(3).Data();
  riga.cfp = rs.Fields(4).Testo();
  riga.conto = rs.Fields(5).Testo();
  riga.dtFat = rs.Fields(6).Data();
  riga.nFat = rs.Fields(7).Testo();
  riga.ep = rs.Fields(8).Booleano();
  riga.dtIncasso = rs.Fields(9).Data();
  return riga;
}

void LeggiImporti(const Rs& rs, RigaRegistro& riga) {
  riga.codIva = rs.Fields(10).Testo();
  riga.importi = {rs.Fields(11).Importo(), rs.Fields(12).Importo(), rs.Fields(13).Importo()};
}

/// The pieces that aren't empty, with `segno` between.
std::string Accosta(const std::vector<std::string>& pezzi, std::string_view segno = " ") {
  std::string insieme;
  for (const std::string& pezzo : pezzi) {
    if (pezzo.empty()) continue;
    if (!insieme.empty()) insieme += segno;
    insieme += pezzo;
  }
  return insieme;
}

}  // namespace

ImportiRiga& ImportiRiga::operator+=(const ImportiRiga& altri) {
  imponibile += altri.imponibile;
  iva += altri.iva;
  ivaInd += altri.ivaInd;
  return *this;
}

TabulatoRegistroIva::TabulatoRegistroIva(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                                         const DatiStampaRegistro& dati,
                                         const OpzioniRegistroIva& opzioni)
    : ambiente_(ambiente),
      stampa_(ambiente, uscite),
      uscite_(uscite),
      dati_(dati),
      opzioni_(opzioni),
      ditta_(reports::LeggiDatiDitta(ambiente)),
      riga_(testo_registro::Riga(ambiente.Euro())),
      rigaTotale_(testo_registro::RigaTotale(ambiente.Euro())),
      colonne_(testo_registro::Colonne()) {
  // The tax code stands beside the address, where the firm wants it.
  if (!opzioni.stIndirizzo) ditta_.codFisc.clear();
}

std::optional<int> TabulatoRegistroIva::Esegui() {
  const reports::Cornice cornice{"registro iva unico",
                                 "Registro iva unico " + dati_.periodo.testo,
                                 "TiRiva",
                                 testo_registro::kLarghezza,
                                 opzioni_.stGrafico,
                                 opzioni_.xTar};
  const reports::ModoStampa modo = reports::ApriStampa(stampa_, ambiente_, cornice);
  if (modo == reports::ModoStampa::Fermata) return std::nullopt;
  grafico_ = modo == reports::ModoStampa::Grafico;
  stampa_.Intestazione([this] { Testata(); });
  std::int64_t quanti = 0;
  for (const TotaleRegistro& totale : dati_.totali) {
    const IntervalloRegistro& i = totale.intervallo;
    if (!i.daIncassi && !i.Vuoto()) quanti += i.aaNProt - i.daNProt + 1;
  }
  avanzamento_ = ambiente_.Dialogo().Avvia("Registro IVA", quanti);
  if (!opzioni_.soloChiusura) {
    for (const TotaleRegistro& totale : dati_.totali) {
      if (!Registro(totale)) return std::nullopt;
    }
  }
  if (dati_.conLiquidazione) {
    sezione_ = dati_.periodo.Annuale() ? "Riepilogo annuale" : "Liquidazione periodica";
    colonne_.clear();
    StampaLiquidazione(ambiente_, stampa_, dati_.liquidazione);
  }
  const bool interrotta = stampa_.Interrotta();
  const int ultima = dati_.primaPagina + std::max(stampa_.NumeroPagina(), 1) - 1;
  if (interrotta || !stampa_.Fine()) return std::nullopt;
  return ultima;
}

/// False when the user cancelled.
bool TabulatoRegistroIva::Registro(const TotaleRegistro& totale) {
  const IntervalloRegistro& intervallo = totale.intervallo;
  if (intervallo.Vuoto() || (intervallo.daIncassi && totale.codici.empty())) return true;
  sezione_ = opzioni_.soloTotali ? "Totali dei registri"
                                 : "Registro " + intervallo.riva + " " + intervallo.descrizione;
  progressivo_ = {};
  if (!opzioni_.soloTotali) {
    stampa_.NuovaPagina();
    if (!Scorri(totale)) return false;
    if (opzioni_.saltoCartaTotaliIva) stampa_.NuovaPagina();
  }
  if (!totale.quote.empty()) PaginaVentilazione(totale);
  Totali(totale);
  return true;
}

bool TabulatoRegistroIva::Scorri(const TotaleRegistro& totale) {
  const IntervalloRegistro& intervallo = totale.intervallo;
  const bool incassate = intervallo.daIncassi;
  // The stored queries let the engine find protocols and collections by their index.
  const char* articoli =
      incassate ? "ZarticoliSospese AS Articoli" : "ZarticoliProtocollati AS Articoli";
  const std::string condizione =
      incassate ? CondizioneIncassati(ambiente_, intervallo.tipo, dati_.periodo)
                : CondizioneIntervallo(intervallo, dati_.periodo.anno, "Articoli.");
  // An order by register as well would have the engine sort what the index gives in order.
  const std::string ordine =
      incassate ? " ORDER BY Articoli.Anno, Articoli.Riva, Articoli.NProt, Movimenti.Posi"
                : " ORDER BY Articoli.NProt, Movimenti.Posi";
  conRiporto_ = true;
  std::optional<RigaRegistro> riga;
  Rs rs =
      ambiente_.ArchivioDi("tessarc").Recordset(kColonneLette + std::string(articoli) + kGiunzione +
                                                condizione + " AND Movimenti.TIPORIGA=3" + ordine);
  for (; !rs.Eof() && !stampa_.Interrotta(); rs.MoveNext()) {
    const bool prima =
        !riga || riga->numDoc != rs.Fields(1).Intero() || riga->anno != rs.Fields(2).Intero();
    if (prima) {
      if (riga) FineArticolo(*riga, incassate);
      if (++fatti_ % kOgni == 0 && !avanzamento_->Avanza(fatti_)) return false;
      riga = LeggiTesta(rs);
      // The lines of a registration stay together.
      Spazio(1 + (opzioni_.stIndirizzo ? 1 : 0) + (riga->ep ? 1 : 0));
    }
    LeggiImporti(rs, *riga);
    Stendi(*riga, prima);
  }
  if (riga) FineArticolo(*riga, incassate);
  Progressivi("totale del registro", progressivo_);
  conRiporto_ = false;
  return !stampa_.Interrotta();
}

void TabulatoRegistroIva::Stendi(const RigaRegistro& riga, bool prima) {
  Spazio(1);
  std::string nome;
  if (prima) {
    const std::string& intero = ParteDi(riga.cfp, riga.conto).nome;
    nome = ledger::InRighe(intero, grafico_ ? LargoModello(intero) : testo_registro::kNome).front();
    restoNome_ = Rifila(std::string_view(intero).substr(std::min(intero.size(), nome.size())));
  }
  grafico_ ? StendiModello(riga, prima, nome) : StendiTesto(riga, prima, nome);
  progressivo_ += riga.importi;
}

void TabulatoRegistroIva::StendiTesto(const RigaRegistro& riga, bool prima,
                                      const std::string& nome) {
  if (prima) {
    stampa_.Campo(1, riga.dt);
    stampa_.Campo(2, riga.nProt);
    stampa_.Campo(3, nome);
    stampa_.Campo(4, riga.nFat);
    stampa_.Campo(5, riga.dtFat);
  }
  stampa_.Campo(6, DescrizioneIva(riga.codIva));
  CampiImporti(riga.importi, 7);
  stampa_.Riga(riga_, AllaRegistrazione(riga.anno, riga.numDoc));
}

void TabulatoRegistroIva::StendiModello(const RigaRegistro& riga, bool prima,
                                        const std::string& nome) {
  const double y = stampa_.YCorrente();
  const Rinvio rinvio = AllaRegistrazione(riga.anno, riga.numDoc);
  if (prima) {
    stampa_.CampoModello("R_dt", riga.dt, y, rinvio);
    stampa_.CampoModello("R_Nprot", riga.nProt, y, rinvio);
    stampa_.CampoModello("R_DESCRIZIONE", nome, y, rinvio);
    stampa_.CampoModello("R_NFAT", riga.nFat, y, rinvio);
    stampa_.CampoModello("R_DTFAT", riga.dtFat, y, rinvio);
  }
  stampa_.CampoModello("R_DESCRIVA", DescrizioneIva(riga.codIva), y, rinvio);
  CampiImportiModello({"R_IMPONIBILE", "R_IVA", "R_IVAIND", "R_TOT"}, riga.importi, y);
  stampa_.AvanzaRiga();
}

/// What follows the amounts of a registration: all that had no room beside them, and the address.
void TabulatoRegistroIva::FineArticolo(const RigaRegistro& testa, bool incassata) {
  std::vector<std::string> pezzi{restoNome_, {}, {}};
  const std::size_t largo = grafico_ ? kNumeroModello : testo_registro::kNumero;
  if (LunghezzaTesto(testa.nFat) > largo) pezzi[1] = "documento n. " + testa.nFat;
  if (opzioni_.stIndirizzo) pezzi[2] = ParteDi(testa.cfp, testa.conto).indirizzo;
  if (const std::string seguito = Accosta(pezzi, " - "); !seguito.empty()) Seguito(seguito);
  if (incassata) {
    Seguito("Fatt.con IVA ad esigibilità differita  PAGATA IL " + testa.dtIncasso.Testo());
  } else if (testa.ep) {
    Seguito("    ---- IVA ad esigibilità differita ----");
  }
}

const TabulatoRegistroIva::Parte& TabulatoRegistroIva::ParteDi(const std::string& cfp,
                                                               const std::string& conto) {
  std::string chiave = cfp;
  chiave.append("\x1f").append(conto);
  const auto nota = parti_.find(chiave);
  if (nota != parti_.end()) return nota->second;
  if (parti_.size() >= kMassimoParti) parti_.clear();
  Parte parte;
  parte.nome = NzStr(ambiente_.Cerca("tessarc", "ContiClientiFornitori",
                                     {{"Cod", conto}, {"CFP", cfp}}, "Descrizione"));
  if (opzioni_.stIndirizzo) parte.indirizzo = IndirizzoDi(cfp, conto);
  return parti_.emplace(std::move(chiave), std::move(parte)).first->second;
}

/// Customers and suppliers have one; the cash account of receipts has none.
std::string TabulatoRegistroIva::IndirizzoDi(const std::string& cfp, const std::string& conto) {
  const bool cliente = UgualeTesto(cfp, "C");
  if (!cliente && !UgualeTesto(cfp, "F")) return {};
  Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
      std::string("SELECT ragsoc2, indirizzo, cap, localita, Prov, piva, CodFisc "
                  "FROM ") +
      (cliente ? "Clienti" : "Fornitori") + " WHERE " + sql::Criterio("Cod", "=", conto));
  if (rs.Eof()) return {};
  std::string codice;
  if (const std::string piva = rs.Fields(5).Testo(); !piva.empty()) {
    codice = "Partita IVA " + piva;
  } else if (const std::string fiscale = rs.Fields(6).Testo(); !fiscale.empty()) {
    codice = "C.F. " + fiscale;
  }
  const std::string seconda = NzStr(ambiente_.Cerca(
      "tessarc", "ContiClientiFornitori", {{"Cod", conto}, {"CFP", cfp}}, "descrizione2"));
  return Accosta({seconda, rs.Fields(1).Testo(), rs.Fields(2).Testo(), rs.Fields(3).Testo(),
                  rs.Fields(4).Testo(), codice});
}

const std::string& TabulatoRegistroIva::DescrizioneIva(const std::string& cod) {
  const auto nota = codici_.find(cod);
  if (nota != codici_.end()) return nota->second;
  std::string descrizione =
      NzStr(ambiente_.Cerca("tessarc", "CodiciIva", {{"Cod", cod}}, "Descrizione"));
  // A description that its place would cut comes behind its code, or gives place to it.
  const std::size_t largo = grafico_ ? kIvaModello : testo_registro::kIva - 1;
  if (LunghezzaTesto(descrizione) > largo) descrizione = grafico_ ? cod + " " + descrizione : cod;
  if (descrizione.empty()) descrizione = cod;
  return codici_.emplace(cod, std::move(descrizione)).first->second;
}

std::optional<int> StampaRegistroIva(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                                     const DatiStampaRegistro& dati,
                                     const OpzioniRegistroIva& opzioni) {
  return TabulatoRegistroIva(ambiente, uscite, dati, opzioni).Esegui();
}

}  // namespace fenalto::vat
